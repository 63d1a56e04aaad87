#include "fakes/label_shop.h"
#include "support/print_qt.h"

#include <QThread>
#include <QTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kMilk1 = u"112|S1|Süt 1 L|ADET (BIRIM1)|10,00|1|1"_s;
const QString kMilk2 = u"221|S1|Süt 1 L|KOLI (BIRIM2)|81,00|1|2"_s;
const QString kSugar = u"|S2|Şeker|KG (BIRIM1)||1|1"_s;
const QString kTea = u"331|S3|Çay 500 g|ADET (BIRIM1)|1.250,50|1|1"_s;

} // namespace

TEST(StockSearch, EveryRowIsOneUnitWithItsOwnBarcodeAndPrice)
{
    const struct
    {
        UnitChoice units;
        QStringList rows;
    } cases[] = {
        {UnitChoice::first, {kMilk1, kSugar, kTea}},
        {UnitChoice::second, {kMilk2}},
        {UnitChoice::both, {kMilk1, kMilk2, kSugar, kTea}},
    };
    for (const auto &c : cases) {
        LabelShop shop;
        shop.desk.loader().setUnits(c.units);
        shop.desk.loader().stkkodbul(u"S"_s);
        EXPECT_EQ(shop.stocks(), c.rows);
    }
}

TEST(StockSearch, StatementsRunInOrderFirstStocksThenBarcodesThenPrices)
{
    const QStringList passes = {u"select * from STKBARKOD where STKBARSTKKOD='S1'"_s,
                                u"select * from STKBARKOD where STKBARSTKKOD='S1'"_s,
                                u"select * from STKFIYAT where STKFIYSTKKOD='S1'"_s,
                                u"select * from STKFIYAT where STKFIYSTKKOD='S1'"_s};
    const QStringList all = {u"select * from STKKART"_s,
                             u"select * from STKBARKOD where STKBARSTKKOD='S1'"_s,
                             u"select * from STKBARKOD where STKBARSTKKOD='S2'"_s,
                             u"select * from STKBARKOD where STKBARSTKKOD='S3'"_s,
                             u"select * from STKFIYAT where STKFIYSTKKOD='S1'"_s,
                             u"select * from STKFIYAT where STKFIYSTKKOD='S2'"_s,
                             u"select * from STKFIYAT where STKFIYSTKKOD='S3'"_s};
    LabelShop shop;
    shop.desk.loader().listele();
    EXPECT_EQ(shop.host.statements, all);

    shop.host.statements.clear();
    shop.desk.loader().setUnits(UnitChoice::both);
    shop.desk.loader().stkcinsibul(u"ü"_s);
    EXPECT_EQ(shop.host.statements,
              QStringList(u"select * from STKKART where STKCINSI LIKE '%ü%'"_s) + passes);

    shop.host.statements.clear();
    shop.desk.loader().brkdbul(u"111"_s);
    EXPECT_EQ(shop.host.statements,
              QStringList({u"select * from STKBARKOD where STKBARKOD='111'"_s,
                           u"select * from STKKART where STKKOD='S1'"_s, passes[0], passes[2]}));

    shop.host.statements.clear();
    shop.desk.loader().fiyatoku();
    EXPECT_EQ(shop.host.statements, QStringList(passes[2]));

    const QString changed =
        u"select * from STKKART where (STKSYFTARIHI between '01.03.2026' and '31.03.2026') and "
        "(STKSYFSAATI>='07:59:00' and STKSYFSAATI<='12:00:00')"_s;
    shop.answer(changed, LabelShop::cards({{u"S1"_s, u"Süt 1 L"_s, u"ADET"_s, u"KOLI"_s}}));
    shop.host.statements.clear();
    shop.desk.loader().fiyatdegisbul(u"01.03.2026"_s, u"31.03.2026"_s, u"07:59:00"_s,
                                     u"12:00:00"_s);
    EXPECT_EQ(shop.host.statements, QStringList(changed) + passes);
}

TEST(StockSearch, TheTextIsPutIntoTheStatementAsTyped)
{
    LabelShop shop;
    for (const QString &text : {u"%1 %2"_s, u"50% _"_s, u"o'nun"_s, u""_s}) {
        shop.host.statements.clear();
        shop.desk.loader().stkkodbul(text);
        EXPECT_EQ(shop.host.statements.value(0),
                  u"select * from STKKART where STKKOD LIKE '%"_s + text + u"%'"_s);
    }
}

TEST(StockSearch, AScannedSecondUnitBearsTheFirstUnitsName)
{
    LabelShop shop;
    shop.desk.loader().setUnits(UnitChoice::first); // plays no part
    shop.desk.loader().brkdbul(u"221"_s);
    EXPECT_EQ(shop.stocks(), QStringList(u"221|S1|Süt 1 L|ADET (BIRIM2)|81,00|1|2"_s));
    shop.desk.loader().brkdbul(u"yok"_s);
    EXPECT_EQ(shop.desk.stocks().size(), 0);
}

TEST(StockSearch, AFailureIsToldAndKeepsWhatIsThere)
{
    const struct
    {
        QString failing; ///< start of the statement that fails
        QStringList rows;
    } cases[] = {
        {u"select * from STKKART where STKCINSI"_s, {kMilk1, kSugar, kTea}},
        {u"select * from STKBARKOD"_s, {u"|S1|Süt 1 L|ADET (BIRIM1)||1|1"_s}},
        {u"select * from STKFIYAT"_s, {u"112|S1|Süt 1 L|ADET (BIRIM1)||1|1"_s}},
    };
    for (const auto &c : cases) {
        LabelShop shop;
        shop.desk.loader().listele();
        shop.desk.ektm();
        shop.host.failOn = [&](const QString &statement) {
            return statement.startsWith(c.failing) ? std::optional(HostError::kStatement)
                                                   : std::nullopt;
        };
        shop.desk.loader().stkcinsibul(u"ü"_s);
        EXPECT_EQ(shop.machine.prompt.shown.size(), 1U);
        EXPECT_EQ(shop.stocks(), c.rows);
        EXPECT_EQ(shop.status.startsWith(u"Yarıda kaldı: listede 1 satır"_s), c.rows.size() == 1);
        EXPECT_EQ(shop.desk.queue().size(), 3);
        EXPECT_FALSE(shop.desk.isBusy());

        shop.host.open = false;
        shop.desk.loader().stkkodbul(u"S"_s);
        EXPECT_EQ(shop.machine.prompt.shown.size(), 2U);
        EXPECT_EQ(shop.stocks(), c.rows);
    }
}

TEST(StockSearch, ALongSearchShowsProgressAndFewSignals)
{
    LabelShop shop;
    shop.stockUp(20'000);
    int inserts = 0;
    int changes = 0;
    int progress = 0;
    QObject::connect(&shop.desk.stocks(), &StockList::rowsInserted, [&] { ++inserts; });
    QObject::connect(&shop.desk.stocks(), &StockList::dataChanged, [&] { ++changes; });
    QObject::connect(&shop.desk, &LabelDesk::progressed, [&](const QString &, int done, int total) {
        EXPECT_LE(done, total);
        ++progress;
    });
    QElapsedTimer timer;
    timer.start();
    shop.host.failOn = [&](const QString &statement) -> std::optional<int> {
        EXPECT_EQ(statement.contains(u"STKBAR"_s) && progress == 0, false); // seen before that
        return {};
    };
    shop.desk.loader().listele();
    EXPECT_EQ(shop.desk.stocks().size(), 20'000);
    EXPECT_LE(inserts, 20);
    EXPECT_LE(changes, timer.elapsed() / 50 + 1);
    EXPECT_LE(progress, timer.elapsed() / 50 + 1);
}

TEST(StockSearch, StoppingKeepsTheRowsAndEndsThePasses)
{
    for (const auto &stage : {u"STKKART"_s, u"STKBARSTKKOD"_s, u"STKFIYSTKKOD"_s}) {
        LabelShop shop;
        shop.stockUp(5'000);
        shop.host.failOn = [&](const QString &statement) -> std::optional<int> {
            if (statement.contains(stage))
                shop.desk.stop();
            return {};
        };
        shop.desk.loader().listele();
        EXPECT_TRUE(shop.host.statements.last().contains(stage));
        EXPECT_GT(shop.desk.stocks().size(), 0);
        EXPECT_TRUE(shop.status.startsWith(u"Durduruldu"_s)) << shop.status.toStdString();
        EXPECT_FALSE(shop.desk.isBusy());
        EXPECT_EQ(shop.desk.stocks().pricesRead(), 0); // not all: they are read anew when printed
    }
}

TEST(StockSearch, ANewSearchTakesThePlaceOfTheRunningOne)
{
    LabelShop shop;
    shop.stockUp(5'000);
    bool asked = false;
    shop.host.failOn = [&](const QString &statement) -> std::optional<int> {
        if (!std::exchange(asked, asked || statement.contains(u"STKBARSTKKOD"_s)) && asked) {
            shop.desk.addRows({0}); // refused: its barcode is still being read
            shop.desk.loader().stkkodbul(u"S"_s);
        }
        return {};
    };
    shop.desk.loader().listele();
    EXPECT_EQ(shop.stocks(), QStringList({kMilk1, kSugar, kTea}));
    EXPECT_EQ(shop.desk.queue().size(), 0);
}

TEST(StockSearch, EventsAreHandledWhileItRuns)
{
    LabelShop shop;
    shop.stockUp(3'000);
    shop.host.failOn = [](const QString &) -> std::optional<int> {
        QThread::msleep(1);
        return {};
    };
    QTimer::singleShot(100, &shop.desk, &LabelDesk::stop);
    shop.desk.loader().listele();
    EXPECT_LT(shop.host.statements.size(), 3'000);
}
