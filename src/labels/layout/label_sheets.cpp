#include "labels/layout/label_sheets.h"

#include "common/amount.h"

#include <QStringList>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kFields = 11;
constexpr int kMostLabels = 1000; ///< across or down
constexpr double kOvershoot = 1;  ///< mm by which makers' figures may reach over the paper

double millimetres(const QString &field)
{
    return static_cast<double>(layoutLength(field.trimmed()));
}

bool isPossible(const LabelSheet &sheet)
{
    const auto isLength = [](double mm) {
        return mm > 0 && mm <= static_cast<double>(kLongestLength);
    };
    const auto isCount = [](int count) { return count >= 1 && count <= kMostLabels; };
    if (!isLength(sheet.paper.width()) || !isLength(sheet.paper.height()) ||
        !isLength(sheet.label.width()) || !isLength(sheet.label.height()) ||
        !isCount(sheet.across) || !isCount(sheet.down) || sheet.first.x() < 0 ||
        sheet.first.y() < 0 || sheet.step.x() < 0 || sheet.step.y() < 0)
        return false;
    const double right =
        sheet.first.x() + (sheet.across - 1) * sheet.step.x() + sheet.label.width();
    const double bottom =
        sheet.first.y() + (sheet.down - 1) * sheet.step.y() + sheet.label.height();
    return right <= sheet.paper.width() + kOvershoot && bottom <= sheet.paper.height() + kOvershoot;
}

} // namespace

std::vector<LabelSheet> readSheets(const QByteArray &text)
{
    std::vector<LabelSheet> sheets;
    for (const QString &line : QString::fromUtf8(text).split(u'\n')) {
        const QStringList fields = line.trimmed().split(u';');
        if (line.startsWith(u'#') || fields.size() < kFields)
            continue;
        const LabelSheet sheet{fields.sliced(kFields - 1).join(u';').trimmed(),
                               {millimetres(fields[0]), millimetres(fields[1])},
                               amount::integer(fields[2]),
                               amount::integer(fields[3]),
                               {millimetres(fields[4]), millimetres(fields[5])},
                               {millimetres(fields[6]), millimetres(fields[7])},
                               {millimetres(fields[8]), millimetres(fields[9])}};
        if (!sheet.name.isEmpty() && isPossible(sheet))
            sheets.push_back(sheet);
    }
    return sheets;
}

QString sheetFile(const QString &directory)
{
    return layoutFolder(directory) + u"/kagitlar.csv"_s;
}

void useSheet(LabelLayout *layout, const LabelSheet &sheet, QPointF reach)
{
    const auto text = [](double mm) { return amount::plain(std::round(mm * 1000) / 1000); };
    layout->paperWidth = text(sheet.paper.width());
    layout->paperHeight = text(sheet.paper.height());
    layout->left = text(sheet.first.x() - reach.x());
    layout->top = text(sheet.first.y() - reach.y());
    layout->stepX = text(sheet.step.x());
    layout->stepY = text(sheet.step.y());
    layout->across = QString::number(sheet.across);
    layout->down = QString::number(sheet.down);
}
