#include "labels/desk/count_file.h"

#include "common/amount.h"
#include "labels/desk/csv_text.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace count_file {

namespace {

/// Whole numbers, also written as "3,00" or "3.0". Nothing for "3.000": nobody knows whether three
/// or three thousand labels are meant.
std::optional<int> countOf(const QString &text)
{
    static const QRegularExpression whole(u"^(\\d+)(,0+|\\.0{1,2})?$"_s);
    const auto match = whole.match(text);
    return match.hasMatch() ? amount::labelCount(match.captured(1)) : std::nullopt;
}

bool hasDigit(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

} // namespace

Content read(const QByteArray &bytes)
{
    Content content;
    const auto lines = csv::read(csv::decode(bytes));
    for (const csv::Line &line : lines) {
        const QString &code = line.fields.first();
        const QString text = line.fields.value(1);
        const auto count = text.isEmpty() ? std::optional(1) : countOf(text);
        if (&line == &lines.front() && !count && !hasDigit(text))
            continue; // captions
        if (code.isEmpty())
            content.problems.push_back({line.number, u"kod yok"_s});
        else if (!count)
            content.problems.push_back(
                {line.number, u"%1: adet anlaşılamadı: \"%2\""_s.arg(code, text)});
        else
            content.lines.push_back({line.number, code, *count});
    }
    return content;
}

QString report(std::vector<Problem> problems)
{
    std::stable_sort(problems.begin(), problems.end(),
                     [](const Problem &a, const Problem &b) { return a.number < b.number; });
    QStringList lines;
    for (const Problem &problem : problems)
        lines += u"%1. satır: %2"_s.arg(problem.number).arg(problem.reason);
    return lines.join(u'\n');
}

} // namespace count_file
