#include "labels/designer/page_values.h"

#include "common/amount.h"
#include "labels/print/print_job.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kLongest = 5000; ///< mm; the longest page there is
constexpr int kMostLabels = 1000; ///< across or down

/// Hundredths of a millimetre: half a tenth adds up over thirteen labels.
QString lengthText(double mm)
{
    return amount::plain(std::round(mm * 100) / 100);
}

double number(const QString &text)
{
    return amount::parse(text).value_or(0);
}

bool isLength(const QString &text, double least)
{
    const auto mm = amount::parse(text);
    return mm && *mm >= least && *mm <= kLongest;
}

bool isCount(const QString &text)
{
    const auto count = amount::parse(text);
    return count && *count >= 1 && *count <= kMostLabels && std::floor(*count) == *count;
}

} // namespace

void takeMeasured(Design &design, const MeasuredSheet &sheet, const QMarginsF &unprintable)
{
    LabelLayout &layout = design.layout;
    layout.left = lengthText(sheet.left - unprintable.left());
    layout.top = lengthText(sheet.top - unprintable.top());
    layout.stepX = lengthText(sheet.width + sheet.gapX);
    layout.stepY = lengthText(sheet.height + sheet.gapY);
    layout.across = QString::number(sheet.across);
    layout.down = QString::number(sheet.down);
    design.label = {sheet.width, sheet.height};
}

MeasuredSheet measuredOf(const Design &design, const QMarginsF &unprintable)
{
    const LabelLayout &layout = design.layout;
    MeasuredSheet sheet;
    sheet.left = number(layout.left) + unprintable.left();
    sheet.top = number(layout.top) + unprintable.top();
    sheet.width = design.label.isEmpty() ? number(layout.stepX) : design.label.width();
    sheet.height = design.label.isEmpty() ? number(layout.stepY) : design.label.height();
    sheet.gapX = number(layout.stepX) - sheet.width;
    sheet.gapY = number(layout.stepY) - sheet.height;
    sheet.across = amount::integer(layout.across, 0, kMostLabels);
    sheet.down = amount::integer(layout.down, 0, kMostLabels);
    return sheet;
}

QString pageProblem(const Design &design)
{
    const LabelLayout &layout = design.layout;
    if (!isLength(layout.paperWidth, 1) || !isLength(layout.paperHeight, 1))
        return u"Kâğıdın eni ve boyu 1 ile 5000 mm arasında olmalı."_s;
    if (!isLength(layout.left, -kLongest) || !isLength(layout.top, -kLongest))
        return u"Sol ve üst boşluk sayı olmalı."_s;
    if (!isCount(layout.across) || !isCount(layout.down))
        return u"Yan yana ve alt alta etiket adedi 1 ile 1000 arasında tam sayı olmalı."_s;
    const bool rows = number(layout.across) > 1;
    const bool columns = number(layout.down) > 1;
    if ((rows && !isLength(layout.stepX, 0.1)) || (columns && !isLength(layout.stepY, 0.1)))
        return u"Etiket adımı sıfırdan büyük olmalı."_s;
    const double right = number(layout.left) + number(layout.stepX) * number(layout.across);
    const double bottom = number(layout.top) + number(layout.stepY) * number(layout.down);
    constexpr double slack = 5; // the last gap lies beyond the last label
    if ((rows && right > number(layout.paperWidth) + slack) ||
        (columns && bottom > number(layout.paperHeight) + slack))
        return u"Etiketler kâğıda sığmıyor: %1 × %2 mm yer gerekiyor, kâğıt %3 × %4 mm."_s.arg(
            lengthText(right), lengthText(bottom), layout.paperWidth, layout.paperHeight);
    return {};
}

QString measureProblem(const MeasuredSheet &sheet, QSizeF paper)
{
    if (sheet.width <= 0 || sheet.height <= 0)
        return u"Etiketin eni ve boyu sıfırdan büyük olmalı."_s;
    if (sheet.left < 0 || sheet.top < 0 || sheet.gapX < 0 || sheet.gapY < 0)
        return u"Boşluklar eksi olamaz."_s;
    if (sheet.across < 1 || sheet.down < 1)
        return u"Etiket adetleri en az 1 olmalı."_s;
    const double right = sheet.left + sheet.across * sheet.width + (sheet.across - 1) * sheet.gapX;
    const double bottom = sheet.top + sheet.down * sheet.height + (sheet.down - 1) * sheet.gapY;
    constexpr double slack = 0.5; // nobody measures finer
    if (!paper.isEmpty() && (right > paper.width() + slack || bottom > paper.height() + slack))
        return u"Bu ölçülerle etiketler kâğıttan taşıyor: %1 × %2 mm."_s.arg(lengthText(right),
                                                                             lengthText(bottom));
    return {};
}

const QList<Quality> &qualities()
{
    static const QList<Quality> all = {{-2, u"Düşük"_s}, {-3, u"Orta"_s}, {-4, u"Yüksek"_s}};
    return all;
}
