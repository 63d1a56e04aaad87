#pragma once

#include "labels/layout/label_layout.h"

#include <QFont>

#include <array>

/// An element's font at one device, ready to measure and to draw with. Letters stand at their plain
/// widths, without kerning, so that a text is as wide as its letters together.
class DeviceFont
{
public:
    /// `dpiY`: dots per inch down the device.
    DeviceFont(const LabelFont &source, double dpiY);

    const LabelFont &source() const { return m_source; }
    const QFont &font() const { return m_font; }
    double ascent() const { return m_ascent; } ///< dots, whole
    double height() const { return m_height; } ///< dots, of one line

    /// Width of a text in dots.
    double width(QStringView text) const;

private:
    static constexpr std::size_t kLatin = 0x180; ///< all Turkish letters lie below

    LabelFont m_source;
    QFont m_font;
    double m_ascent = 0;
    double m_height = 0;
    mutable std::array<double, kLatin> m_widths{}; ///< dots, of each Latin letter; 0 = not known
};

/// Height of the font in dots: points at the device's resolution, a whole number. Sizes that are
/// not positive or absurd are taken as 8 or 1000 points.
int pixelSize(const LabelFont &font, double dpiY);
