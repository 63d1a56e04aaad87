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
        EXPECT_EQ(shop.desk.priceNumbers().wanted(3), QString()); // a third unit has none
    }
    EXPECT_EQ(shop.machine.db.opened.size(), shop.machine.db.closed);
    EXPECT_EQ(shop.machine.db.statements.last(), u"select * from stok where id='1'"_s);
    EXPECT_TRUE(shop.machine.prompt.shown.empty());
}

TEST(LabelDesk, RowsAreQueuedSinglyOrInBulk)
{
    LabelShop shop;
    shop.desk.loader().setUnits(UnitChoice::both);
    shop.desk.loader().listele();

    shop.desk.addRows({1});
    shop.desk.addRows({1});
    shop.desk.addRows({});
    EXPECT_EQ(shop.queued(), QStringList({u"S1 2<123>a0"_s, u"S1 2<123>a0"_s}));
    QStringList cells;
    for (int column = 0; column < PrintQueue::columns; ++column)
        cells += shop.desk.queue().index(0, column).data().toString();
    EXPECT_EQ(cells.join(u'|'), u"1|221|S1|Süt 1 L|KOLI (BIRIM2)|81,00|1"_s);

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
    shop.desk.loader().listele();
    shop.desk.ektm();
    const QSignalSpy taken(&shop.desk, &LabelDesk::allCountsSet);
    for (const QString &bad : {u"0"_s, u"2,5"_s, u"abc"_s, u""_s, u"1000000"_s}) {
        shop.machine.prompt.shown.clear();
        shop.desk.setCounts({0}, bad);
        shop.desk.setAllCounts(bad);
        ASSERT_EQ(shop.machine.prompt.shown.size(), 2U);
        EXPECT_EQ(shop.machine.prompt.shown[0].caption, u"DİKKAT"_s);
        EXPECT_TRUE(shop.machine.prompt.shown[0].text.contains(u"\"%1\""_s.arg(bad)));
    }
    EXPECT_EQ(shop.desk.queue().total(), 3);
    EXPECT_EQ(taken.count(), 0);
    shop.desk.setAllCounts(u"3"_s);
    EXPECT_EQ(shop.desk.queue().total(), 9);
    EXPECT_EQ(taken.count(), 1);
}

TEST(LabelDesk, WhatLeftTheQueueCanBeBroughtBack)
{
    LabelShop shop;
    shop.desk.loader().listele();
    shop.desk.ektm();
    const std::vector<QueueRow> whole = shop.desk.queue().rows();
    EXPECT_FALSE(shop.desk.canUndo());
    shop.desk.removeRows({0, 2});
    shop.desk.clearQueue();
    EXPECT_EQ(shop.desk.queue().size(), 0);
    shop.desk.undoRemoval();
    EXPECT_EQ(shop.desk.queue().size(), 1);
    shop.desk.undoRemoval();
    EXPECT_EQ(shop.desk.queue().rows(), whole);
    EXPECT_FALSE(shop.desk.canUndo());

    // Gathering stocks to be numbered takes the queue's place: its rows come back when the
    // numbering is over, and a numbering that was thrown away comes back as one.
    shop.desk.ekbartum();
    shop.desk.undoRemoval();
    EXPECT_EQ(shop.desk.queue().size(), 1);
    shop.desk.numbers().generate(u"10"_s);
    shop.machine.prompt.answers = {Answer::yes};
    shop.desk.clearQueue();
    EXPECT_FALSE(shop.desk.numbers().isOn());
    shop.desk.undoRemoval();
    EXPECT_TRUE(shop.desk.numbers().isOn());
    EXPECT_EQ(shop.desk.numbers().unsaved(), 1);
    shop.desk.numbers().brgnc();
    EXPECT_FALSE(shop.desk.numbers().isOn());
    shop.desk.undoRemoval();
    EXPECT_EQ(shop.desk.queue().size(), 4);
}
