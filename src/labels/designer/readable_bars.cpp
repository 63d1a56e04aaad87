#include "labels/designer/readable_bars.h"

#include "common/amount.h"
#include "labels/designer/geometry.h"
#include "labels/print/ean.h"
#include "labels/print/scannability.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

BarSymbol symbolOf(const QString &number)
{
    const auto symbol = ean::encode(ean::bySize(number, ean::Symbology::ean13), number);
    return symbol ? *symbol : *ean::encode(ean::Symbology::ean13, u"8690000000012"_s);
}

/// Rounded up: a tenth less, and the bars would be one dot narrower.
QSizeF tenthsUp(QSizeF size)
{
    const auto up = [](double mm) { return static_cast<double>(tenth(mm + 0.049)); };
    return {up(size.width()), up(size.height())};
}

QSizeF leastSize(const BarSymbol &symbol, const BarcodeElement &element, double dpi,
                 QSizeF atLeast = {})
{
    return tenthsUp(smallestBox(symbol, element.font, dpi, atLeast));
}

} // namespace

LabelBox readableBox(const BarcodeElement &element, const QString &number, double dpi, QSizeF label)
{
    const BarSymbol symbol = symbolOf(number);
    QRectF box = rectangle(element.box);
    QSizeF size = leastSize(symbol, element, dpi, box.size());
    if (size.height() > label.height() || size.width() > label.width())
        size = leastSize(symbol, element, dpi);
    box.setSize(size);
    box.moveLeft(std::max(std::min(box.left(), label.width() - size.width()), 0.0));
    box.moveTop(std::max(std::min(box.top(), label.height() - size.height()), 0.0));
    return labelBox(box);
}

QString smallestSizes(const BarcodeElement &element, const QString &number)
{
    const BarSymbol symbol = symbolOf(number);
    QStringList sizes;
    for (const double dpi : kUsualResolutions) {
        const QSizeF size = leastSize(symbol, element, dpi);
        sizes += u"%1 nokta/inç: %2 × %3 mm"_s.arg(
            QString::number(dpi), amount::length(size.width()), amount::length(size.height()));
    }
    return u"Okunacak en küçük boy (%1)\n%2"_s.arg(symbol.name, sizes.join(u'\n'));
}
