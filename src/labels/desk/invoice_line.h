#pragma once

#include <QString>

/// One line of an invoice, as the line list shows it.
struct InvoiceLine
{
    QString stockCode;
    QString quantity; ///< as the invoice has it, "3" or "2,5"

    friend bool operator==(const InvoiceLine &, const InvoiceLine &) = default;
};

/// Labels for a quantity, 1 to 999.999. Part quantities are rounded up, because the last half kilo
/// needs a label too; the lines of a return count like any other; what is no number gets one label.
int labelsFor(QStringView quantity);

/// True when the quantity is itself a count of labels.
bool isLabelCount(QStringView quantity);
