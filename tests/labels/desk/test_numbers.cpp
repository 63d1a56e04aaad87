#include "fakes/label_shop.h"
#include "labels/desk/number_generation.h"
#include "support/cases.h"
#include "support/print_qt.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using ean::Symbology;

namespace {

/// `stocks` stocks M0, M1, … without a barcode, listed and gathered; numbers in `taken` are in the
/// ledger already.
struct NumberShop : LabelShop
{
    explicit NumberShop(int stocks = 4)
    {
        stockUp(stocks);
        desk.loader().listele();
        desk.ekbartum();
        host.statements.clear();
    }

    void take(const QString &barcode)
    {
        answer(u"select * from STKBARKOD where STKBARKOD='%1'"_s.arg(barcode),
               barcodes({{barcode, u"X"_s, 1}}));
    }
    /// "barcode state" of every queue row.
    QStringList queue()
    {
        QStringList all;
        for (const QueueRow &row : desk.queue().rows())
            all += row.barcode + u' ' + row.tag().section(u"<123>"_s, 1);
        return all;
    }
    QString remembered(const QString &key)
    {
        return machine.keys.values.value(u"/shop/Ayar.zev|barno|"_s + key);
    }
    static QString insert(const QString &barcode, const QString &code, const QString &type)
    {
        return u"INSERT INTO STKBARKOD (STKBARKOD,STKBARSTKKOD,STKBARBRMNO,STKBARTIP,STKBARFIYTIP,"
               "STKBARITEMNO) values ('%1','%2','1','%3','1','1')"_s.arg(barcode, code, type);
    }
    std::function<std::optional<int>(const QString &)> failAt(const QString &words, int time)
    {
        return [words, time, seen = 0](const QString &statement) mutable -> std::optional<int> {
            if (statement.contains(words) && ++seen == time)
                return HostError::kDuplicate;
            return {};
        };
    }
    NumberDesk &numbers = desk.numbers();
};

} // namespace

TEST(NumberGeneration, BasesHintsAndKeysGoByTheSymbology)
{
    for (const Case &c : cases(u"numbering"_s)) {
        const Symbology symbology = c[1] == u"8" ? Symbology::ean8 : Symbology::ean13;
        if (c[0] == u"base") {
            const auto base = numbering::readBase(symbology, c[2]);
            EXPECT_EQ(base ? QString::number(*base) : QString(), c[3]) << c;
            EXPECT_EQ(base ? numbering::complete(symbology, *base) : QString(), c[4]) << c;
            EXPECT_EQ(base ? ean::completed(symbology, c[4]) : QString(), c[4]) << c;
        } else if (c[0] == u"whose") {
            const QStringList scales = c.value(4).split(u',', Qt::SkipEmptyParts);
            const QString text =
                c[2] == u"suggested" ? numbering::suggestedBase(symbology, scales) : c.value(2);
            const QString said = numbering::rangeHint(symbology, text, scales);
            EXPECT_TRUE(c[3].isEmpty() ? said.isEmpty() : said.contains(c[3])) << c;
        } else {
            EXPECT_EQ(numbering::takesKey(symbology, c[2], c[3]), c[4] == u"taken") << c;
        }
    }
}

TEST(NumberDesk, GathersTheRowsWithoutABarcode)
{
    LabelShop shop;
    shop.answer(u"select * from STKBARKOD where STKBARSTKKOD='S1'"_s,
                LabelShop::barcodes({LabelShop::barcode(u"111"_s, 1)}));
    shop.desk.loader().setUnits(UnitChoice::both);
    shop.desk.loader().listele();
    const struct
    {
        void (LabelDesk::*command)();
        QStringList rows;
    } cases[] = {
        {&LabelDesk::ekbar1, {u"S2 1<123>0"_s}},
        {&LabelDesk::ekbar2, {u"S1 2<123>0"_s}},
        {&LabelDesk::ekbartum, {u"S1 2<123>0"_s, u"S2 1<123>0"_s}},
    };
    for (const auto &c : cases) {
        shop.desk.clearQueue();
        shop.desk.ektm();
        (shop.desk.*c.command)();
        EXPECT_EQ(shop.queued(), c.rows);
        EXPECT_TRUE(shop.desk.numbers().isOn());
    }
    // Until the numbers are saved rows are neither added nor printed; emptying the queue ends it.
    const QSignalSpy print(&shop.desk.printing(), &LabelPrinting::printWanted);
    shop.desk.ektm();
    shop.desk.addRows({0});
    shop.desk.yzdtum();
    EXPECT_EQ(shop.desk.queue().size(), 2);
    shop.desk.clearQueue();
    EXPECT_FALSE(shop.desk.numbers().isOn());
    shop.desk.ektm();
    shop.desk.yzdtum();
    EXPECT_EQ(print.count(), 1);
}

TEST(NumberDesk, AStockWhoseBarcodeWasNotReadGetsNoNumber)
{
    LabelShop shop;
    shop.host.failOn = [&](const QString &statement) -> std::optional<int> {
        if (statement.contains(u"STKBARSTKKOD='S2'"_s))
            shop.desk.stop();
        return {};
    };
    shop.desk.loader().listele();
    ASSERT_EQ(shop.desk.stocks().size(), 3);
    shop.desk.ekbartum();
    EXPECT_EQ(shop.machine.prompt.shown.size(), 1U);
    EXPECT_FALSE(shop.desk.numbers().isOn());
    shop.host.failOn = nullptr;
    shop.desk.loader().listele();
    shop.desk.ekbartum();
    EXPECT_EQ(shop.desk.queue().size(), 1);
}

TEST(NumberDesk, TakenNumbersAreSkippedAndCounted)
{
    NumberShop shop;
    shop.take(u"00000123"_s);
    shop.take(u"00000130"_s);
    const QSignalSpy bases(&shop.numbers, &NumberDesk::baseChanged);
    shop.numbers.choose(Symbology::ean8);
    EXPECT_EQ(shop.numbers.nextBase(), u"2000000"_s);
    shop.numbers.generate(u"10"_s);
    EXPECT_EQ(shop.queue(), QStringList({u"00000116 a1"_s, u"00000147 a1"_s, u"00000154 a1"_s,
                                         u"00000161 a1"_s}));
    QStringList asked;
    for (const QString &statement : shop.host.statements)
        asked += statement.section(u'\'', 1, 1);
    EXPECT_EQ(asked, QStringList({u"00000116"_s, u"00000123"_s, u"00000130"_s, u"00000147"_s,
                                  u"00000154"_s, u"00000161"_s}));
    EXPECT_EQ(shop.remembered(u"ean8"_s), u"16"_s);
    ASSERT_EQ(bases.count(), 1);
    EXPECT_EQ(bases[0][0].toString(), u"16"_s);
    EXPECT_EQ(shop.numbers.nextBase(), u"16"_s);

    // Numbered rows consume no further number.
    shop.host.statements.clear();
    shop.numbers.generate(u"16"_s);
    EXPECT_TRUE(shop.host.statements.isEmpty());
    EXPECT_EQ(shop.remembered(u"ean8"_s), u"16"_s);
    shop.numbers.choose(Symbology::ean13);
    EXPECT_EQ(shop.numbers.nextBase(), u"200000000000"_s);
}

TEST(NumberDesk, ABadBaseIsToldAndWritesNothing)
{
    for (const QString &bad : {u""_s, u"  "_s, u"12a"_s, u"1234567890123"_s, u"999999999996"_s}) {
        NumberShop shop;
        shop.numbers.generate(bad);
        EXPECT_EQ(shop.machine.prompt.shown.size(), 1U) << bad.toStdString();
        EXPECT_TRUE(shop.host.statements.isEmpty());
        EXPECT_TRUE(shop.machine.keys.values.isEmpty());
        EXPECT_EQ(shop.numbers.waiting(), 4);
    }
    // Enough numbers, but taken ones among them: they run out on the way.
    NumberShop shop;
    shop.numbers.choose(Symbology::ean8);
    shop.take(numbering::complete(Symbology::ean8, 9'999'997));
    shop.numbers.generate(u"9999995"_s);
    EXPECT_EQ(shop.machine.prompt.shown.size(), 1U);
    EXPECT_EQ(shop.numbers.waiting(), 4);
    EXPECT_EQ(shop.numbers.unsaved(), 0);
    EXPECT_TRUE(shop.machine.keys.values.isEmpty());
    shop.numbers.generate(u"9999994"_s);
    EXPECT_EQ(shop.numbers.unsaved(), 4);
    EXPECT_EQ(shop.remembered(u"ean8"_s), u"9999999"_s);
}

TEST(NumberDesk, AFailedQuestionKeepsWhatWasFoundAndGoesOnBehindIt)
{
    // Going on from the number used last, and from the same base, although the ledger does not
    // know the numbers found yet.
    for (const bool fromTheLast : {true, false})
        for (int failing = 1; failing <= 4; ++failing) {
            NumberShop shop;
            shop.numbers.choose(Symbology::ean8);
            shop.host.failOn = [&](const QString &statement) {
                return statement.contains(u"0000%1"_s.arg(10 + failing))
                           ? std::optional(HostError::kType)
                           : std::nullopt;
            };
            shop.numbers.generate(u"10"_s);
            EXPECT_EQ(shop.machine.prompt.shown.size(), 1U);
            EXPECT_EQ(shop.numbers.unsaved(), failing - 1);
            EXPECT_FALSE(shop.desk.isBusy());
            shop.host.failOn = nullptr;
            shop.numbers.generate(fromTheLast ? shop.numbers.nextBase() : u"10"_s);
            EXPECT_EQ(shop.queue(), QStringList({u"00000116 a1"_s, u"00000123 a1"_s,
                                                 u"00000130 a1"_s, u"00000147 a1"_s}));
            EXPECT_EQ(shop.remembered(u"ean8"_s), u"14"_s);
        }
}

TEST(NumberDesk, SavingInterruptedAtAnyRowGoesOnFromThere)
{
    for (int failing = 1; failing <= 4; ++failing) {
        NumberShop shop;
        shop.numbers.choose(Symbology::ean8);
        shop.numbers.generate(u"10"_s);
        shop.host.statements.clear();
        shop.host.failOn = shop.failAt(u"INSERT"_s, failing);
        int selected = -1;
        QObject::connect(&shop.numbers, &NumberDesk::rowRefused, [&](int row) { selected = row; });
        shop.numbers.brgnc();
        ASSERT_EQ(shop.machine.prompt.shown.size(), 1U);
        EXPECT_EQ(shop.machine.prompt.shown[0].caption, u"UYARI"_s);
        const QString refused = shop.desk.queue().at(failing - 1).barcode;
        EXPECT_TRUE(shop.machine.prompt.shown[0].text.contains(refused));
        EXPECT_TRUE(shop.machine.prompt.shown[0].text.contains(u"Mal %1\n"_s.arg(failing - 1)));
        EXPECT_EQ(selected, failing - 1);
        QStringList states;
        for (const QueueRow &row : shop.desk.queue().rows())
            states += row.tag().section(u"<123>"_s, 1);
        EXPECT_EQ(states.count(u"a2"_s), failing - 1);
        EXPECT_EQ(states.lastIndexOf(u"a2"_s), failing - 2);
        EXPECT_EQ(states.count(u"a1"_s), 5 - failing);
        EXPECT_TRUE(shop.numbers.isOn());

        shop.host.failOn = nullptr;
        shop.numbers.brgnc();
        ASSERT_EQ(shop.machine.prompt.shown.size(), 2U);
        EXPECT_EQ(shop.machine.prompt.shown[1].text, u"Yeni Barkod Numaraları Eklendi..."_s);
        QStringList inserts = {shop.insert(u"00000116"_s, u"M0"_s, u"1"_s),
                               shop.insert(u"00000123"_s, u"M1"_s, u"1"_s),
                               shop.insert(u"00000130"_s, u"M2"_s, u"1"_s),
                               shop.insert(u"00000147"_s, u"M3"_s, u"1"_s)};
        inserts.insert(failing, inserts.at(failing - 1)); // the failed one is tried again
        EXPECT_EQ(shop.host.statements, inserts);

        // Everything is saved: printing is offered again and nothing is left to number.
        EXPECT_FALSE(shop.numbers.isOn());
        EXPECT_EQ(shop.queue().first(), u"00000116 a2"_s);
        EXPECT_EQ(shop.desk.stocks().at(3).barcode, u"00000147"_s);
        shop.desk.ekbartum();
        EXPECT_EQ(shop.desk.queue().size(), 0);
    }
}

TEST(NumberDesk, SecondUnitsAndThirteenDigitsAreSavedAsSuch)
{
    LabelShop shop;
    shop.answer(u"select * from STKBARKOD where STKBARSTKKOD='S1'"_s, {});
    shop.desk.loader().setUnits(UnitChoice::both);
    shop.desk.loader().stkcinsibul(u"ü"_s);
    shop.desk.ekbartum();
    shop.desk.numbers().generate(u"869000000000"_s);
    EXPECT_EQ(shop.machine.keys.values.value(u"/shop/Ayar.zev|barno|ean13"_s), u"869000000002"_s);
    shop.host.statements.clear();
    shop.desk.numbers().brgnc();
    EXPECT_EQ(shop.host.statements.value(1),
              u"INSERT INTO STKBARKOD (STKBARKOD,STKBARSTKKOD,STKBARBRMNO,STKBARTIP,STKBARFIYTIP,"
              "STKBARITEMNO) values ('8690000000029','S1','2','2','2','1')"_s);
}

TEST(NumberDesk, UnsavedNumbersAreNotGivenUpWithoutAQuestion)
{
    NumberShop shop;
    shop.numbers.generate(u"5"_s);
    const auto refused = [&](const auto &action) {
        const std::size_t before = shop.machine.prompt.shown.size();
        action();
        EXPECT_EQ(shop.machine.prompt.shown.size(), before + 1);
        EXPECT_EQ(shop.numbers.unsaved(), 4);
    };
    refused([&] { shop.desk.clearQueue(); });
    refused([&] { shop.desk.removeRows({2}); });
    refused([&] { shop.desk.ekbartum(); });
    refused([&] { EXPECT_FALSE(shop.desk.mayClose()); });
    shop.machine.prompt.answers = {Answer::yes, Answer::yes};
    shop.desk.removeRows({2});
    EXPECT_EQ(shop.numbers.unsaved(), 3);
    shop.desk.clearQueue();
    EXPECT_EQ(shop.desk.queue().size(), 0);
    EXPECT_TRUE(shop.desk.mayClose());
}

TEST(NumberDesk, WhileNumbersAreSavedNothingElseRunsAndItCanBeStopped)
{
    NumberShop shop(3000);
    shop.numbers.generate(u"0"_s);
    ASSERT_EQ(shop.numbers.unsaved(), 3000);
    shop.host.statements.clear();
    QObject::connect(&shop.desk, &LabelDesk::progressed, &shop.desk, [&] {
        shop.desk.loader().listele();
        shop.desk.clearQueue();
        shop.numbers.generate(u"0"_s);
        shop.numbers.brgnc();
        EXPECT_FALSE(shop.desk.mayClose()); // and stops
    });
    shop.host.failOn = [](const QString &) -> std::optional<int> {
        QElapsedTimer pause;
        pause.start();
        while (!pause.hasExpired(1)) {
        }
        return {};
    };
    shop.numbers.brgnc();
    EXPECT_TRUE(shop.machine.prompt.shown.empty());
    EXPECT_EQ(shop.numbers.unsaved(), 3000 - shop.host.statements.size());
    EXPECT_GT(shop.numbers.unsaved(), 0);
}

TEST(PrintQueueStates, NewNumbersAreSeen)
{
    NumberShop shop(2);
    shop.numbers.generate(u"5"_s);
    shop.host.failOn = shop.failAt(u"INSERT"_s, 2);
    shop.numbers.brgnc();
    const auto look = [&](int row, int role) {
        return shop.desk.queue().index(row, PrintQueue::barcode).data(role);
    };
    EXPECT_EQ(look(0, Qt::ToolTipRole).toString(), u"Yeni numara: kaydedildi"_s);
    EXPECT_EQ(look(1, Qt::ToolTipRole).toString(), u"Yeni numara: henüz kaydedilmedi"_s);
    EXPECT_NE(look(0, Qt::BackgroundRole), look(1, Qt::BackgroundRole));
    EXPECT_NE(look(0, Qt::DecorationRole), look(1, Qt::DecorationRole));
    EXPECT_EQ(shop.numbers.summary(), u"1 yeni numara kaydedilmedi"_s);
}
