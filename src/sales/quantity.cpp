#include "sales/quantity.h"

#include "common/amount.h"

#include <QList>

namespace quantity {

namespace {

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
    for (const QChar c : typed)
        if (c != u'.' && c != u',' && (c < u'0' || c > u'9'))
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

std::optional<double> parseCash(QStringView text)
{
    return parseUpTo(text, kMostCash);
}

bool accepts(QStringView text, QChar key)
{
    if (key == u',')
        return !text.contains(u',');
    return key == u'.' || (key >= u'0' && key <= u'9');
}

} // namespace quantity
