#include "common/amount.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace amount {

namespace {

/// The decimal number a double stands for: its 15 significant digits without an exponent. What lies
/// behind them is the error of binary arithmetic: 1.5 * 5.39 is 8.084999999999999.
QString decimalNumber(double magnitude)
{
    constexpr int behindFirst = std::numeric_limits<double>::digits10 - 1;
    const QString text = QString::number(magnitude, 'e', behindFirst); // d.dd…de±XX
    const int exponent = text.mid(behindFirst + 3).toInt();
    QString digits = text.first(1) + text.mid(2, behindFirst);
    if (exponent < 0)
        return u"0."_s + QString(-exponent - 1, u'0') + digits;
    digits = digits.leftJustified(exponent + 1, u'0');
    return digits.insert(exponent + 1, u'.');
}

/// Decimal digits of |value| rounded half away from zero to `decimals` places.
QString fixedDigits(double magnitude, int decimals)
{
    QString text = decimalNumber(magnitude);
    const qsizetype point = text.indexOf(u'.');
    const qsizetype wanted = point + 1 + decimals;
    if (text.size() <= wanted)
        return text.leftJustified(wanted, u'0');

    const bool up = text.at(wanted) >= u'5';
    text.truncate(wanted);
    for (qsizetype i = wanted - 1; up && i >= -1; --i) {
        if (i < 0) {
            text.prepend(u'1');
            break;
        }
        if (text.at(i) == u'.')
            continue;
        if (text.at(i) != u'9') {
            text[i] = QChar(text.at(i).unicode() + 1);
            break;
        }
        text[i] = u'0';
    }
    return text;
}

QString withSign(bool negative, const QString &digits)
{
    const bool zero = std::none_of(digits.cbegin(), digits.cend(),
                                   [](QChar c) { return c.isDigit() && c != u'0'; });
    return negative && !zero ? u"-"_s + digits : digits;
}

QString group(QString digits)
{
    for (qsizetype i = digits.indexOf(u',') - 3; i > 0; i -= 3)
        digits.insert(i, u'.');
    return digits;
}

/// %G with a decimal comma and an exponent of two digits at least.
QString significant(double value, int digits)
{
    if (!std::isfinite(value))
        return {};
    QString text = QString::number(value, 'G', digits);
    text.replace(u'.', u',');
    return text;
}

/// The number that a single's own digits spell. Widening it would show digits it never had:
/// 1.995F as 1.9949999.
double spelled(float value)
{
    return parse(plain(value)).value_or(std::numeric_limits<double>::quiet_NaN());
}

} // namespace

QString money(double value)
{
    if (!std::isfinite(value))
        return {};
    QString digits = fixedDigits(std::fabs(value), 2);
    digits.replace(u'.', u',');
    return withSign(std::signbit(value), group(digits));
}

QString money(float value)
{
    return money(spelled(value));
}

QString whole(qint64 value)
{
    QString digits = money(static_cast<double>(value));
    digits.chop(3);
    return digits;
}

QString length(double millimetres)
{
    if (!std::isfinite(millimetres))
        return {};
    QString digits = fixedDigits(std::fabs(millimetres), 1);
    digits.replace(u'.', u',');
    return withSign(std::signbit(millimetres), digits);
}

QString length(float millimetres)
{
    return length(spelled(millimetres));
}

QString plain(double value)
{
    return significant(value, std::numeric_limits<double>::digits10);
}

QString plain(float value)
{
    return significant(static_cast<double>(value), 7);
}

QString points(double size)
{
    if (!std::isfinite(size))
        return {};
    QString digits = fixedDigits(std::fabs(size), 4);
    while (digits.endsWith(u'0'))
        digits.chop(1);
    if (digits.endsWith(u'.'))
        digits.chop(1);
    digits.replace(u'.', u',');
    return withSign(std::signbit(size), digits);
}

std::optional<double> parse(QStringView text)
{
    QString plainText;
    bool comma = false;
    for (const QChar c : text.trimmed()) {
        if (c == u',' && !comma) {
            comma = true;
            plainText += u'.';
        } else if (c == u'.' && !comma) {
            continue;
        } else if ((c >= u'0' && c <= u'9') || ((c == u'-' || c == u'+') && plainText.isEmpty())) {
            plainText += c;
        } else {
            // An exponent as plain() writes it: digits, E, sign, digits.
            if ((c == u'E' || c == u'e') && !plainText.isEmpty() && !plainText.contains(u'E')) {
                plainText += u'E';
                comma = true;
                continue;
            }
            if ((c == u'-' || c == u'+') && plainText.endsWith(u'E')) {
                plainText += c;
                continue;
            }
            return {};
        }
    }
    bool ok = false;
    const double value = plainText.toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return {};
    return value;
}

float single(QStringView text)
{
    const double value = parse(text).value_or(0.0);
    if (std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max()))
        return 0.0F;
    return static_cast<float>(value);
}

float narrow(double value)
{
    constexpr double most = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(value, -most, most));
}

int integer(QStringView text, int least, int most)
{
    const double value = std::nearbyint(parse(text).value_or(0.0));
    return value >= least && value <= most ? static_cast<int>(value) : 0;
}

std::optional<int> labelCount(QStringView text)
{
    const QStringView digits = text.trimmed();
    if (digits.size() > 6)
        return {};
    for (const QChar c : digits)
        if (c < u'0' || c > u'9')
            return {};
    const int count = digits.toInt();
    return count > 0 ? std::optional(count) : std::nullopt;
}

} // namespace amount
