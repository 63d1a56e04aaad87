#include "labels/print/device_fonts.h"

#include "common/millimetres.h"

#include <algorithm>

const DeviceFont &DeviceFonts::find(const LabelFont &font) const
{
    const auto known = std::find_if(m_fonts.cbegin(), m_fonts.cend(),
                                    [&](const DeviceFont &made) { return made.source() == font; });
    return known != m_fonts.cend() ? *known : m_fonts.emplace_back(font, m_dpi.height());
}

double DeviceFonts::width(const LabelFont &font, QStringView text) const
{
    return find(font).width(text) * kMmPerInch / m_dpi.width();
}

double DeviceFonts::lineHeight(const LabelFont &font) const
{
    return find(font).height() * kMmPerInch / m_dpi.height();
}
