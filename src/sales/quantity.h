#pragma once

#include <QString>

#include <optional>

/// What a cashier may type as a quantity or an amount of cash.
namespace quantity {

/// The greatest quantity of one line. A barcode scanned into the quantity box by mistake has eight
/// digits or more, so it is refused instead of being sold as millions of pieces.
inline constexpr double kMost = 999'999.0;

/// The greatest amount of cash; refuses a barcode scanned into the cash box for the same reason.
inline constexpr double kMostCash = 9'999'999.99;

/// A quantity greater than 0 and up to kMost, with a decimal comma. Points are accepted only where
/// they group thousands ("1.250"): "1.5" is refused, for it would sell fifteen pieces.
std::optional<double> parse(QStringView text);

/// What stands in the entry box: "3*8690000000015" or "1,5*KOD" sells that many of the code.
struct Entry
{
    QString code;
    double quantity = 1.0;
};

/// A text whose part before the first "*" is no number is a code as it stands. Nothing when there
/// is a number that parse() refuses, or no code behind it.
std::optional<Entry> parseEntry(const QString &text);

/// Why a typed quantity is refused, in Turkish.
QString refusal();

/// Why a sum above kMost is refused, in Turkish.
QString tooMany();

/// An amount of cash from 0 to kMostCash; grouping points as in parse().
std::optional<double> parseCash(QStringView text);

/// Whether a key may go into a box that holds `text`: digits, one comma, grouping points.
bool accepts(QStringView text, QChar key);

} // namespace quantity
