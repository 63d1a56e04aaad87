// The journal on a full disk, damaged or locked: the till sells on, and nothing is sold twice.

#include "acceptance/memory_shop.h"

/// The journal stops before or in the middle of a posting that goes on, and the program ends
/// without a word. Where the journal has no number of the sale, the user is asked whether it is
/// that one.
TEST_F(Memory, ADiskThatFillsUpSellsNothingTwice)
{
    const QStringList expected = undisturbed();
    const std::pair<int, int> rooms[] = {{0, 0},   {1, 0},   {2, 0},   {3, 0},  {4, 0},
                                         {12, 0},  {40, 0},  {76, 0},  {3, 32}, {3, 50},
                                         {40, 30}, {40, 42}, {40, 54}, {40, 90}};
    for (const auto &[left, more] : rooms) {
        SCOPED_TRACE(QString::number(left).toStdString() + " and " +
                     QString::number(more).toStdString());
        startAnew();
        shop.prompt.answers = {Answer::yes};
        {
            Counter counter(shop);
            counter.sell(kSale);
            counter.file.left = left;
            counter.file.again = more;
            counter.till.post();
            EXPECT_TRUE(more > 0 || counter.memory.mark() == u"GÜNLÜK TUTULAMIYOR");
            counter.file.left = 0; // nothing is written at the end
        }
        Counter again(shop);
        if (!again.till.list(0).isEmpty())
            again.till.post();
        EXPECT_EQ(again.memory.receipts().find(u"PF000426"_s).size(), 1U);
        again.sell({kSale.first()});
        again.till.post();
        EXPECT_EQ(ledger(), expected);
    }
    EXPECT_FALSE(shop.prompt.shown.empty());
}

/// The journal stops, and the program ends in the same posting: the user is asked about the figures
/// behind the last row, here none of them was written.
TEST_F(Memory, AFullDiskAndAnEndInOnePostingWriteNothingTwice)
{
    const QStringList expected = undisturbed();
    for (const int at : {16, 27, 40, 48}) { // behind a line, slip or invoice
        SCOPED_TRACE(at);
        startAnew();
        {
            Counter counter(shop);
            counter.sell(kSale);
            counter.file.left = 16;
            counter.dieAt(at, true);
            EXPECT_THROW(counter.till.post(), Killed);
        }
        Counter again(shop);
        again.memory.incomplete().completeAll();
        if (!again.till.list(0).isEmpty())
            again.till.post();
        again.sell({kSale.first()});
        again.till.post();
        EXPECT_EQ(ledger(), expected);
    }
}

/// What is sold meanwhile gets into the journal as soon as the disk has room again.
TEST_F(Memory, WhatAFullDiskKeptOutIsWrittenDownLater)
{
    shop.connect()->execute(u"UPDATE STKKART SET STKCINSI='Ali''nin' where STKKOD='MNV.0011'"_s);
    Counter counter(shop);
    counter.file.left = 20; // in the first posting
    for (int sales = 0; sales < 2; ++sales) {
        counter.sell(kSale);
        counter.till.post();
    }
    counter.file.left = -1;
    counter.memory.tryAgain();
    EXPECT_EQ(counter.memory.receipts().find(u"TEM.0011"_s).size(), 2U);
    DayEnd &day = counter.memory.dayEnd();
    day.read(day.today(), day.today());
    day.compare();
    EXPECT_EQ(day.report().differences.size(), 1); // the demo shop's own invoice
    EXPECT_EQ(counter.memory.incomplete().count(), 2);
    EXPECT_EQ(counter.memory.incomplete().completeAll().end, IncompleteSales::Outcome::End::whole);
}

TEST_F(Memory, ATillWithoutItsJournalSellsOnAndSaysSo)
{
    const auto sellsOn = [this](const QString &expected) {
        Counter counter(shop);
        EXPECT_TRUE(counter.notice.contains(expected)) << counter.notice.toStdString();
        counter.sell({kSale.first()});
        counter.till.post();
        EXPECT_TRUE(counter.till.list(0).isEmpty());
    };
    {
        QFile damaged(journal);
        ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
        damaged.write(QByteArray(4096, 'x'));
    }
    sellsOn(u"bozuktu; kasa-bozuk-"_s); // and is kept from then on
    {
        SqliteDatabase other;
        other.open(journal);
        other.execute(u"PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE"_s);
        sellsOn(u"(kasa.dbs) tutulamıyor"_s);
    }
    sellsOn(QString());
    Counter(shop).sell({kSale.first()});
    auto other = std::make_unique<SqliteDatabase>();
    other->open(journal);
    other->execute(u"PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE"_s);
    Counter late(shop);
    late.sell({kSale.last()});
    other.reset();
    late.memory.tryAgain(); // what it remembers comes back beside what was sold meanwhile
    EXPECT_EQ(late.lines(0) + late.lines(1), QStringList({u"GID.0004 1"_s, u"TEM.0011 1"_s}));
}
