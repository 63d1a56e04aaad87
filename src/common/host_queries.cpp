#include "common/host_queries.h"

#include <QStringBuilder>

using namespace Qt::StringLiterals;

namespace host_queries {

namespace {

QString where(QStringView table, QStringView column, const QString &value)
{
    return allOf(table) % u" where "_s % column % u"='"_s % value % u'\'';
}

} // namespace

QString card(const QString &stockCode)
{
    return where(u"STKKART", u"STKKOD", stockCode);
}

QString cardsByName(const QString &text)
{
    return u"select * from STKKART where STKCINSI LIKE '%"_s + text + u"%'"_s;
}

QString cardsByCode(const QString &text)
{
    return u"select * from STKKART where STKKOD LIKE '%"_s + text + u"%'"_s;
}

QString accountsByName(const QString &text)
{
    return u"select * from CARKART where CARUNVAN LIKE '%"_s + text + u"%'"_s;
}

QString accountsByCode(const QString &text)
{
    return u"select * from CARKART where CARKOD LIKE '%"_s + text + u"%'"_s;
}

QString barcode(const QString &barcode)
{
    return where(u"STKBARKOD", u"STKBARKOD", barcode);
}

QString barcodesOf(const QString &stockCode)
{
    return where(u"STKBARKOD", u"STKBARSTKKOD", stockCode);
}

QString pricesOf(const QString &stockCode)
{
    return where(u"STKFIYAT", u"STKFIYSTKKOD", stockCode);
}

QString dayMonthYear()
{
    return u"Set DateFormat dmy"_s;
}

QString allOf(QStringView table)
{
    return u"select * from "_s % table;
}

} // namespace host_queries
