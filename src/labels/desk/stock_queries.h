#pragma once

#include <QString>

/// Statements of the label form alone on the company database. Values are put in as typed: a quote
/// in a search text breaks the statement and the host says so.
namespace stock_queries {

QString all();

/// The stocks whose card was changed on one of these days ("dd.MM.yyyy", both included) between two
/// times of the day (texts, both included).
QString changed(const QString &fromDate, const QString &toDate, const QString &fromTime,
                const QString &toTime);

/// Adds a barcode to a unit. `type`: numbering::barcodeType(); `priceNumber`: of the unit's label.
QString insertBarcode(const QString &barcode, const QString &stockCode, const QString &unitNumber,
                      const QString &type, const QString &priceNumber);

} // namespace stock_queries
