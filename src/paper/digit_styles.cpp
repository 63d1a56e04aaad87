#include "paper/digit_styles.h"

const DigitStyle &DigitStyles::find(const BarsCommand &bars, const BarsGeometry &geometry)
{
    const DeviceFont &font = m_fonts.find(bars.font);
    const Key key{&font, geometry.module, geometry.bottom - geometry.top, bars.symbol.name};
    const auto known = m_styles.find(key);
    if (known != m_styles.end())
        return known->second;
    return m_styles.emplace(key, digitStyle(bars.symbol, geometry, font.font())).first->second;
}
