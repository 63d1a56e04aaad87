#pragma once

#include <QHash>
#include <QString>

/// What the print engine needs of one queued stock unit, as display texts.
struct LabelRow
{
    QString barcode;
    QString stockCode;
    QString stockName;
    QString price;
    int count = 1;    ///< labels to print of this row; less than 1 prints none
    int queueRow = 0; ///< where the unit stands in the queue; −1: no longer there

    QString unit = {};                   ///< name of the stock unit
    QHash<QString, QString> fields = {}; ///< values of other fields, read when a run needs them

    friend bool operator==(const LabelRow &, const LabelRow &) = default;
};
