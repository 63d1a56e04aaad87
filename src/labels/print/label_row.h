#pragma once

#include <QString>

/// What the print engine needs of one queued stock unit, as display texts.
struct LabelRow
{
    QString barcode;
    QString stockCode;
    QString stockName;
    QString price;
    int count = 1; ///< labels to print of this row; less than 1 prints none

    friend bool operator==(const LabelRow &, const LabelRow &) = default;
};
