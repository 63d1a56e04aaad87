#pragma once

#include <QString>

/// Statements on the company database that several rooms read the host with. Values are pasted as
/// they are; other programs of the shop rely on the exact texts.
namespace host_queries {

/// The stock card of exactly this code.
QString card(const QString &stockCode);

/// The stock cards whose name, or code, holds the text. A quote in it breaks the statement and the
/// host says so.
QString cardsByName(const QString &text);
QString cardsByCode(const QString &text);

/// The accounts whose name, or code, holds the text; as above.
QString accountsByName(const QString &text);
QString accountsByCode(const QString &text);

/// The owners of a barcode.
QString barcode(const QString &barcode);

/// The barcodes of all units of a stock.
QString barcodesOf(const QString &stockCode);

/// The prices of a stock under all price numbers.
QString pricesOf(const QString &stockCode);

/// Sent first on a company connection: every later date of the program is written day-month-year.
QString dayMonthYear();

/// All records of a table: slip and invoice types, warehouses, accounts, personnel.
QString allOf(QStringView table);

} // namespace host_queries
