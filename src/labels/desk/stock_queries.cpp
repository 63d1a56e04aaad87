#include "labels/desk/stock_queries.h"

#include "common/host_queries.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace stock_queries {

QString all()
{
    return host_queries::allOf(u"STKKART");
}

QString changed(const QString &fromDate, const QString &toDate, const QString &fromTime,
                const QString &toTime)
{
    return u"select * from STKKART where (STKSYFTARIHI between '"_s + fromDate + u"' and '"_s +
           toDate + u"') and (STKSYFSAATI>='"_s + fromTime + u"' and STKSYFSAATI<='"_s + toTime +
           u"')"_s;
}

QString insertBarcode(const QString &barcode, const QString &stockCode, const QString &unitNumber,
                      const QString &type, const QString &priceNumber)
{
    const QStringList values = {barcode, stockCode, unitNumber, type, priceNumber, u"1"_s};
    return u"INSERT INTO STKBARKOD (STKBARKOD,STKBARSTKKOD,STKBARBRMNO,STKBARTIP,STKBARFIYTIP,"
           "STKBARITEMNO) values ('"_s +
           values.join(u"','"_s) + u"')"_s;
}

} // namespace stock_queries
