#pragma once

#include "sales/pricing.h"

#include <QDateTime>

#include <vector>

/// How a customer pays. The ledger books both alike; receipt and books of the till tell them apart.
enum class Payment
{
    cash,
    card
};

/// An account of the ledger that a sale is booked on. Empty: the one of the settings.
struct Customer
{
    QString code;
    QString name;

    friend bool operator==(const Customer &, const Customer &) = default;
};

/// One finished sale as it stood on the screen when the cashier closed it. Taken before the screen
/// is reset: the ledger and the receipt both work from this copy.
struct Sale
{
    std::vector<SaleLine> lines;
    pricing::Totals totals;
    QString cash = QStringLiteral("0,00");
    QString change = QStringLiteral("0,00");
    Payment payment = Payment::cash;
    Customer customer;
    QString cashierCode;
    QString cashierName; ///< empty: no cashier was chosen
    QDateTime moment;
};
