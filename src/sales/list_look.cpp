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

QColor colourFrom(int number, const QColor &plain)
{
    return number >= 0 ? colourOf(number) : plain;
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

ListLook listLook(const Settings &settings)
{
    const Settings::Liste &list = settings.liste;
    ListLook look;
    look.row = colourFrom(list.listrenk.row, Qt::white);
    look.alternate = colourFrom(list.listrenk.alternate, look.row);
    look.text = colourFrom(list.yzrenk, Qt::black);

    const auto worst = [&](const QColor &text) {
        return std::min(contrast(text, look.row), contrast(text, look.alternate));
    };
    if (worst(look.text) < kLeastContrast)
        look.text = worst(Qt::black) >= worst(Qt::white) ? Qt::black : Qt::white;

    if (!list.font.isEmpty())
        look.font.setFamilies({list.font});
    look.font.setPointSizeF(std::clamp(amount::parse(list.size).value_or(kPlainPoints),
                                       kSmallestPoints, kLargestPoints));
    const int style = list.bold;
    look.font.setBold(style == 1 || style == 3);
    look.font.setItalic(style == 2 || style == 3);
    return look;
}
