#pragma once

#include <QString>

/// Statements the till reads the host with. Values are pasted as they are; other programs of the
/// shop rely on the exact texts.
namespace queries {

inline QString barcodeRow(const QString &barcode)
{
    return QStringLiteral("select * from STKBARKOD where STKBARKOD='") + barcode + u'\'';
}

inline QString barcodesOfStock(const QString &stockCode)
{
    return QStringLiteral("select * from STKBARKOD where STKBARSTKKOD='") + stockCode + u'\'';
}

inline QString stockCard(const QString &stockCode)
{
    return QStringLiteral("select * from STKKART where STKKOD='") + stockCode + u'\'';
}

inline QString pricesOfStock(const QString &stockCode)
{
    return QStringLiteral("select * from STKFIYAT where STKFIYSTKKOD='") + stockCode + u'\'';
}

inline QString cashiers()
{
    return QStringLiteral("select * from PERSONEL");
}

} // namespace queries
