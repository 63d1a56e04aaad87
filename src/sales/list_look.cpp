#include "sales/list_look.h"

#include "common/amount.h"
#include "common/code_list.h"
#include "common/windows_colour.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLeastContrast = 4.5; ///< below this, text is hard to read at a glance
constexpr double kSmallestPoints = 9.0;
constexpr double kLargestPoints = 28.0;
constexpr double kPlainPoints = 14.0;

QColor colourFrom(QStringView text, const QColor &plain)
{
    bool ok = false;
    const int number = text.trimmed().toInt(&ok);
    return ok && number >= 0 ? colourOf(number) : plain;
}

double luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

} // namespace

ListLook listLook(const SaleSettings &settings)
{
    const auto colours = QStringView(settings.listrenk).split(kCodeMark);
    ListLook look;
    look.row = colourFrom(colours.value(0), Qt::white);
    look.alternate = colourFrom(colours.value(1), look.row);
    look.text = colourFrom(settings.yzrenk, Qt::black);

    const auto worst = [&](const QColor &text) {
        return std::min(contrast(text, look.row), contrast(text, look.alternate));
    };
    if (worst(look.text) < kLeastContrast)
        look.text = worst(Qt::black) >= worst(Qt::white) ? Qt::black : Qt::white;

    if (!settings.font.isEmpty())
        look.font.setFamilies({settings.font});
    look.font.setPointSizeF(std::clamp(amount::parse(settings.size).value_or(kPlainPoints),
                                       kSmallestPoints, kLargestPoints));
    const int style = settings.bold.toInt();
    look.font.setBold(style == 1 || style == 3);
    look.font.setItalic(style == 2 || style == 3);
    return look;
}
