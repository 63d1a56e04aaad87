#pragma once

#include "paper/draw_commands.h"

#include <map>
#include <tuple>

/// How the digits beneath symbols are written, reckoned once for all symbols of one size.
class DigitStyles
{
public:
    /// `fonts` is kept by reference.
    explicit DigitStyles(const DeviceFonts &fonts) : m_fonts(fonts) {}

    const DigitStyle &find(const BarsCommand &bars, const BarsGeometry &geometry);

private:
    /// Font, width of a module and height of the symbol's box (dots), its symbology.
    using Key = std::tuple<const DeviceFont *, int, int, QString>;

    const DeviceFonts &m_fonts;
    std::map<Key, DigitStyle> m_styles;
};
