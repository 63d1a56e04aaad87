#include "common/settings_database.h"
#include "sales/till_session.h"
#include "support/cases.h"
#include "support/golden.h"
#include "support/print_qt.h"
#include "support/real_shop.h"

#include <QDir>
#include <QElapsedTimer>

#include <gtest/gtest.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

const QString kOilBarcode = u"8688107052881"_s; // GID.0015: 1.959,00, class 1 (1 %)
const QString kDiscounted = u"GID.0004"_s;      // 100,90, discounts 25 + 10 + 5, class 1
const QString kTowel = u"TEM.0011"_s;           // 201,50, discount 7,5, class 3 (20 %)
const QString kCabbage = u"MNV.0011"_s;         // 26,95 a kilogram, class 1

/// The host as the program knows it, with an eye on what goes by.
class WatchedHost final : public HostConnection
{
public:
    explicit WatchedHost(std::unique_ptr<HostConnection> host) : m_host(std::move(host)) {}

    int state() const override { return m_host->state(); }
    RecordSet execute(const QString &statement) override
    {
        if (before)
            before(statement);
        try {
            return m_host->execute(statement);
        } catch (const HostError &) {
            failed += statement;
            throw;
        }
    }

    std::function<void(const QString &)> before;
    QStringList failed;

private:
    std::unique_ptr<HostConnection> m_host;
};

WatchedHost &watch(Program &program)
{
    auto host = std::make_unique<WatchedHost>(std::move(program.bag));
    WatchedHost &watched = *host;
    program.bag = std::move(host);
    return watched;
}

/// A second program on the working folder of the first.
struct SecondTill : RealMachine
{
    explicit SecondTill(const QString &directory) : RealMachine(directory)
    {
        open();
        QObject::connect(&till.work(), &TillWork::boxWaits, &till.work(), &TillWork::openBoxes);
        till.load();
    }

    TillSession till{program};
};

struct TillRoad : testing::TestWithParam<Engine>
{
    void SetUp() override
    {
        if (GetParam() == Engine::server)
            SKIP_WITHOUT_SERVER();
        shop.open();
        other = shop.connect();
        till.load();
        QObject::connect(&till.work(), &TillWork::boxWaits, &till.work(), &TillWork::openBoxes);
        QObject::connect(&till, &TillSession::postedIncompletely,
                         [this](const PostingReport &told) { reports.push_back(told); });
    }

    static void sell(TillSession &session, const QStringList &codes)
    {
        using Mode = TillSession::EntryMode;
        for (const QString &code : codes) {
            const Mode mode = code.contains(u'.') ? Mode::stockCode : Mode::barcode;
            if (session.entryMode() != mode)
                session.toggleEntryMode();
            session.enterCode(code);
        }
    }

    /// Rows as a second connection reads them, "|" between the fields of each.
    QStringList rows(const QString &from, const QString &columns)
    {
        RecordSet found = other->execute(u"select %1 from %2"_s.arg(columns, from));
        QStringList lines;
        for (; !found.eof(); found.moveNext()) {
            QStringList fields;
            for (const QString &column : columns.split(u','))
                fields += found.text(column);
            lines += fields.join(u'|');
        }
        return lines;
    }

    int count(const QString &table)
    {
        return static_cast<int>(other->execute(u"select * from "_s + table).rowCount());
    }

    RealShop shop{GetParam()};
    std::unique_ptr<HostConnection> other;
    TillSession till{shop.program};
    std::vector<PostingReport> reports;
};

/// An embedded database has no connection to lose.
struct ServerTill : TillRoad
{};

} // namespace

TEST_P(TillRoad, ASaleStandsInEveryTableOfTheLedger)
{
    WatchedHost &host = watch(shop.program);
    till.setCashier({u"P01"_s, u"Ayşe Gündoğdu"_s});
    sell(till, {kOilBarcode, kDiscounted, kOilBarcode, kTowel, kCabbage, u"yok"_s});
    ASSERT_EQ(till.list(0).size(), 4);
    till.selectRow(0, 3);
    EXPECT_EQ(till.miktargir(u"1,2"_s), QString());
    till.selectRow(0, 0);
    EXPECT_EQ(till.miktarekle(u"1"_s), QString());
    till.setCash(0, u"6.200"_s);
    EXPECT_EQ(till.totals(0).grand, u"6.160,43"_s);
    EXPECT_EQ(till.totals(0).vat, u"97,02"_s);
    EXPECT_EQ(till.change(0), u"39,57"_s);
    till.post();
    EXPECT_EQ(host.failed, QStringList());
    EXPECT_TRUE(shop.prompt.shown.empty());
    EXPECT_TRUE(till.list(0).isEmpty());
    EXPECT_EQ(QDir(shop.program.path(u"cikti")).entryList({u"Fiş-*.pdf"_s}).size(), 1);

    QString ledger;
    for (const Case &c : cases(u"ledger"_s)) {
        const QString columns =
            QString(c.value(1))
                .replace(u"<line>"_s,
                         u"@STKKOD,@MIKTAR,@FIYAT,@TUTAR,@KDVYUZ,@TOPLAMIND,@ISKYUZ2,@KDVTUTAR,"
                         "@NETTUTAR,@SIRANO"_s);
        ledger += c.value(0) + u'\n' +
                  rows(c.value(0), QString(columns).replace(u'@', c.value(0).left(6))).join(u'\n') +
                  u"\n\n"_s;
    }
    expectGolden(u"acceptance/ledger.txt"_s, ledger);

    till.post(); // nothing is left to post
    EXPECT_EQ(count(u"STKFIS"_s), 1);
    EXPECT_EQ(count(u"STKHAR"_s), 4);

    // The next sale of the month adds to the month's figures.
    sell(till, {kOilBarcode});
    till.post();
    EXPECT_EQ(rows(u"STKMIZDEGER where STKYIL='2026' AND STKAY='3'AND STKKOD='GID.0015'"_s,
                   u"STKALACAK"_s),
              QStringList({u"4"_s, u"7836"_s, u"0"_s, u"7836"_s}));
    EXPECT_EQ(rows(u"FATFIS where FATFISREFNO='47'"_s, u"FATFISEVRAKNO1,FATFISKDVORANI"_s),
              QStringList{u"PF000427|1"_s});
    EXPECT_EQ(host.failed, QStringList());
}

TEST_P(TillRoad, AnApostropheInANameCostsOnlyItsOwnStatements)
{
    other->execute(u"INSERT INTO STKKART (STKKOD,STKCINSI,STKBIRIM,STKBAKIYE) values "
                   "('OZL.1','Ali''nin Balı','ADET','10')"_s);
    other->execute(u"INSERT INTO STKBARKOD (STKBARKOD,STKBARSTKKOD) values ('4711','OZL.1')"_s);
    other->execute(u"INSERT INTO STKFIYAT (STKFIYSTKKOD,STKFIYNO,STKFIYTUTAR,STKFIYKDVNO) values "
                   "('OZL.1','1','1250.50','1')"_s);
    WatchedHost &host = watch(shop.program);
    sell(till, {u"4711"_s, kTowel, u"8'6"_s});
    ASSERT_EQ(till.list(0).size(), 2);
    EXPECT_EQ(till.list(0).line(0)[SaleColumn::name], u"Ali'nin Balı"_s);
    host.failed.clear();
    till.post();

    ASSERT_EQ(host.failed.size(), 2);
    EXPECT_TRUE(host.failed[0].startsWith(u"INSERT INTO STKHAR "_s));
    EXPECT_TRUE(host.failed[1].startsWith(u"INSERT INTO FATHAR "_s));
    ASSERT_EQ(reports.size(), 1U);
    ASSERT_EQ(reports[0].lines.size(), 2);
    EXPECT_TRUE(reports[0].lines[0].startsWith(u"Stok hareketi OZL.1, 1. satır: yazılamadı"_s));
    EXPECT_TRUE(reports[0].lines[1].startsWith(u"Fatura satırı OZL.1, 1. satır: yazılamadı"_s));
    EXPECT_EQ(rows(u"STKHAR"_s, u"STKHARSTKKOD"_s), QStringList{kTowel});
    EXPECT_EQ(rows(u"FATHAR where FATHARREFNO='46'"_s, u"FATHARSTKKOD"_s), QStringList{kTowel});
    EXPECT_EQ(rows(u"STKKART where STKKOD='OZL.1'"_s, u"STKBAKIYE"_s), QStringList{u"9"_s});
    EXPECT_EQ(rows(u"FATFIS where FATFISREFNO='46'"_s, u"FATFISGENTOPLAM"_s),
              QStringList{u"1436,89"_s});
}

/// Both tills draw the same reference numbers: the second slip of a number is refused and told,
/// everything else of both sales stands.
TEST_P(TillRoad, AnotherTillPostsInTheMiddleOfAPosting)
{
    SecondTill second(shop.folder.path());
    sell(till, {kOilBarcode});
    sell(second.till, {kTowel});
    WatchedHost &host = watch(shop.program);
    host.before = [&](const QString &statement) {
        if (statement.startsWith(u"INSERT INTO STKFIS "_s))
            second.till.post();
    };
    till.post();

    EXPECT_TRUE(second.prompt.shown.empty());
    ASSERT_EQ(host.failed.size(), 1);
    EXPECT_TRUE(host.failed[0].startsWith(u"INSERT INTO STKFIS "_s));
    EXPECT_EQ(reports.size(), 1U);
    EXPECT_EQ(rows(u"STKFIS"_s, u"STKFISTOPNTUT"_s), QStringList{u"186,39"_s});
    EXPECT_EQ(count(u"STKHAR"_s), 2);
    EXPECT_EQ(rows(u"FATFIS where FATFISREFNO>'45'"_s, u"FATFISREFNO,FATFISGENTOPLAM"_s),
              QStringList({u"46|186,39"_s, u"47|1959"_s}));
    EXPECT_EQ(rows(u"CARKART where CARKOD='120.00.001'"_s, u"CARBAKIYE"_s),
              QStringList{u"2145,39"_s});
}

/// What was written stays written, the cashier is told what is missing, and the next sale is whole.
TEST_P(ServerTill, AConnectionLostInTheMiddleIsTold)
{
    const QString session = shop.program.bag->execute(u"select @@SPID AS NO"_s).text(u"NO");
    sell(till, {kOilBarcode, kTowel});
    WatchedHost &host = watch(shop.program);
    host.before = [&](const QString &statement) {
        if (statement.startsWith(u"INSERT INTO CARFIS "_s))
            other->execute(u"KILL "_s + session);
    };
    till.post();
    EXPECT_FALSE(Program::isOpen(shop.program.bag));
    ASSERT_EQ(shop.prompt.shown.size(), 1U);
    EXPECT_TRUE(shop.prompt.shown[0].text.contains(u"Bağlantısı Kurulamıyor"_s));
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_TRUE(reports[0].lines.join(u'|').contains(u"Cari fişi CF000742: yazılmamış olabilir"_s));
    EXPECT_EQ(count(u"STKHAR"_s), 2);
    EXPECT_EQ(count(u"CARFIS"_s) + count(u"FATHAR where FATHARREFNO='46'"_s), 0);

    shop.open();
    sell(till, {kTowel});
    till.post();
    EXPECT_EQ(reports.size(), 1U);
    EXPECT_EQ(count(u"STKHAR"_s), 3);
    EXPECT_EQ(count(u"CARHAR"_s), 1);
}

TEST_P(TillRoad, TwoTillsPostAtOnceWithoutHanging)
{
    constexpr int sales = 8;
    {
        const OpenDatabase open(shop.program.files(), settings::kFile);
        shop.db.execute(u"Update yazici set yazdirma = '0' Where id ='1'"_s);
    }
    shop.printers.names(); // Qt makes its printer support on first use, and only one thread may
    const auto work = [&](const QStringList &codes) {
        SecondTill second(shop.folder.path());
        for (int i = 0; i < sales; ++i) {
            sell(second.till, codes);
            second.till.post();
            EXPECT_TRUE(second.till.list(0).isEmpty());
        }
    };
    QElapsedTimer timer;
    timer.start();
    std::thread first(work, QStringList{kOilBarcode, kTowel});
    std::thread second(work, QStringList{kDiscounted, kCabbage});
    first.join();
    second.join();
    EXPECT_LT(timer.elapsed(), 60'000);
    // Lines have no key of their own: none of them is lost.
    EXPECT_EQ(count(u"STKHAR"_s), 4 * sales);
    EXPECT_EQ(count(u"CARHAR"_s), 2 * sales);
}

INSTANTIATE_TEST_SUITE_P(, TillRoad, testing::Values(Engine::embedded, Engine::server), engineName);

INSTANTIATE_TEST_SUITE_P(, ServerTill, testing::Values(Engine::server), engineName);
