#pragma once

#include "common/record_set.h"

/// Which of a stock's host prices stand on its labels, by `STKFIYNO`.
struct PriceNumbers
{
    QString first;  ///< for rows of the first unit
    QString second; ///< for rows of the second unit

    /// The number for a unit; "" for others than 1 and 2 and when none is chosen: no price then.
    QString wanted(int unit) const;
};

/// Label price "###,###0.00", discounts::shelfPrice(), from a stock's `STKFIYAT` records: the last
/// one with the wanted number; "" when there is none. Throws HostError.
QString labelPrice(RecordSet prices, QStringView wantedNumber);
