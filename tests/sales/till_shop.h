#pragma once

#include "common/host_queries.h"
#include "fakes/fake_ports.h"
#include "support/print_qt.h"

/// One stock of the test shop; fields are what the host would return.
struct ShopItem
{
    QString barcode;
    QString stockCode;
    QString name = QStringLiteral("Ürün");
    QVariant price = 1.0;
    std::array<double, 3> discounts{};
    QVariant vatClass = 1;
};

/// A machine of fakes whose company connection knows a few stocks. Price number 1 is configured;
/// every stock also carries a price number 2 that must never be taken. VAT class 1 → 18, 2 → 8.
struct TillShop : FakeMachine
{
    TillShop()
    {
        db.setRow(QStringLiteral("kdv"), {{QStringLiteral("kdv"), QStringLiteral("20")}});
        switchSounds(true, true);
        db.setRow(QStringLiteral("yazici"), {{QStringLiteral("yazici1"), QStringLiteral("PDF")},
                                             {QStringLiteral("yazdirma"), QStringLiteral("1")}});
        db.setRow(QStringLiteral("stok"), {{QStringLiteral("depo"), QStringLiteral("D1")},
                                           {QStringLiteral("fiyatip"), QStringLiteral("1")},
                                           {QStringLiteral("cari"), QStringLiteral("PERAKENDE")},
                                           {QStringLiteral("carikod"), QStringLiteral("C100")},
                                           {QStringLiteral("stkfistip"), QStringLiteral("7")},
                                           {QStringLiteral("crfistip"), QStringLiteral("5")},
                                           {QStringLiteral("ftfistip"), QStringLiteral("3")}});
        printers.list = QStringList{QStringLiteral("Lazer"), QStringLiteral("PDF")};
        program.kdvtab[1] = {QString(), QStringLiteral("10"), QStringLiteral("18")};
        program.kdvtab[2] = {QString(), QStringLiteral("20"), QStringLiteral("8")};
        host.answers[QStringLiteral("select * from CARKART where CARKOD='C100'")] =
            row({QStringLiteral("CARBORCTOP"), QStringLiteral("CARBAKIYE")}, {0.0, 0.0});
        program.kdvtab[100] = {QString(), QStringLiteral("99"), QStringLiteral("1")};
    }

    void switchSounds(bool found, bool notFound)
    {
        db.setRow(QStringLiteral("ses"), {{QStringLiteral("bulses"), QString::number(found)},
                                          {QStringLiteral("bulmases"), QString::number(notFound)}});
    }

    static RecordSet row(const QStringList &columns, std::vector<QVariant> fields)
    {
        return RecordSet(columns, {std::move(fields)});
    }

    void add(const ShopItem &item)
    {
        const RecordSet barcode = row({QStringLiteral("STKBARKOD"), QStringLiteral("STKBARSTKKOD"),
                                       QStringLiteral("STKBARBIRIMNO")},
                                      {item.barcode, item.stockCode, 2});
        host.answers[host_queries::barcode(item.barcode)] = barcode;
        host.answers[host_queries::barcodesOf(item.stockCode)] = barcode;
        host.answers[host_queries::card(item.stockCode)] =
            row({QStringLiteral("STKKOD"), QStringLiteral("STKCINSI"), QStringLiteral("STKBIRIM"),
                 QStringLiteral("STKBAKIYE")},
                {item.stockCode, item.name, QStringLiteral("ADET"), 100.0});
        host.answers[host_queries::pricesOf(item.stockCode)] =
            RecordSet({QStringLiteral("STKFIYNO"), QStringLiteral("STKFIYTUTAR"),
                       QStringLiteral("STKFIYISKYUZ1"), QStringLiteral("STKFIYISKYUZ2"),
                       QStringLiteral("STKFIYISKYUZ3"), QStringLiteral("STKFIYKDVNO")},
                      {{2, 9999.0, 50.0, 50.0, 50.0, 2},
                       {1, item.price, item.discounts[0], item.discounts[1], item.discounts[2],
                        item.vatClass}});
    }

    /// The statements the host was sent that begin with this.
    QStringList sent(const QString &start) const
    {
        QStringList found;
        for (const QString &statement : host.statements)
            if (statement.startsWith(start))
                found += statement;
        return found;
    }

    /// The receipts that came out of a printer.
    std::vector<RecordedDocument> printed() const
    {
        std::vector<RecordedDocument> receipts;
        for (const RecordedDocument &document : printers.documents)
            if (document.finished)
                receipts.push_back(document);
        return receipts;
    }

    RecordingHost &host = openCompany();
};
