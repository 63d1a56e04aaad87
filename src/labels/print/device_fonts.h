#pragma once

#include "labels/print/label_builder.h"

#include <QFont>
#include <QSizeF>

#include <deque>

inline constexpr double kMmPerInch = 25.4;

/// An element's font at one device, ready to measure and to draw with.
struct DeviceFont
{
    LabelFont source;
    QFont font;
    double ascent = 0; ///< dots, whole
    double height = 0; ///< dots, of one line
};

/// Makes device fonts of layout fonts, once each. Letters stand at their plain widths, without
/// kerning, so that a text is as wide as its letters together.
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
