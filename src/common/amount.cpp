#include "common/amount.h"

#include "common/digits.h"

#include <QByteArrayView>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace amount {

namespace {

/// The decimal number a double stands for: its 15 significant digits. What lies behind them is the
/// error of binary arithmetic: 1.5 * 5.39 is 8.084999999999999.
struct Decimal
{
    explicit Decimal(double magnitude)
    {
        const QByteArray text = QByteArray::number(magnitude, 'e', kDigits - 1); // d.dd…de±XX
        digits = text.first(1) + text.sliced(2, kDigits - 1);
        whole = text.sliced(kDigits + 2).toInt() + 1;
    }

    /// Half away from zero.
    void round(int decimals)
    {
        const int kept = whole + decimals;
        if (kept >= digits.size())
            return;
        bool up = kept >= 0 && digits.at(kept) >= '5';
        digits.truncate(std::max(kept, 0));
        for (qsizetype i = digits.size() - 1; up && i >= 0; --i) {
            up = digits.at(i) == '9';
            digits[i] = up ? '0' : static_cast<char>(digits.at(i) + 1);
        }
        if (!up)
            return;
        digits.prepend('1');
        ++whole;
    }

    /// The digit at a place from the first on; places around the digits hold zeros.
    QChar at(int place) const
    {
        return QLatin1Char(place >= 0 && place < digits.size() ? digits.at(place) : '0');
    }

    static constexpr int kDigits = std::numeric_limits<double>::digits10;

    QByteArray digits;
    int whole = 0; ///< places before the comma; negative: zeros behind it
};

/// The magnitude rounded half away from zero to `decimals` places, in units of the last of them.
/// Most amounts are the double nearest to a number of few places and 15 digits at most: they stand
/// for that one then, and whole numbers do the rest. Nothing for the others.
std::optional<qint64> inLastPlaces(double magnitude, int decimals)
{
    constexpr std::array<double, 7> scales = {1, 10, 100, 1e3, 1e4, 1e5, 1e6};
    constexpr double largest = 999'999'999'999'999;
    constexpr int finest = 6;
    for (const int places : {decimals, finest}) {
        const double scale = scales.at(static_cast<std::size_t>(places));
        const double whole = std::round(magnitude * scale);
        if (whole > largest || whole / scale != magnitude)
            continue;
        const auto step =
            static_cast<qint64>(scales.at(static_cast<std::size_t>(places - decimals)));
        return (static_cast<qint64>(whole) + step / 2) / step;
    }
    return {};
}

/// Digits with a comma before the last `decimals` of them, and one before the comma at least.
QString withComma(qint64 digits, int decimals)
{
    std::array<QChar, 24> text;
    QChar *first = text.data() + text.size();
    for (int place = 0; digits > 0 || place <= decimals; ++place, digits /= 10) {
        if (place == decimals)
            *--first = u',';
        *--first = QChar(u'0' + static_cast<int>(digits % 10));
    }
    return QString(first, text.data() + text.size() - first);
}

/// A magnitude rounded half away from zero to `decimals` places (1 to 4), with a decimal comma.
QString fixedDigits(double magnitude, int decimals)
{
    if (const auto digits = inLastPlaces(magnitude, decimals))
        return withComma(*digits, decimals);
    Decimal decimal(magnitude);
    decimal.round(decimals);
    QString text;
    text.reserve(std::max(decimal.whole, 1) + 1 + decimals);
    for (int place = std::min(decimal.whole - 1, 0); place < decimal.whole + decimals; ++place) {
        if (place == decimal.whole)
            text += u',';
        text += decimal.at(place);
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
    const auto wide = static_cast<double>(value);
    const double size = std::fabs(wide);
    if (size >= 0.001 && size < 1e7) { // as prices are
        double scale = 1;
        while (size * scale < 1e6)
            scale *= 10;
        const double sevenDigits = size * scale;
        const double whole = std::round(sevenDigits);
        if (std::fabs(sevenDigits - whole) < 0.499) // else they lie just in the middle, or nearly
            return std::copysign(whole / scale, wide);
    }
    return std::isfinite(wide) ? QByteArray::number(wide, 'G', 7).toDouble() : wide;
}

} // namespace

QString money(double value)
{
    if (!std::isfinite(value))
        return {};
    return withSign(std::signbit(value), group(fixedDigits(std::fabs(value), 2)));
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
    return withSign(std::signbit(millimetres), fixedDigits(std::fabs(millimetres), 1));
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
    if (digits.endsWith(u','))
        digits.chop(1);
    return withSign(std::signbit(size), digits);
}

std::optional<double> parse(QStringView text)
{
    QVarLengthArray<char, 32> plainText;
    bool comma = false;
    bool exponent = false;
    for (const QChar c : text.trimmed()) {
        const bool sign = c == u'-' || c == u'+';
        if (c == u',' && !comma) {
            comma = true;
            plainText.append('.');
        } else if (c == u'.' && !comma) {
            continue;
        } else if (isDigit(c) || (sign && (plainText.isEmpty() || plainText.back() == 'E'))) {
            plainText.append(c.toLatin1());
        } else if ((c == u'E' || c == u'e') && !plainText.isEmpty() && !exponent) {
            plainText.append('E'); // as plain() writes it: digits, E, sign, digits
            comma = exponent = true;
        } else {
            return {};
        }
    }
    bool ok = false;
    const double value = QByteArrayView(plainText.cbegin(), plainText.size()).toDouble(&ok);
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
