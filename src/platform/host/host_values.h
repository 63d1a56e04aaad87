#pragma once

#include <QDate>

#include <optional>
#include <string_view>

struct sqlite3;

/// What the tables of the embedded engine are made of: names of types, orders and functions that
/// stand in its database files. Do not change them: shops have files that use them.
namespace host_values {

// Declared types. Their words also give the storage: TEXT, INT, FLOA are looked for by SQLite.
inline constexpr std::string_view kText = "varchar"; ///< followed by "(n)"
inline constexpr std::string_view kInteger = "int";
inline constexpr std::string_view kFloat = "float";
inline constexpr std::string_view kMoney = "money";
inline constexpr std::string_view kDate = "date text"; ///< stored as yyyy-MM-dd

// Orders (collations) of text and of date columns.
inline constexpr std::string_view kTextOrder = "TURKCE";
inline constexpr std::string_view kDateOrder = "TARIH";

// Functions that turn what a statement wrote into a column into the column's type, or refuse it.
inline constexpr std::string_view kToInteger = "sunucu_tam";
inline constexpr std::string_view kToFloat = "sunucu_sayi";
inline constexpr std::string_view kToMoney = "sunucu_para";
inline constexpr std::string_view kToDate = "sunucu_tarih";

/// Reads a date as the server does after "Set DateFormat dmy": d.M.yyyy (also with "/" or "-"),
/// yyyy-M-d, yyyyMMdd; a time after it does not count; no text at all is 01.01.1900. Years 1753 to
/// 9999. Anything else → nothing.
std::optional<QDate> parseDate(std::string_view text);

/// Order of two texts of a date column: as dates, texts that are no dates last.
int compareDates(std::string_view a, std::string_view b);

/// Gives an open database the orders, functions and the LIKE of the server.
void install(sqlite3 *database);

} // namespace host_values
