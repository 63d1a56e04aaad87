#include "fakes/invoice_shop.h"
#include "fakes/label_shop.h"
#include "labels/desk/price_change_request.h"
#include "labels/desk/typed_moment.h"
#include "support/cases.h"
#include "support/print_qt.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct InvoiceDesk : InvoiceShop
{
    QStringList listed()
    {
        QStringList all;
        for (int row = 0; row < picker.invoices().size(); ++row) {
            const InvoiceRow &invoice = picker.invoices().at(row);
            all += u"%1 %2 %3 %4"_s.arg(invoice.reference, invoice.date, invoice.document,
                                        invoice.customer);
        }
        return all;
    }

    QStringList lineTexts()
    {
        QStringList all;
        for (const InvoiceLine &line : picker.lines().lines())
            all += line.stockCode + u' ' + line.quantity;
        return all;
    }

    const QString &told() const { return machine.prompt.shown.back().text; }
};

} // namespace

TEST(InvoicePicker, ListsATypeBetweenTwoDaysBothIncluded)
{
    InvoiceDesk desk;
    desk.invoice(1, 1, QDate(2026, 2, 28));
    desk.invoice(2, 1, QDate(2026, 3, 1));
    desk.invoice(3, 3, QDate(2026, 3, 5));
    desk.invoice(4, 1, QDateTime(QDate(2026, 3, 7), QTime(23, 59, 59)));
    desk.invoice(5, 1, QDate(2026, 3, 8));
    desk.invoice(6, u"1 "_s, u"07.03.2026 00:00:00"_s); // as some drivers give them
    desk.invoice(7, 1, QVariant());
    desk.invoice(8, 1, u"bilinmiyor"_s);
    desk.invoice(9, 1, QDate(2025, 3, 5));
    desk.picker.load();
    ASSERT_EQ(desk.picker.types().size(), 2);
    EXPECT_EQ(desk.picker.types()[1].code, u"SATIŞ<1234>3"_s);

    const QAbstractItemModelTester tester(&desk.picker.invoices(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    desk.picker.listInvoices(0, QDate(2026, 3, 1), QDate(2026, 3, 7));
    EXPECT_EQ(desk.listed(),
              QStringList({u"2 01.03.2026 E2 Güneş Ltd."_s, u"4 07.03.2026 E4 Güneş Ltd."_s,
                           u"6 07.03.2026 E6 Güneş Ltd."_s}));
    EXPECT_EQ(desk.host.statements.last(), u"select * from FATFIS"_s);
    desk.picker.listInvoices(1, QDate(2026, 3, 5), QDate(2026, 3, 5));
    EXPECT_EQ(desk.listed(), QStringList(u"3 05.03.2026 E3 Güneş Ltd."_s));
}

TEST(InvoicePicker, WithoutATypeOrWithTurnedDatesNothingIsAsked)
{
    InvoiceDesk desk;
    desk.picker.load();
    desk.host.statements.clear();
    const QDate day(2026, 3, 1);
    desk.picker.listInvoices(-1, day, day);
    EXPECT_EQ(desk.told(), u"Fatura Tipi Seçimi Yapmanız Gerekiyor..."_s);
    desk.picker.listInvoices(0, day, day.addDays(-1));
    EXPECT_EQ(desk.machine.prompt.shown.size(), 2U);
    EXPECT_TRUE(desk.host.statements.isEmpty());
}

TEST(InvoicePicker, LoadsTheLinesOfCheckedInvoicesInListOrder)
{
    InvoiceDesk desk;
    for (const int reference : {7, 8, 9})
        desk.invoice(reference, 1, QDate(2026, 3, 1));
    desk.lines(u"'7'"_s, {{u"S1"_s, 3.0}, {u"S2"_s, 2.5}});
    desk.lines(u"'9'"_s, {{u"S1"_s, 4}});
    desk.lines(u"'9' and FATHARACIKLAMA1='T-1'"_s, {{u"S3"_s, 1}});
    desk.picker.load();
    desk.picker.listInvoices(0, QDate(2026, 3, 1), QDate(2026, 3, 1));
    desk.host.statements.clear();

    desk.picker.loadLines({});
    EXPECT_TRUE(desk.host.statements.isEmpty()); // none is checked yet
    desk.picker.invoices().toggle(0);
    desk.picker.invoices().toggle(2);
    desk.picker.loadLines({});
    EXPECT_EQ(desk.lineTexts(), QStringList({u"S1 3"_s, u"S2 2,5"_s, u"S1 4"_s}));
    desk.picker.loadLines({true, u"T-1"_s});
    EXPECT_EQ(desk.lineTexts(), QStringList(u"S3 1"_s));
    desk.picker.invoices().checkAll(true);
    desk.picker.invoices().toggle(0);
    desk.picker.loadLines({true, {}});
    EXPECT_TRUE(desk.lineTexts().isEmpty());
    const QString all = u"select * from FATHAR where FATHARREFNO="_s;
    EXPECT_EQ(desk.host.statements,
              QStringList({all + u"'7'"_s, all + u"'9'"_s, all + u"'7' and FATHARACIKLAMA1='T-1'"_s,
                           all + u"'9' and FATHARACIKLAMA1='T-1'"_s,
                           all + u"'8' and FATHARACIKLAMA1=''"_s,
                           all + u"'9' and FATHARACIKLAMA1=''"_s}));
}

TEST(InvoicePicker, AFailureIsToldAndTheListsStay)
{
    InvoiceDesk desk;
    desk.invoice(7, 1, QDate(2026, 3, 1));
    desk.picker.load();
    desk.picker.listInvoices(0, QDate(2026, 3, 1), QDate(2026, 3, 1));
    desk.picker.invoices().toggle(0);
    desk.host.failOn = [](const QString &) { return HostError::kConnectionLost; };
    desk.picker.listInvoices(0, QDate(2026, 3, 1), QDate(2026, 3, 1));
    EXPECT_EQ(desk.picker.invoices().checkedReferences(), QStringList(u"7"_s));
    desk.picker.loadLines({});
    desk.picker.fatipyukle();
    desk.machine.keys.writable = false;
    desk.picker.saveTracking({});
    EXPECT_EQ(desk.machine.prompt.shown.size(), 4U);
    EXPECT_FALSE(desk.picker.isBusy());
}

TEST(LabelsFor, QuantitiesBecomeCountsOfWholeLabels)
{
    for (const Case &c : cases(u"label_counts"_s)) { // quantity, labels, whether it is a count
        EXPECT_EQ(labelsFor(c[0]), c[1].toInt()) << c;
        EXPECT_EQ(isLabelCount(c[0]), c[2] == u"count") << c;
    }
}

TEST(LabelDeskDocuments, EveryLineAddsItsStockWithItsOwnCount)
{
    LabelShop shop;
    shop.desk.loader().listele();
    shop.host.statements.clear();
    shop.answer(u"select * from STKKART where STKKOD='S3'"_s,
                LabelShop::cards({{u"S3"_s, u"Çay 500 g"_s, u"ADET"_s, QVariant()}}));
    shop.desk.loader().listLines(
        {{u"S1"_s, u"3"_s}, {u"S3"_s, u"2,5"_s}, {u"S1"_s, u"4"_s}, {u"YOK"_s, u"1"_s}});

    EXPECT_EQ(shop.stocks(), QStringList({u"112|S1|Süt 1 L|ADET (BIRIM1)|10,00|3|1"_s,
                                          u"331|S3|Çay 500 g|ADET (BIRIM1)|1.250,50|3|1"_s,
                                          u"112|S1|Süt 1 L|ADET (BIRIM1)|10,00|4|1"_s}));
    EXPECT_TRUE(shop.status.startsWith(u"3 satır listelendi. 1 fatura satırının"_s));
    EXPECT_TRUE(shop.status.contains(u"yukarı yuvarlandı"_s));
    EXPECT_EQ(shop.host.statements.mid(0, 4),
              QStringList({u"select * from STKKART where STKKOD='S1'"_s,
                           u"select * from STKBARKOD where STKBARSTKKOD='S1'"_s,
                           u"select * from STKFIYAT where STKFIYSTKKOD='S1'"_s,
                           u"select * from STKKART where STKKOD='S3'"_s}));
    EXPECT_EQ(shop.host.statements.size(), 10);

    shop.desk.loader().setUnits(UnitChoice::both);
    shop.desk.loader().fatekle(u"S1"_s, u"6"_s);
    ASSERT_EQ(shop.desk.stocks().size(), 5);
    EXPECT_EQ(shop.desk.stocks().at(4).unitText(), u"KOLI (BIRIM2)"_s);
    EXPECT_EQ(shop.desk.stocks().at(4).count, 6);
    shop.desk.ektm();
    EXPECT_EQ(shop.desk.queue().total(), 3 + 3 + 4 + 6 + 6);
}

TEST(TypedMoment, ReadsWhatPeopleType)
{
    for (const Case &c : cases(u"typed_moments"_s)) {
        const bool isDate = c[0] == u"date";
        const auto date = typed_moment::date(c[1], QDate(2026, 3, 7));
        const auto time = typed_moment::time(c[1]);
        const QString read = isDate ? date.value_or(QDate()).toString(Qt::ISODate)
                                    : time.value_or(QTime()).toString();
        EXPECT_EQ(read, c[2]) << c;
    }
}

TEST(PriceChangeRequest, TheStartMinuteBelongsToTheRange)
{
    FakeMachine machine; // today is 07.03.2026
    PriceChangeRequest request(machine.program);
    const ChangeRange usual = {QDate(2026, 3, 1), QDate(2026, 3, 31), QTime(0, 0), QTime(23, 59)};
    EXPECT_EQ(request.usualRange(), usual);
    machine.clock.moment = QDateTime(QDate(2028, 2, 29), QTime(12, 0));
    EXPECT_EQ(request.usualRange().to, QDate(2028, 2, 29));

    QStringList asked;
    QObject::connect(&request, &PriceChangeRequest::requested,
                     [&](const QString &fromDate, const QString &toDate, const QString &fromTime,
                         const QString &toTime) {
                         asked = {fromDate, toDate, fromTime, toTime};
                     });
    const struct
    {
        QTime start;
        QString from;
    } cases[] = {
        {QTime(0, 0), u"00:00:00"_s},
        {QTime(0, 1), u"00:00:00"_s},
        {QTime(8, 30), u"08:29:00"_s},
        {QTime(9, 0), u"08:59:00"_s},
    };
    for (const auto &c : cases) {
        request.send({QDate(2026, 3, 1), QDate(2026, 3, 9), c.start, QTime(12, 0)});
        EXPECT_EQ(asked, QStringList({u"01.03.2026"_s, u"09.03.2026"_s, c.from, u"12:00:00"_s}));
    }
    asked.clear();
    request.send({QDate(2026, 3, 2), QDate(2026, 3, 1), QTime(0, 0), QTime(1, 0)});
    request.send({QDate(2026, 3, 1), QDate(2026, 3, 1), QTime(2, 0), QTime(1, 0)});
    request.send({QDate(), QDate(2026, 3, 1), QTime(0, 0), QTime(1, 0)});
    request.send({QDate(2026, 3, 1), QDate(2026, 3, 1), QTime(), QTime(1, 0)});
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_EQ(machine.prompt.shown.size(), 4U);
}
