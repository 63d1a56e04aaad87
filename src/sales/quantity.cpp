#include "sales/quantity.h"

#include "common/amount.h"
#include "common/digits.h"

#include <QList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quantity {

namespace {

bool isFigure(QChar c)
{
    return c == u'.' || c == u',' || isDigit(c);
}

/// Digits in groups of three after the first point, and no point after the comma.
bool pointsGroup(QStringView text)
{
    const QStringView whole = text.first(text.contains(u',') ? text.indexOf(u',') : text.size());
    const QList<QStringView> groups = whole.split(u'.');
    if (groups.size() == 1)
        return !text.contains(u'.');
    if (groups.first().isEmpty() || groups.first().size() > 3)
        return false;
    for (qsizetype i = 1; i < groups.size(); ++i)
        if (groups.at(i).size() != 3)
            return false;
    return text.count(u'.') == groups.size() - 1;
}

std::optional<double> parseUpTo(QStringView text, double most)
{
    const QStringView typed = text.trimmed();
    if (!std::all_of(typed.begin(), typed.end(), isFigure))
        return {};
    const auto value = amount::parse(typed);
    if (!value || !pointsGroup(typed) || *value > most)
        return {};
    return value;
}

} // namespace

std::optional<double> parse(QStringView text)
{
    const auto value = parseUpTo(text, kMost);
    return value && *value > 0.0 ? value : std::nullopt;
}

std::optional<Entry> parseEntry(const QString &text)
{
    const qsizetype star = text.indexOf(u'*');
    const QStringView typed = QStringView(text).first(std::max<qsizetype>(star, 0)).trimmed();
    if (typed.isEmpty() || !std::all_of(typed.begin(), typed.end(), isFigure))
        return Entry{text};
    const auto quantity = parse(typed);
    const QString code = text.sliced(star + 1).trimmed();
    if (!quantity || code.isEmpty())
        return {};
    return Entry{code, *quantity};
}

QString refusal()
{
    return u"Miktar 0’dan büyük, en çok %1 olmalı; ondalık ayırıcı virgüldür."_s.arg(
        amount::money(kMost));
}

QString tooMany()
{
    return u"Toplam miktar en çok %1 olabilir."_s.arg(amount::money(kMost));
}

std::optional<double> parseCash(QStringView text)
{
    return parseUpTo(text, kMostCash);
}

bool accepts(QStringView text, QChar key)
{
    if (key == u',')
        return !text.contains(u',');
    return isFigure(key);
}

} // namespace quantity
