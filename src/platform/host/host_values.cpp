#include "platform/host/host_values.h"

#include "platform/host/like_pattern.h"

#include <QByteArray>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <memory>
#include <sqlite3.h>

namespace host_values {

namespace {

constexpr std::size_t kLongestPattern = 8000;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The leading digits of `text` as a number; `text` loses them. −1 when there are none or too many.
int readNumber(std::string_view &text, std::size_t &digits)
{
    int number = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || !isDigit(text.front()) || error != std::errc())
        return -1;
    digits = static_cast<std::size_t>(end - text.data());
    text.remove_prefix(digits);
    return number;
}

/// Only a time of day may follow a date.
bool isTime(std::string_view text)
{
    if (text.empty())
        return true;
    return (text.front() == ' ' || text.front() == 'T') && text.size() > 1 &&
           isDigit(text.back()) &&
           text.find_first_not_of("0123456789:. ", 1) == std::string_view::npos;
}

std::optional<QDate> makeDate(int year, int month, int day)
{
    const QDate date(year, month, day);
    if (!date.isValid() || year < 1753 || year > 9999)
        return std::nullopt;
    return date;
}

std::string_view valueText(sqlite3_value *value)
{
    const void *text = sqlite3_value_text(value);
    const int size = sqlite3_value_bytes(value);
    return text ? std::string_view(static_cast<const char *>(text), static_cast<std::size_t>(size))
                : std::string_view();
}

void refuse(sqlite3_context *context, const char *type, std::string_view text)
{
    const QByteArray message = QByteArray(type) + " değil: '" +
                               QByteArray(text.data(), static_cast<qsizetype>(text.size())) + "'";
    sqlite3_result_error(context, message.constData(), static_cast<int>(message.size()));
}

/// A number column has turned every text that is a number into one before this sees it; an empty
/// text counts as 0 on the server. Nothing when the value was null or has been refused.
std::optional<double> numberOf(sqlite3_context *context, sqlite3_value *value, const char *type)
{
    if (sqlite3_value_type(value) == SQLITE_NULL)
        return std::nullopt;
    if (sqlite3_value_numeric_type(value) == SQLITE_TEXT) {
        const std::string_view text = valueText(value);
        if (trimmed(text).empty())
            return 0.0;
        refuse(context, type, text);
        return std::nullopt;
    }
    const double number = sqlite3_value_double(value);
    if (sqlite3_value_type(value) == SQLITE_BLOB || !std::isfinite(number)) {
        refuse(context, type, valueText(value));
        return std::nullopt;
    }
    return number;
}

void toInteger(sqlite3_context *context, int, sqlite3_value **values)
{
    const auto number = numberOf(context, values[0], "Tam sayı");
    if (!number)
        return;
    if (std::trunc(*number) != *number || std::abs(*number) > std::numeric_limits<int>::max())
        refuse(context, "Tam sayı", valueText(values[0]));
    else
        sqlite3_result_int64(context, static_cast<sqlite3_int64>(*number));
}

void toFloat(sqlite3_context *context, int, sqlite3_value **values)
{
    if (const auto number = numberOf(context, values[0], "Sayı"))
        sqlite3_result_double(context, *number);
}

/// Money has four decimals.
void toMoney(sqlite3_context *context, int, sqlite3_value **values)
{
    constexpr double largest = 922337203685477.0;
    const auto number = numberOf(context, values[0], "Para tutarı");
    if (!number)
        return;
    if (std::abs(*number) > largest)
        refuse(context, "Para tutarı", valueText(values[0]));
    else
        sqlite3_result_double(context, std::round(*number * 10000.0) / 10000.0);
}

void toDate(sqlite3_context *context, int, sqlite3_value **values)
{
    if (sqlite3_value_type(values[0]) == SQLITE_NULL)
        return;
    const std::string_view text = valueText(values[0]);
    const auto date = parseDate(text);
    if (!date)
        return refuse(context, "Tarih", text);
    const QByteArray iso = date->toString(Qt::ISODate).toLatin1();
    sqlite3_result_text(context, iso.constData(), static_cast<int>(iso.size()),
                        SQLITE_TRANSIENT); // NOLINT: the macro casts an integer
}

void deletePattern(void *pattern)
{
    delete static_cast<LikePattern *>(pattern);
}

/// "X LIKE Y" calls like(Y, X), with ESCAPE like(Y, X, E). The pattern is the same for all rows of
/// a search and is read once.
void like(sqlite3_context *context, int count, sqlite3_value **values)
{
    for (int i = 0; i < count; ++i)
        if (sqlite3_value_type(values[i]) == SQLITE_NULL)
            return;
    auto *pattern = static_cast<LikePattern *>(sqlite3_get_auxdata(context, 0));
    std::unique_ptr<LikePattern> made;
    if (!pattern) {
        const std::string_view text = valueText(values[0]);
        std::string_view escape = count == 3 ? valueText(values[2]) : std::string_view();
        if (text.size() > kLongestPattern)
            return sqlite3_result_error(context, "Arama metni çok uzun.", -1);
        if (count == 3 && escape.empty())
            return sqlite3_result_error(context, "ESCAPE tek karakter olmalı.", -1);
        made = count == 3 ? std::make_unique<LikePattern>(text, turkish_order::next(escape))
                          : std::make_unique<LikePattern>(text);
        pattern = made.get();
    }
    sqlite3_result_int(context, pattern->matches(valueText(values[1])) ? 1 : 0);
    // An escape that changes from row to row is none that may be kept.
    if (made && count == 2)
        sqlite3_set_auxdata(context, 0, made.release(), deletePattern);
}

std::string_view bytes(int size, const void *text)
{
    return {static_cast<const char *>(text), static_cast<std::size_t>(size)};
}

int orderText(void *, int leftSize, const void *left, int rightSize, const void *right)
{
    return turkish_order::compare(bytes(leftSize, left), bytes(rightSize, right));
}

int orderDates(void *, int leftSize, const void *left, int rightSize, const void *right)
{
    return compareDates(bytes(leftSize, left), bytes(rightSize, right));
}

} // namespace

std::optional<QDate> parseDate(std::string_view text)
{
    text = trimmed(text);
    if (text.empty())
        return QDate(1900, 1, 1);
    std::array<int, 3> parts{};
    std::array<std::size_t, 3> digits{};
    parts[0] = readNumber(text, digits[0]);
    if (digits[0] == 8 && isTime(text))
        return makeDate(parts[0] / 10000, parts[0] / 100 % 100, parts[0] % 100);
    for (std::size_t i = 1; i < parts.size(); ++i) {
        if (text.empty() || std::string_view("./-").find(text.front()) == std::string_view::npos)
            return std::nullopt;
        text.remove_prefix(1);
        parts[i] = readNumber(text, digits[i]);
    }
    if (!isTime(text) || digits[1] > 2)
        return std::nullopt;
    if (digits[0] == 4 && digits[2] <= 2)
        return makeDate(parts[0], parts[1], parts[2]);
    if (digits[0] > 2 || digits[2] != 4)
        return std::nullopt;
    return makeDate(parts[2], parts[1], parts[0]);
}

int compareDates(std::string_view a, std::string_view b)
{
    const auto left = parseDate(a);
    const auto right = parseDate(b);
    if (left && right)
        return *left < *right ? -1 : static_cast<int>(*left > *right);
    if (left || right)
        return left ? -1 : 1;
    return a.compare(b);
}

void install(sqlite3 *database)
{
    // Files name the orders and functions in their tables; "innocuous" lets an untrusted file do
    // so.
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    const auto function = [&](std::string_view name, int arguments, auto *body) {
        sqlite3_create_function_v2(database, name.data(), arguments, flags, nullptr, body, nullptr,
                                   nullptr, nullptr);
    };
    sqlite3_create_collation(database, kTextOrder.data(), SQLITE_UTF8, nullptr, orderText);
    sqlite3_create_collation(database, kDateOrder.data(), SQLITE_UTF8, nullptr, orderDates);
    function(kToInteger, 1, toInteger);
    function(kToFloat, 1, toFloat);
    function(kToMoney, 1, toMoney);
    function(kToDate, 1, toDate);
    function("like", 2, like);
    function("like", 3, like);
}

} // namespace host_values
