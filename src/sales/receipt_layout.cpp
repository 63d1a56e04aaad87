#include "sales/receipt_layout.h"

#include "common/amount.h"
#include "common/turkish.h"

#include <QStringBuilder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kFieldSeparator = u"<>";
const QString kCountMarker = u"<*say*>"_s;
const QString kLineMarker = u"<\\?\\>"_s;
constexpr double kSmallestPoints = 4.0;
constexpr double kLargestPoints = 72.0;
constexpr double kPlainPaper = 80.0; ///< mm
constexpr double kNarrowestPaper = 20.0;
constexpr double kWidestPaper = 500.0;

QString cleanLine(QString piece)
{
    return piece.remove(kCountMarker).remove(u'\r').remove(u'\n');
}

} // namespace

ReceiptStyle styleOf(QStringView options)
{
    const auto fields = options.split(kFieldSeparator);
    const auto field = [&](qsizetype i) {
        return i < fields.size() ? fields.at(i).trimmed() : QStringView();
    };
    ReceiptStyle style;
    style.carried = field(0).toString();
    style.font = field(1).toString();
    if (const auto points = amount::parse(field(2)))
        style.points = std::clamp(*points, kSmallestPoints, kLargestPoints);
    style.bold = turkish::truth(field(3));
    return style;
}

QString optionString(const ReceiptStyle &style)
{
    return style.carried % kFieldSeparator % style.font % kFieldSeparator %
           amount::points(style.points) % kFieldSeparator % turkish::truthText(style.bold);
}

QStringList printedLines(const QString &text)
{
    if (text.isEmpty())
        return {};
    const qsizetype count = text.count(kCountMarker) + 1;
    QStringList lines = text.split(kLineMarker).mid(0, count);
    for (QString &line : lines)
        line = cleanLine(line);
    return lines;
}

QString editableText(const QString &text)
{
    QStringList lines = text.split(kLineMarker);
    for (QString &line : lines)
        line = cleanLine(line);
    return lines.join(u'\n');
}

QString blockText(const QString &editable)
{
    return editable.split(u'\n').join(kCountMarker + kLineMarker);
}

double ReceiptLayout::paperWidth() const
{
    return widths[6] > 0.0 ? std::clamp(widths[6], kNarrowestPaper, kWidestPaper) : kPlainPaper;
}
