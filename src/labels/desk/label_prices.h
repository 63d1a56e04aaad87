#pragma once

#include "common/record_set.h"

/// Which of a stock's host prices stand on its labels, by `STKFIYNO`.
struct PriceNumbers
{
    QString first;  ///< for rows of the first unit
    QString second; ///< for rows of the second unit

    /// The number for a row's tag; "" for other tags and when none is chosen: no price then.
    QString wanted(QStringView tag) const;
};

/// Price after three discounts in per cent, each on what the ones before left. Worked in single
/// precision, as the labels of the shop always were: the price of the shelf must not move by a
/// kuruş when the program is replaced.
float discountedPrice(double price, double percent1, double percent2, double percent3);

/// Label price "###,###0.00" from a stock's `STKFIYAT` records: the last one with the wanted
/// number; "" when there is none. Throws HostError.
QString labelPrice(RecordSet prices, QStringView wantedNumber);
