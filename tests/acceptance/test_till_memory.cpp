#include "sales/journal/till_memory.h"
#include "support/golden.h"
#include "support/print_qt.h"
#include "support/real_shop.h"

#include <QCoreApplication>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kOil = u"8688107052881"_s;
const QStringList kSale = {u"TEM.0011"_s, u"MNV.0011"_s, u"GID.0004"_s};

/// The end of the program, as far as a test can have it: no handler of the till catches it.
struct Killed
{};

/// Ends the program at a statement, before it has been done or behind it, or loses its answer; or
/// the statement waits for a lock until its time is over.
class DeadlyHost final : public HostConnection
{
public:
    explicit DeadlyHost(std::unique_ptr<HostConnection> host) : m_host(std::move(host)) {}

    int state() const override { return lost ? 0 : m_host->state(); }
    RecordSet execute(const QString &statement) override
    {
        const bool now = ++count == at;
        if (now && locked)
            throw HostError(HostError::kConnectionLost, u"kilitli"_s);
        if (now && !done)
            throw Killed();
        RecordSet rows = m_host->execute(statement);
        if (now && kills)
            throw Killed();
        if (now) {
            lost = true;
            throw HostError(HostError::kConnectionLost, u"kesildi"_s);
        }
        return rows;
    }

    int count = 0;
    int at = 0; ///< number of the statement, from 1; 0: never
    bool done = false;
    bool kills = true;
    bool locked = false;
    bool lost = false;

private:
    std::unique_ptr<HostConnection> m_host;
};

/// A journal on a disk that is full from a statement on.
class FullDisk final : public LocalDatabase
{
public:
    void open(const QString &path) override { m_file.open(path); }
    void close() override { m_file.close(); }
    RecordSet execute(const QString &statement) override
    {
        use(statement);
        return m_file.execute(statement);
    }
    RecordSet executeWith(const QString &statement, const QVariantList &values) override
    {
        use(statement);
        return m_file.executeWith(statement, values);
    }

    int left = -1; ///< statements; below 0: no end
    int again = 0; ///< as many more are taken when it has been full

private:
    void use(const QString &statement)
    {
        if (left == 0) {
            left = std::exchange(again, 0);
            throw HostError(HostError::kStatement, u"Disk dolu."_s, statement,
                            HostError::Cause::file);
        }
        left -= left > 0 ? 1 : 0;
    }

    SqliteDatabase m_file{std::chrono::milliseconds(200)};
};

/// The till with its memory on the folder of a shop; made anew for every start of the program.
struct Counter
{
    explicit Counter(RealShop &shop)
        : program(Ports{shop.host, shop.db, shop.keys, shop.printers, shop.sounds, shop.clock,
                        shop.prompt, &file},
                  shop.program.directory()),
          till(program), memory(program, till)
    {
        open();
        QObject::connect(&till.work(), &TillWork::boxWaits, &till.work(), &TillWork::openBoxes);
        QObject::connect(&till, &TillSession::noticed,
                         [this](const QString &text, Notice) { notice = text; });
        till.load();
        QCoreApplication::processEvents(); // the greeting comes when the form shows
        till.toggleEntryMode();
    }

    void open()
    {
        HostLink(program).sqlbaglan();
        auto deadly = std::make_unique<DeadlyHost>(std::move(program.bag));
        host = deadly.get();
        program.bag = std::move(deadly);
    }

    void sell(const QStringList &codes)
    {
        for (const QString &code : codes)
            till.enterCode(code);
    }

    /// At a statement from now on, counted from 1.
    void dieAt(int at, bool done)
    {
        host->count = 0;
        host->at = at;
        host->done = done;
    }

    QStringList lines(int list)
    {
        QStringList all;
        for (const SaleLine &line : till.list(list).lines())
            all += line[SaleColumn::stockCode] + u' ' + line[SaleColumn::quantity];
        return all;
    }

    FullDisk file;
    Program program;
    TillSession till;
    TillMemory memory;
    QString notice;
    DeadlyHost *host = nullptr;
};

struct Memory : testing::Test
{
    Memory()
    {
        const OpenDatabase open(shop.db, shop.program.path(settings::kFile));
        shop.db.execute(u"Update yazici set yazdirma = '0' Where id ='1'"_s);
        QFile::copy(company, company + u".first"_s);
    }

    /// A ledger and a journal as on the first day.
    void startAnew()
    {
        for (const QString &part : {u""_s, u"-wal"_s, u"-shm"_s})
            QFile::remove(company + part);
        QFile::copy(company + u".first"_s, company);
        QFile::remove(journal);
    }

    /// Every row that sales write, sorted.
    QStringList ledger()
    {
        QStringList rows;
        const auto host = shop.connect();
        for (const QString &table : {u"STKKART"_s, u"EVRAKNO"_s, u"STKFIS"_s, u"STKHAR"_s,
                                     u"STKMIZDEGER"_s, u"CARFIS"_s, u"CARKART"_s, u"CARMIZDEGER"_s,
                                     u"CARHAR"_s, u"FATFIS"_s, u"FATHAR"_s, u"FATFISTOPLAM"_s}) {
            RecordSet found = host->execute(u"select * from "_s + table);
            for (; !found.eof(); found.moveNext()) {
                QStringList fields = {table};
                for (const QString &column : found.columns())
                    fields += found.text(column);
                rows += fields.join(u'|');
            }
        }
        rows.sort();
        return rows;
    }

    /// The ledger after two sales that nothing disturbed.
    QStringList undisturbed()
    {
        startAnew();
        Counter counter(shop);
        counter.sell(kSale);
        counter.dieAt(0, false);
        counter.till.post();
        statements = counter.host->count;
        counter.sell({kSale.first()});
        counter.till.post();
        return ledger();
    }

    RealShop shop;
    const QString company = shop.program.path(u"DEMOSIRKET.yerel");
    const QString journal = shop.program.path(u"kasa.dbs");
    int statements = 0; ///< of the posting of kSale
};

} // namespace

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
