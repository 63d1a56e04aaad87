#pragma once

#include "common/amount.h"

#include <cmath>

/// Money in whole kuruş: sums of a day agree with its receipts to the last one.
namespace kurus {

inline qint64 of(double value)
{
    return std::llround(value * 100.0);
}
inline qint64 of(QStringView text)
{
    return of(amount::parse(text).value_or(0.0));
}

/// "1.234,50"
inline QString text(qint64 kurus)
{
    return amount::money(static_cast<double>(kurus) / 100.0);
}

} // namespace kurus
