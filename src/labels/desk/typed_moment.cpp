#include "labels/desk/typed_moment.h"

#include "common/digits.h"

#include <QList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace typed_moment {

namespace {

/// The numbers of a text and how many digits each was written with; none when anything else but
/// separators stands in it.
struct Part
{
    int value = 0;
    qsizetype digits = 0;
};

QList<Part> partsOf(QStringView text)
{
    QList<Part> parts;
    bool within = false;
    for (const QChar c : text.trimmed()) {
        const bool digit = isDigit(c);
        if (!digit && !QStringView(u".,/-: ").contains(c))
            return {};
        if (digit && !within)
            parts.push_back({});
        within = digit;
        if (!digit)
            continue;
        if (++parts.last().digits > 8)
            return {};
        parts.last().value = parts.last().value * 10 + c.digitValue();
    }
    return parts;
}

/// Digits without separators, cut into pieces of these lengths.
QList<Part> cut(int digits, std::initializer_list<int> lengths)
{
    QList<Part> parts;
    for (auto length = std::rbegin(lengths); length != std::rend(lengths); ++length) {
        int unit = 1;
        for (int i = 0; i < *length; ++i)
            unit *= 10;
        parts.prepend({digits % unit, *length});
        digits /= unit;
    }
    return parts;
}

int fullYear(const Part &year)
{
    return year.digits <= 2 ? 2000 + year.value : year.value;
}

} // namespace

std::optional<QDate> date(QStringView text, QDate today)
{
    QList<Part> parts = partsOf(text);
    if (parts.size() == 1) {
        const Part all = parts.first();
        if (all.digits == 8)
            parts = cut(all.value, {2, 2, 4});
        else if (all.digits == 6)
            parts = cut(all.value, {2, 2, 2});
        else if (all.digits == 4)
            parts = cut(all.value, {2, 2});
    }
    if (parts.size() == 3 && parts.first().digits == 4)
        std::reverse(parts.begin(), parts.end());
    if (parts.isEmpty() || parts.size() > 3)
        return std::nullopt;
    const QDate date(parts.size() > 2 ? fullYear(parts.at(2)) : today.year(),
                     parts.size() > 1 ? parts.at(1).value : today.month(), parts.at(0).value);
    // The server's dates begin here.
    return date.isValid() && date.year() >= 1753 ? std::optional(date) : std::nullopt;
}

std::optional<QTime> time(QStringView text)
{
    QList<Part> parts = partsOf(text);
    if (parts.size() == 1 && parts.first().digits > 2)
        parts = parts.first().digits <= 4 ? cut(parts.first().value, {2, 2}) : QList<Part>();
    if (parts.isEmpty() || parts.size() > 3)
        return std::nullopt;
    const QTime time(parts.at(0).value, parts.size() > 1 ? parts.at(1).value : 0,
                     parts.size() > 2 ? parts.at(2).value : 0);
    return time.isValid() ? std::optional(time) : std::nullopt;
}

QString text(QDate date)
{
    return date.toString(u"dd.MM.yyyy"_s);
}

QString text(QTime time)
{
    return time.toString(time.second() == 0 ? u"HH:mm"_s : u"HH:mm:ss"_s);
}

} // namespace typed_moment
