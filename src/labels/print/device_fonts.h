#pragma once

#include "labels/layout/device_font.h"
#include "labels/print/label_builder.h"

#include <QSizeF>

#include <deque>

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
