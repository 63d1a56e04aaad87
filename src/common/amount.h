#pragma once

#include <QString>

#include <limits>
#include <optional>

/// Numbers as a Turkish shop writes them: decimal comma, grouping point, whatever the machine's
/// locale. This is the one place that turns numbers into text and back.
namespace amount {

/// Money and quantities on screen, format "###,###0.00": 1234.5 → "1.234,50", 0 → "0,00". Rounds
/// half away from zero on the decimal number that the value stands for, its 15 significant digits:
/// 1.5 * 5.39 → "8,09". Not finite → "".
QString money(double value);

/// The same of a single: its own seven significant digits, as plain() shows them, are rounded and
/// nothing that only a wider number shows behind them: 1.995F → "2,00", 123456.78F → "123.456,80".
QString money(float value);

/// Whole numbers with grouping points: 12345 → "12.345".
QString whole(qint64 value);

/// Lengths in millimetres, format "###0.0": 12.34 → "12,3".
QString length(double millimetres);

/// The same of a single, by its seven significant digits: 0.35F → "0,4".
QString length(float millimetres);

/// Text of a number without fixed decimals, at most 15 significant digits: 12.5 → "12,5".
QString plain(double value);

/// Text of a single-precision number, at most 7 significant digits; from 1E+07 on in exponent
/// form: 123456.78F → "123456,8".
QString plain(float value);

/// Font sizes in points, at most four decimals: 8.25 → "8,25", 10 → "10".
QString points(double size);

/// Reads a number written with a decimal comma; grouping points may stand anywhere before the
/// comma. Blanks around it are ignored. Anything else ("", "12a", "1,2,3", "nan") → nothing.
std::optional<double> parse(QStringView text);

/// As parse(), narrowed to single precision, with 0 for unreadable text: the way layout files and
/// price columns are read.
float single(QStringView text);

/// The nearest whole number, halves to the even one; 0 for unreadable text and outside the range.
int integer(QStringView text, int least = std::numeric_limits<int>::min(),
            int most = std::numeric_limits<int>::max());

/// Narrows to single precision; what does not fit becomes the greatest value that does.
float narrow(double value);

/// A positive whole number up to 999.999 (a label count), or nothing.
std::optional<int> labelCount(QStringView text);

} // namespace amount
