#pragma once

#include "sales/pricing.h"

#include <QDateTime>

#include <vector>

/// One finished sale as it stood on the screen when the cashier closed it. Taken before the screen
/// is reset: the ledger and the receipt both work from this copy.
struct Sale
{
    std::vector<SaleLine> lines;
    pricing::Totals totals;
    QString cash = QStringLiteral("0,00");
    QString change = QStringLiteral("0,00");
    QString cashierCode;
    QString cashierName; ///< empty: no cashier was chosen
    QDateTime moment;
};
