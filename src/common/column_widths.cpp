#include "common/column_widths.h"

#include "common/amount.h"

#include <QStringList>

namespace column_widths {

namespace {

constexpr double kLeast = 10;
constexpr double kMost = 4000;

} // namespace

QString toText(const QList<int> &widths)
{
    QStringList texts;
    for (const int width : widths)
        texts += QString::number(width);
    return texts.join(u'-');
}

QList<int> fromText(const QString &text, int columns)
{
    QList<int> widths;
    for (const QString &part : text.split(u'-')) {
        const double width = amount::parse(part).value_or(0.0);
        if (width < kLeast || width > kMost)
            return {};
        widths += qRound(width);
    }
    return widths.size() == columns ? widths : QList<int>();
}

} // namespace column_widths
