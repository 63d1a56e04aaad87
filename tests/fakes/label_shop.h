#pragma once

#include "fakes/fake_ports.h"
#include "labels/desk/label_desk.h"

/// "barcode|code|name|unit|price|count|unit number"
inline QString stockLine(const StockRow &row)
{
    return QStringList{row.barcode,
                       row.code,
                       row.name,
                       row.unitText(),
                       row.price,
                       QString::number(row.count),
                       QString::number(row.unit)}
        .join(u'|');
}

/// A machine of fakes with a few stocks, and the label desk at work on it.
///
/// stock  first unit   second unit     barcodes               prices under 1 and 2
/// S1     ADET         KOLI            111 and 112, 2: 221    10,00 and 100,00 less 10, 10, 0
/// S2     KG           one blank       none                   none
/// S3     ADET         none            331                    1.250,50 under 1
struct LabelShop
{
    using Row = RecordSet::Row;

    FakeMachine machine;
    RecordingHost &host = machine.openCompany();
    LabelDesk desk{machine.program};
    QString status; ///< what the desk told last

    LabelShop()
    {
        using namespace Qt::StringLiterals;
        const Row s1 = {u"S1"_s, u"Süt 1 L"_s, u"ADET"_s, u"KOLI"_s};
        const Row s2 = {u"S2"_s, u"Şeker"_s, u"KG"_s, u" "_s};
        const Row s3 = {u"S3"_s, u"Çay 500 g"_s, u"ADET"_s, QVariant()};
        answer(u"select * from STKKART"_s, cards({s1, s2, s3}));
        answer(u"select * from STKKART where STKCINSI LIKE '%ü%'"_s, cards({s1}));
        answer(u"select * from STKKART where STKKOD LIKE '%S%'"_s, cards({s1, s2, s3}));
        answer(u"select * from STKKART where STKKOD='S1'"_s, cards({s1}));
        answer(u"select * from STKBARKOD where STKBARSTKKOD='S1'"_s,
               barcodes({barcode(u"111"_s, 1), barcode(u"221"_s, 2), barcode(u"112"_s, 1),
                         barcode(u""_s, 1)}));
        answer(u"select * from STKBARKOD where STKBARSTKKOD='S3'"_s,
               barcodes({{u"331"_s, u"S3"_s, 1}}));
        answer(u"select * from STKBARKOD where STKBARKOD='111'"_s,
               barcodes({barcode(u"111"_s, 1)}));
        answer(u"select * from STKBARKOD where STKBARKOD='221'"_s,
               barcodes({barcode(u"221"_s, 2)}));
        answer(u"select * from STKFIYAT where STKFIYSTKKOD='S1'"_s,
               prices({{7, 3.0, 0, 0, 0}, {1, 10.0, 0, 0, 0}, {2, 100.0, 10, 10, 0}}));
        answer(u"select * from STKFIYAT where STKFIYSTKKOD='S3'"_s, prices({{1, 1250.5, 0, 0, 0}}));
        machine.db.setRow(u"stok"_s,
                          {{u"fiyatip"_s, u"7"_s}, {u"br1fyt"_s, u"1"_s}, {u"br2fyt"_s, u"2"_s}});
        desk.loadPriceNumbers();
        QObject::connect(&desk, &LabelDesk::statusChanged,
                         [this](const QString &text) { status = text; });
    }

    /// The stock list as stockLine()s.
    QStringList stocks()
    {
        QStringList lines;
        for (const StockRow &row : desk.stocks().rows())
            lines += stockLine(row);
        return lines;
    }
    /// The queue as lines "code tag".
    QStringList queued()
    {
        QStringList lines;
        for (const QueueRow &row : desk.queue().rows())
            lines += row.code + u' ' + row.tag();
        return lines;
    }

    void answer(const QString &statement, const RecordSet &records)
    {
        host.answers.insert(statement, records);
    }

    /// `count` stocks M0, M1, … of one unit, as the answer of "list all".
    void stockUp(int count)
    {
        std::vector<Row> rows;
        rows.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i)
            rows.push_back({QStringLiteral("M%1").arg(i), QStringLiteral("Mal %1").arg(i),
                            QStringLiteral("ADET"), QString()});
        answer(QStringLiteral("select * from STKKART"), cards(rows));
    }

    static Row barcode(const QString &code, int unit) { return {code, QStringLiteral("S1"), unit}; }
    static RecordSet cards(const std::vector<Row> &rows)
    {
        return table("STKKOD STKCINSI STKBIRIM STKBIRIM2", rows);
    }
    static RecordSet barcodes(const std::vector<Row> &rows)
    {
        return table("STKBARKOD STKBARSTKKOD STKBARBRMNO", rows);
    }
    static RecordSet prices(const std::vector<Row> &rows)
    {
        return table("STKFIYNO STKFIYTUTAR STKFIYISKYUZ1 STKFIYISKYUZ2 STKFIYISKYUZ3", rows);
    }

private:
    static RecordSet table(const char *columns, const std::vector<Row> &rows)
    {
        return {QString::fromLatin1(columns).split(u' '), rows};
    }
};
