#include "labels/desk/label_prices.h"

#include "common/amount.h"
#include "common/discounts.h"

QString PriceNumbers::wanted(int unit) const
{
    if (unit == 1)
        return first;
    return unit == 2 ? second : QString();
}

QString labelPrice(RecordSet prices, QStringView wantedNumber)
{
    QString text;
    for (; !prices.eof(); prices.moveNext()) {
        if (wantedNumber.isEmpty() || prices.text(u"STKFIYNO").trimmed() != wantedNumber)
            continue;
        text = amount::money(
            discounts::shelfPrice(prices.number(u"STKFIYTUTAR"),
                                  {prices.number(u"STKFIYISKYUZ1"), prices.number(u"STKFIYISKYUZ2"),
                                   prices.number(u"STKFIYISKYUZ3")}));
    }
    return text;
}
