// What the till's memory costs, with the journal as a file of this machine:
//   scan         Enter to the priced line, with and without the journal (over_us)
//   postSale     posting a sale of three lines, with the journal beside without (ratio), on the
//                embedded engine and on the server that TEZGAH_TEST_ODBC names, directly and
//                through a network that delays each way by a millisecond
//   openOfAYear  opening a journal of 300,000 sales, and what the till reads of it first

#include "delay_relay.h"
#include "pairs.h"
#include "sales/journal/till_memory.h"
#include "support/real_shop.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSales = 300'000;
const QString kLedger = u"DEMO"_s;

double microseconds(qint64 nanoseconds)
{
    return static_cast<double>(nanoseconds) * 1e-3;
}

template <typename Act>
qint64 timed(Act &&act)
{
    QElapsedTimer timer;
    timer.start();
    act();
    return timer.nsecsElapsed();
}

/// A till over the demo shop; with a memory when `remembers`. Nothing is printed.
struct Counter
{
    Counter(Engine engine, bool remembers) : shop(engine)
    {
        shop.db.open(shop.program.path(u"data.dbs"_s));
        shop.db.execute(u"Update yazici set yazdirma='0'"_s);
        shop.db.close();
        shop.open();
        if (remembers)
            memory = std::make_unique<TillMemory>(shop.program, till);
        till.load();
    }

    /// Seconds of a posting of three lines; negative: it was not posted.
    double post()
    {
        for (const QString &code : {u"86933308"_s, u"8692848009608"_s, u"86916585"_s})
            till.enterCode(code);
        const double took = microseconds(timed([&] { till.post(); })) * 1e-6;
        return till.holdsGoods() ? -1.0 : took;
    }

    RealShop shop;
    TillSession till{shop.program};
    std::unique_ptr<TillMemory> memory;
};

void scan(benchmark::State &state)
{
    Counter plain(Engine::embedded, false);
    Counter remembering(Engine::embedded, true);
    QStringList codes;
    for (RecordSet row = plain.shop.connect()->execute(u"select * from STKBARKOD"_s);
         !row.eof() && codes.size() < 200; row.moveNext())
        codes += row.text(u"STKBARKOD");
    qint64 with = 0;
    qint64 without = 0;
    qsizetype stock = 0;
    for (auto _ : state) {
        const QString &code = codes.at(++stock % codes.size());
        without += timed([&] { plain.till.enterCode(code); });
        const qint64 took = timed([&] { remembering.till.enterCode(code); });
        with += took;
        state.SetIterationTime(microseconds(took) * 1e-6);
    }
    state.counters["over_us"] =
        microseconds(with - without) / static_cast<double>(state.iterations());
}

enum Road
{
    embedded,
    server,
    relayed
};

/// While it lives the test server is reached through a shop's network.
class Network
{
public:
    Network()
        : m_relay(static_cast<std::uint16_t>(parseServerName(testLogin()->server).port),
                  std::chrono::milliseconds(1))
    {
        ConnectionSettings login = *testLogin();
        login.server = u"127.0.0.1,%1"_s.arg(m_relay.port());
        qputenv(kServer, connectionString(login).toUtf8());
    }
    ~Network() { qputenv(kServer, m_direct); }
    Network(const Network &) = delete;
    Network &operator=(const Network &) = delete;

private:
    static constexpr auto kServer = "TEZGAH_TEST_ODBC";

    QByteArray m_direct = qgetenv(kServer);
    DelayRelay m_relay;
};

void postSale(benchmark::State &state)
{
    const auto road = static_cast<Road>(state.range(0));
    const auto engine = road == embedded ? Engine::embedded : Engine::server;
    if (engine == Engine::server && !testLogin()) {
        state.SkipWithError("no server: name one in TEZGAH_TEST_ODBC");
        return;
    }
    std::optional<Network> network;
    if (road == relayed)
        network.emplace();
    Counter plain(engine, false);
    Counter remembering(engine, true);
    Pairs pairs;
    for (auto _ : state) {
        const double without = plain.post();
        const double with = remembering.post();
        state.SetIterationTime(std::max(with, 1e-9));
        if (without < 0 || with < 0) {
            state.SkipWithError("not posted");
            break;
        }
        pairs.add(with, without);
    }
    pairs.report(state);
    state.counters["without_ms"] = pairs.floor() * 1e3;
    state.counters["over_ms"] = (pairs.whole() - pairs.floor()) * 1e3;
}

/// A year's sales, written as quickly as SQL can.
void fillYear(SqliteDatabase &file, QDate last)
{
    file.execute(u"BEGIN"_s);
    for (int first = 0; first < kSales; first += 10'000) {
        const QString numbers =
            u"WITH RECURSIVE n(i) AS (SELECT %1 UNION ALL SELECT i+1 FROM n WHERE i<%2) "_s.arg(
                QString::number(first + 1), QString::number(first + 10'000));
        const QString day = last.toString(Qt::ISODate);
        file.execute(
            u"INSERT INTO satis (no,an,liste,kasiyer,brut,indirim,kdv,genel,toplamlar,odeme,"
            "fis,fatura,durum,muhasebe) "_s +
            numbers +
            u"SELECT i, strftime('%Y-%m-%dT%H:%M:%S.000','%1',((i-%2)*105)||' seconds'), 0,"
            "'Ayşe',1000,0,10,1000,'10,00 0,10 10,00 0,00','nakit',i,'PF'||i,'tam','%3' FROM n"_s
                .arg(day, QString::number(kSales), kLedger));
        file.execute(u"INSERT INTO oran "_s + numbers + u"SELECT i,'1',1000,10 FROM n"_s);
        if (first < kSales - kSales / 365 * 100)
            continue; // lines of older sales are pruned
        file.execute(u"INSERT INTO kalem (satis,sira,barkod,stok,ad,aranan) "_s + numbers +
                     u"SELECT i,s.value,'869'||(i*7+s.value)%9000,'GID.'||(i*7+s.value)%9000,"
                     "'Ürün','ürün' FROM n, json_each('[1,2,3,4,5,6,7,8]') s"_s);
    }
    file.execute(u"COMMIT"_s);
}

void openOfAYear(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"kasa.dbs"_s);
    FixedClock clock;
    SqliteDatabase db;
    {
        JournalFile(db, clock, path, kLedger).open();
        db.open(path);
        fillYear(db, clock.moment.date());
        db.close();
    }
    for (auto _ : state) {
        JournalFile file(db, clock, path, kLedger);
        file.open();
        SaleJournal sales(file);
        if (!file.isOpen() || sales.openCount() != 0)
            state.SkipWithError("not open");
    }
    JournalFile file(db, clock, path, kLedger);
    file.open();
    state.counters["day_us"] =
        microseconds(timed([&] { readDays(file, clock.moment.date(), clock.moment.date()); }));
    state.counters["year_ms"] =
        microseconds(timed(
            [&] { readDays(file, clock.moment.date().addDays(-365), clock.moment.date()); })) *
        1e-3;
}

BENCHMARK(scan)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(2000);
BENCHMARK(postSale)
    ->ArgName("road")
    ->DenseRange(embedded, relayed)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(60);
BENCHMARK(openOfAYear)->Unit(benchmark::kMillisecond);

} // namespace
