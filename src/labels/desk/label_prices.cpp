#include "labels/desk/label_prices.h"

#include "common/amount.h"

QString PriceNumbers::wanted(QStringView tag) const
{
    if (tag == u"1")
        return first;
    return tag == u"2" ? second : QString();
}

float discountedPrice(double price, double percent1, double percent2, double percent3)
{
    const float listed = amount::single(amount::money(price));
    const auto d1 = static_cast<float>(price * percent1 / 100);
    const auto d2 = static_cast<float>((price - d1) * percent2 / 100);
    const auto d3 = static_cast<float>((price - d1 - d2) * percent3 / 100);
    return listed - (d1 + d2 + d3);
}

QString labelPrice(RecordSet prices, QStringView wantedNumber)
{
    QString text;
    for (; !prices.eof(); prices.moveNext()) {
        if (wantedNumber.isEmpty() || prices.text(u"STKFIYNO").trimmed() != wantedNumber)
            continue;
        const float price =
            discountedPrice(prices.number(u"STKFIYTUTAR"), prices.number(u"STKFIYISKYUZ1"),
                            prices.number(u"STKFIYISKYUZ2"), prices.number(u"STKFIYISKYUZ3"));
        text = amount::money(price);
    }
    return text;
}
