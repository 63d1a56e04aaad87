#include "labels/desk/column_widths.h"

#include <QStringList>

namespace column_widths {

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
        bool ok = false;
        const int width = part.toInt(&ok);
        if (!ok || width < 10 || width > 4000)
            return {};
        widths += width;
    }
    return widths.size() == columns ? widths : QList<int>();
}

} // namespace column_widths
