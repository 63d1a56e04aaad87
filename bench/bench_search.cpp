// Searches of the label form: 500 hits of a name among 100,000 stocks, and the lists of 2,500 and
// of 100,000. Each stands against the same statements sent bare in batches of fifty ("ratio") and
// one by one ("times_faster"; of long lists a part is measured). The roads: the embedded engine,
// and where TEZGAH_TEST_ODBC names a server, that server directly and through a network that delays
// each way by a millisecond.

#include "big_shop.h"
#include "common/host_queries.h"
#include "delay_relay.h"
#include "labels/desk/label_desk.h"
#include "labels/desk/stock_queries.h"
#include "pairs.h"
#include "server_shop.h"

#include <QElapsedTimer>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <limits>
#include <malloc.h>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int kHits = 500;
constexpr int kBatch = 50;
constexpr qsizetype kMostSingly = 2000; ///< statements sent one by one
constexpr double kNever = std::numeric_limits<double>::infinity();

/// Tells when the first answer was there.
class WatchedHost final : public HostConnection
{
public:
    explicit WatchedHost(std::unique_ptr<HostConnection> host) : m_host(std::move(host)) {}
    int state() const override { return m_host->state(); }
    RecordSet execute(const QString &statement) override
    {
        RecordSet rows = m_host->execute(statement);
        if (!sinceAnswer.isValid())
            sinceAnswer.start();
        return rows;
    }
    void executeAll(const QStringList &statements, std::vector<RecordSet> &answers) override
    {
        m_host->executeAll(statements, answers);
    }

    QElapsedTimer sinceAnswer;

private:
    std::unique_ptr<HostConnection> m_host;
};

enum Road
{
    embedded,
    server,
    relayed
};

/// Megabytes that this process has asked for and not given back.
double memory()
{
    const struct mallinfo2 heap = ::mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd) / 1e6;
}

struct Shop
{
    Shop(Road road, int stocks)
    {
        machine.db.setRow(u"stok"_s,
                          {{u"fiyatip"_s, u"1"_s}, {u"br1fyt"_s, u"1"_s}, {u"br2fyt"_s, u"2"_s}});
        if (road == embedded) {
            files.emplace(stocks);
            connect(files->openCompany());
            return;
        }
        books.emplace(stocks);
        if (road == relayed)
            network.emplace(books->port(), std::chrono::milliseconds(1));
        connect(books->open(network ? network->port() : books->port()));
    }

    void connect(std::unique_ptr<HostConnection> connection)
    {
        auto watched = std::make_unique<WatchedHost>(std::move(connection));
        host = watched.get();
        machine.program.bag = std::move(watched);
    }

    std::optional<BigShop> files;
    std::optional<ServerShop> books;
    std::optional<DelayRelay> network;
    FakeMachine machine;
    WatchedHost *host = nullptr;
};

/// The statements of the passes over what a search found.
QStringList passesOver(HostConnection &host, const QString &search)
{
    QStringList codes;
    for (RecordSet found = host.execute(search); !found.eof(); found.moveNext())
        codes += found.text(u"STKKOD");
    QStringList statements;
    for (const QString &code : codes)
        statements += host_queries::barcodesOf(code);
    for (const QString &code : codes)
        statements += host_queries::pricesOf(code);
    return statements;
}

double seconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) * 1e-9;
}

double inBatches(HostConnection &host, const QString &search, const QStringList &passes)
{
    QElapsedTimer timer;
    timer.start();
    host.execute(search);
    for (qsizetype at = 0; at < passes.size(); at += kBatch) {
        std::vector<RecordSet> answers;
        host.executeAll(passes.mid(at, kBatch), answers);
    }
    return seconds(timer);
}

double oneByOne(HostConnection &host, const QString &search, const QStringList &passes)
{
    QElapsedTimer timer;
    timer.start();
    host.execute(search);
    const double found = seconds(timer);
    const qsizetype part = std::min(passes.size(), kMostSingly);
    for (qsizetype i = 0; i < part; ++i)
        host.execute(passes.at(i * passes.size() / part));
    return found + (seconds(timer) - found) * static_cast<double>(passes.size()) /
                       static_cast<double>(std::max<qsizetype>(part, 1));
}

void search(benchmark::State &state)
{
    const auto road = static_cast<Road>(state.range(0));
    const auto stocks = static_cast<int>(state.range(1));
    const bool byName = state.range(2) != 0;
    if (road != embedded && !testLogin()) {
        state.SkipWithError("no server: name one in TEZGAH_TEST_ODBC");
        return;
    }
    static std::optional<Shop> shop; // one at a time: they are large
    static std::pair<Road, int> made;
    if (!shop || made != std::pair(road, stocks)) {
        shop.emplace(road, stocks);
        made = {road, stocks};
    }
    const QString statement =
        byName ? host_queries::cardsByName(u"aranan"_s) : stock_queries::all();
    Pairs pairs;
    double singly = kNever;
    double first = kNever;
    double held = 0;
    for (auto _ : state) {
        const QStringList passes = passesOver(*shop->host, statement);
        const double batches = inBatches(*shop->host, statement, passes);
        singly = std::min(singly, oneByOne(*shop->host, statement, passes));
        const double before = memory();
        LabelDesk desk(shop->machine.program);
        desk.loadPriceNumbers();
        shop->host->sinceAnswer.invalidate();
        double firstRows = kNever;
        // The windows are drawn right behind the progress that is told.
        QObject::connect(&desk, &LabelDesk::progressed, [&] {
            firstRows = std::min(firstRows, seconds(shop->host->sinceAnswer));
        });
        QElapsedTimer timer;
        timer.start();
        if (byName)
            desk.loader().stkcinsibul(u"aranan"_s);
        else
            desk.loader().listele();
        const double took = seconds(timer);
        state.SetIterationTime(took);
        pairs.add(took, batches);
        first = std::min({first, firstRows, seconds(shop->host->sinceAnswer)});
        held = std::max(held, memory() - before);
        if (desk.stocks().size() != (byName ? kHits : stocks))
            state.SkipWithError("wrong number of rows");
    }
    pairs.report(state);
    state.counters["times_faster"] = singly / pairs.whole();
    state.counters["first_rows_ms"] = first * 1e3;
    state.counters["held_MB"] = held;
}

void cases(benchmark::internal::Benchmark *bench)
{
    bench->ArgNames({"road", "stocks", "name"});
    for (const int road : {embedded, server, relayed}) {
        bench->Args({road, 100'000, 1});
        bench->Args({road, 100'000, 0});
        bench->Args({road, 2'500, 0});
    }
}

BENCHMARK(search)->Apply(cases)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(5);

} // namespace
