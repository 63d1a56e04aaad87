#pragma once

#include "labels/print/label_builder.h"

#include <QFont>
#include <QSizeF>

#include <array>
#include <deque>

inline constexpr double kMmPerInch = 25.4;

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

/// Makes device fonts of layout fonts, once each.
class DeviceFonts final : public TextMeasure
{
public:
    /// `dpi`: dots per inch of the device, across and down.
    explicit DeviceFonts(QSizeF dpi) : m_dpi(dpi) {}

    const DeviceFont &find(const LabelFont &font) const;
    QSizeF dpi() const { return m_dpi; }

    double width(const LabelFont &font, QStringView text) const override;
    double lineHeight(const LabelFont &font) const override;

private:
    QSizeF m_dpi;
    mutable std::deque<DeviceFont> m_fonts;
};

/// Height of the font in dots: points at the device's resolution, a whole number. Sizes that are
/// not positive or absurd are taken as 8 or 1000 points.
int pixelSize(const LabelFont &font, double dpiY);
