#include "acceptance/memory_shop.h"
#include "support/golden.h"
#include "support/print_qt.h"

TEST_F(Memory, ListsComeBackAsTheyStood)
{
    {
        Counter counter(shop);
        EXPECT_EQ(counter.notice, QString());
        counter.till.setCashier({u"P01"_s, u"Ali'nin kasası"_s});
        counter.sell({u"GID.0004"_s, u"GID.0004"_s});
        counter.till.selectList(2);
        counter.sell(kSale);
        EXPECT_EQ(counter.till.miktargir(u"1,25"_s), QString());
        counter.till.moveSelection(-1);
        shop.prompt.answers = {Answer::yes};
        counter.till.sil();
        counter.till.setCash(2, u"500"_s);
        counter.till.setCustomer({u"C7"_s, u"Bakkal"_s});
        counter.till.selectList(0);
        counter.till.togglePayment();
    }
    {
        Counter again(shop);
        EXPECT_EQ(again.lines(0), QStringList{u"GID.0004 2"_s});
        EXPECT_EQ(again.lines(1), QStringList());
        EXPECT_EQ(again.lines(2), QStringList({u"TEM.0011 1"_s, u"GID.0004 1,25"_s}));
        EXPECT_EQ(again.till.cash(2), u"500"_s);
        EXPECT_EQ(again.till.chosenCustomer(2).name, u"Bakkal"_s);
        EXPECT_EQ(again.till.payment(0), Payment::card);
        EXPECT_EQ(again.till.cashier().name, u"Ali'nin kasası"_s);
        EXPECT_TRUE(again.notice.contains(u"SATIS1 (1 satır, 14:05), SATIS3 (2 satır, 14:05)"_s));
        EXPECT_TRUE(again.memory.park()); // the program starts anew by itself
        again.till.discard();
    }
    {
        Counter third(shop);
        EXPECT_EQ(third.lines(2).size(), 2);
        third.till.post();
        third.till.discard(); // closed with EVET
    }
    Counter last(shop);
    EXPECT_EQ(last.lines(0) + last.lines(2), QStringList());
    EXPECT_EQ(last.till.cashier().name, QString());
}

/// Wherever the program ended, the ledger is that of two undisturbed sales after the next one.
TEST_F(Memory, APostingThatWasCutOffIsCompletedBeforeTheNext)
{
    const QStringList expected = undisturbed();
    for (int at = 1; at <= statements; at += 5) {
        const bool done = at % 2 == 0; // before the statement, or behind it
        SCOPED_TRACE(QString::number(at).toStdString() + (done ? " done" : ""));
        startAnew();
        {
            Counter counter(shop);
            counter.sell(kSale);
            counter.dieAt(at, done);
            EXPECT_THROW(counter.till.post(), Killed);
        }
        Counter again(shop);
        if (!again.till.list(0).isEmpty())
            again.till.post();
        again.sell({kSale.first()});
        again.till.post();
        EXPECT_EQ(again.till.postedTotal(0), u"186,39"_s);
        EXPECT_EQ(again.memory.incomplete().count(), 0);
        EXPECT_EQ(ledger(), expected);
    }
    EXPECT_TRUE(shop.prompt.shown.empty());
}

/// A completion that a lock keeps from a record leaves it to the next one.
TEST_F(Memory, WhatACompletionSkippedIsDoneByTheNext)
{
    const QStringList expected = undisturbed();
    for (const int at : {11, 19, 23, 31}) {
        SCOPED_TRACE(at);
        startAnew();
        {
            Counter counter(shop);
            counter.sell(kSale);
            counter.dieAt(17, true);
            EXPECT_THROW(counter.till.post(), Killed);
        }
        Counter again(shop);
        again.dieAt(at, true);
        again.host->locked = true;
        again.memory.incomplete().completeAll();
        again.dieAt(0, false);
        again.memory.incomplete().completeAll();
        again.sell({kSale.first()});
        again.till.post();
        EXPECT_EQ(ledger(), expected);
    }
    EXPECT_TRUE(shop.prompt.shown.empty());
}

/// The power goes and takes every mark of the posting out of the journal: rows that stand tell.
TEST_F(Memory, APowerCutLeavesTheRowsToTell)
{
    const QStringList expected = undisturbed();
    constexpr int perLine = 11;
    for (const int at :
         {5, 5 + perLine, 5 + 2 * perLine, statements - 3}) { // slip, lines, last row
        SCOPED_TRACE(at);
        startAnew();
        {
            Counter counter(shop);
            counter.sell(kSale);
            counter.dieAt(at, true);
            EXPECT_THROW(counter.till.post(), Killed);
        }
        {
            SqliteDatabase file;
            const OpenDatabase open(file, journal);
            file.execute(u"UPDATE satis SET acilis='dün'; DELETE FROM gonderi"_s);
        }
        Counter again(shop);
        EXPECT_EQ(again.lines(0).size(), 3); // nobody knows better yet
        again.till.post();
        again.sell({kSale.first()});
        again.till.post();
        EXPECT_EQ(ledger(), expected);
    }
}

/// A till ends before it advances its counters, and another takes its numbers meanwhile.
TEST_F(Memory, ANumberThatTwoSalesBearIsTold)
{
    {
        Counter counter(shop);
        counter.sell(kSale);
        counter.dieAt(56, true); // before the first counter
        EXPECT_THROW(counter.till.post(), Killed);
    }
    shop.open();
    TillSession other(shop.program);
    other.load();
    other.enterStock(kSale.last());
    other.post();
    EXPECT_EQ(other.postedTotal(0).isEmpty(), false);

    Counter again(shop);
    again.sell({kSale.first()});
    again.till.post();
    again.till.work().openBoxes();
    ASSERT_EQ(shop.prompt.shown.size(), 1U);
    const QString told = u"Fatura PF000426: aynı numarada kayıt 47, "_s;
    EXPECT_TRUE(shop.prompt.shown.front().text.contains(told))
        << shop.prompt.shown.front().text.toStdString();
    IncompleteSales &incomplete = again.memory.incomplete();
    ASSERT_EQ(incomplete.count(), 1);
    EXPECT_EQ(IncompleteSales::report(incomplete.all().front()).lines.size(), 3);

    for (const QString &slip : {u"STKFIS"_s, u"CARFIS"_s, u"FATFIS"_s})
        shop.connect()->execute(
            u"UPDATE %1 SET %1EVRAKNO1='X' where %1REFNO=(select max(%1REFNO)-1 "
            "from %1)"_s.arg(slip));
    EXPECT_EQ(incomplete.completeAll().end, IncompleteSales::Outcome::End::whole);
}

/// A lost answer is cleared up by what stands in the ledger, or by the user where nothing can tell.
TEST_F(Memory, ALostAnswerIsLookedUpOrAsked)
{
    const QStringList expected = undisturbed();
    for (int at = 1; at <= statements; at += 7) {
        SCOPED_TRACE(at);
        startAnew();
        Counter counter(shop);
        counter.sell(kSale);
        counter.dieAt(at, true);
        counter.host->kills = false;
        counter.till.post();
        counter.open();
        if (!counter.till.list(0).isEmpty())
            counter.till.post();
        counter.sell({kSale.first()});
        counter.till.post();
        EXPECT_EQ(ledger(), expected);
    }
}

/// A name with an apostrophe breaks the posting's statements, not those that complete it.
TEST_F(Memory, AnIncompleteSaleIsCompletedInItsOwnLedger)
{
    shop.connect()->execute(
        u"UPDATE STKKART SET STKCINSI='Ali''nin Sütü' where STKKOD='TEM.0011'"_s);
    Counter counter(shop);
    counter.sell({kSale.first()});
    counter.till.post();
    IncompleteSales &incomplete = counter.memory.incomplete();
    EXPECT_EQ(incomplete.count(), 1);

    const QString own = std::exchange(counter.program.ledger, u"BAŞKA"_s);
    const QStringList before = ledger();
    EXPECT_EQ(incomplete.count(), 0);
    incomplete.complete(incomplete.all().front());
    incomplete.completeAll();
    EXPECT_EQ(ledger(), before);
    EXPECT_TRUE(counter.memory.receipts().find({}).empty());

    counter.program.ledger = own;
    EXPECT_EQ(incomplete.completeAll().end, IncompleteSales::Outcome::End::whole);
    EXPECT_EQ(incomplete.count(), 0);
    EXPECT_EQ(ledger().filter(u"Ali'nin"_s).size(), 3); // card, movement, line of the invoice
}

TEST_F(Memory, TheBookFindsReceiptsAndAddsUpTheDay)
{
    Counter counter(shop);
    counter.till.setCashier({u"P01"_s, u"Ayşe Gündoğdu"_s});
    counter.sell(kSale);
    counter.till.post();
    counter.till.setCashier({u"P02"_s, u"Can"_s});
    counter.sell({kSale.at(0), kSale.at(1)});
    shop.prompt.answers = {Answer::yes};
    counter.till.sil();
    counter.till.post();

    ReceiptArchive &receipts = counter.memory.receipts();
    const auto found = [&](const QString &text) { return receipts.find(text).size(); };
    EXPECT_EQ(found({}), 2U);
    for (const QString &one : {u"GID.0004"_s, u"PF000426"_s, u"186,39"_s, u"lahana"_s})
        EXPECT_EQ(found(one), 1U) << one.toStdString();
    for (const QString &both : {u"14:05"_s, u"7.3"_s, u"07.03.2026"_s, u"TEM.0011"_s})
        EXPECT_EQ(found(both), 2U) << both.toStdString();
    EXPECT_EQ(found(u"8.3"_s) + found(u"yok'"_s), 0U);
    EXPECT_TRUE(toText(receipts.page(1)).contains(u"KOPYA"_s));

    DayEnd &day = counter.memory.dayEnd();
    day.read(day.today(), day.today());
    EXPECT_TRUE(day.setCounted(u"400"_s));
    shop.connect()->execute(u"UPDATE FATFIS SET FATFISGENTOPLAM='1' where FATFISREFNO='47'"_s);
    day.compare();
    expectGolden(u"acceptance/day.csv"_s, day_report::csv(day.report()));
    const QString pdf = shop.program.path(u"gun.pdf");
    day.savePdf(pdf);
    EXPECT_GT(QFile(pdf).size(), 1000);
}
