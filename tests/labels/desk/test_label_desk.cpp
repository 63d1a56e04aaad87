#include "fakes/label_shop.h"
#include "support/print_qt.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(LabelDesk, PriceNumbersComeFromTheSettings)
{
    const struct
    {
        QMap<QString, QString> row;
        QString first;
        QString second;
    } cases[] = {
        {{{u"fiyatip"_s, u"7"_s}, {u"br1fyt"_s, u"3"_s}, {u"br2fyt"_s, u" 4 "_s}}, u"3"_s, u"4"_s},
        {{{u"fiyatip"_s, u"7"_s}, {u"br1fyt"_s, u""_s}, {u"br2fyt"_s, u"4"_s}}, u"7"_s, u"4"_s},
        {{{u"fiyatip"_s, u""_s}, {u"br1fyt"_s, u""_s}, {u"br2fyt"_s, u""_s}}, u""_s, u""_s},
        {{{u"baska"_s, u"1"_s}}, u""_s, u""_s}, // columns missing
    };
    LabelShop shop;
    for (const auto &c : cases) {
        shop.machine.db.setRow(u"stok"_s, c.row);
        shop.desk.loadPriceNumbers();
        EXPECT_EQ(shop.desk.priceNumbers().first, c.first);
        EXPECT_EQ(shop.desk.priceNumbers().second, c.second);
    }
    EXPECT_EQ(shop.machine.db.opened.size(), shop.machine.db.closed);
    EXPECT_EQ(shop.machine.db.statements.last(), u"select * from stok where id='1'"_s);
    EXPECT_TRUE(shop.machine.prompt.shown.empty());
}

TEST(LabelDesk, RowsAreQueuedSinglyOrInBulk)
{
    LabelShop shop;
    shop.desk.setUnits(UnitChoice::both);
    shop.desk.listele();

    shop.desk.addOne(1);
    shop.desk.addOne(1);
    shop.desk.addOne(-1);
    shop.desk.addOne(4);
    EXPECT_EQ(shop.queued(), QStringList({u"S1 2<123>a0"_s, u"S1 2<123>a0"_s}));
    const QueueRow milk = {u"1"_s,     u"221"_s, u"S1"_s,      u"Süt 1 L"_s, u"KOLI (BIRIM2)"_s,
                           u"81,00"_s, u"1"_s,   u"2<123>a0"_s};
    EXPECT_EQ(shop.desk.queue().at(0), milk);

    const struct
    {
        void (LabelDesk::*command)();
        QStringList rows;
    } cases[] = {
        {&LabelDesk::ekbr1, {u"S1 1<123>0"_s, u"S2 1<123>0"_s, u"S3 1<123>0"_s}},
        {&LabelDesk::ekbr2, {u"S1 2<123>0"_s}},
        {&LabelDesk::ektm, {u"S1 1<123>0"_s, u"S1 2<123>0"_s, u"S2 1<123>0"_s, u"S3 1<123>0"_s}},
    };
    for (const auto &c : cases) {
        shop.desk.clearQueue();
        (shop.desk.*c.command)();
        EXPECT_EQ(shop.queued(), c.rows);
    }
}

TEST(LabelDesk, ABadCountIsRefusedWithAMessage)
{
    LabelShop shop;
    shop.desk.listele();
    shop.desk.ektm();
    const QSignalSpy taken(&shop.desk, &LabelDesk::allCountsSet);
    for (const QString &bad : {u"0"_s, u"2,5"_s, u"abc"_s, u""_s, u"1000000"_s}) {
        shop.machine.prompt.shown.clear();
        shop.desk.setCount(0, bad);
        shop.desk.setAllCounts(bad);
        ASSERT_EQ(shop.machine.prompt.shown.size(), 2U);
        EXPECT_EQ(shop.machine.prompt.shown[0].caption, u"DİKKAT"_s);
        EXPECT_TRUE(shop.machine.prompt.shown[0].text.contains(u"\"%1\""_s.arg(bad)));
    }
    EXPECT_EQ(shop.desk.queue().total(), 3);
    EXPECT_FALSE(shop.desk.queue().setCount(3, u"2")); // there is no such row
    EXPECT_EQ(taken.count(), 0);
    shop.desk.setAllCounts(u"3"_s);
    EXPECT_EQ(shop.desk.queue().total(), 9);
    EXPECT_EQ(taken.count(), 1);
}
