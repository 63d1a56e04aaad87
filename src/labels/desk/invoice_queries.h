#pragma once

#include <QString>

/// Statements of the invoice form on the company database. Values are put in as typed.
namespace invoice_queries {

/// Every invoice; the form picks among them.
QString all();

QString lines(const QString &reference);

/// The lines that bear a tracking number.
QString trackedLines(const QString &reference, const QString &trackingNumber);

} // namespace invoice_queries
