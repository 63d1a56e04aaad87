// The till over 100,000 embedded stocks. Each figure stands against the bare statements of the same
// step, executed on the same engine with their rows thrown away:
//   enterToLine  Enter to the priced line with its totals, on lists of 5 and 500 lines
//   postSale     posting a sale of 20 lines
// and, without a floor, totals after a change in a list of 2,000 lines.

#include "big_shop.h"
#include "common/host_queries.h"
#include "pairs.h"
#include "recorded_host.h"
#include "sales/till_session.h"

#include <QElapsedTimer>

#include <benchmark/benchmark.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kStocks = 100'000;

struct Shop
{
    Shop()
    {
        machine.db.setRow(u"stok"_s, {{u"fiyatip"_s, u"1"_s},
                                      {u"depo"_s, u"01"_s},
                                      {u"carikod"_s, u"120.00.001"_s},
                                      {u"stkfistip"_s, u"3"_s},
                                      {u"crfistip"_s, u"4"_s},
                                      {u"ftfistip"_s, u"3"_s}});
        machine.program.kdvtab[1] = {QString(), u"5"_s, u"1"_s};
        auto recorded = std::make_unique<RecordedHost>(big.openCompany());
        host = recorded.get();
        machine.program.bag = std::move(recorded);
    }

    BigShop big{kStocks};
    FakeMachine machine;
    RecordedHost *host = nullptr;
};

Shop &shop()
{
    static Shop only;
    return only;
}

double seconds(qint64 nanoseconds)
{
    return static_cast<double>(nanoseconds) * 1e-9;
}

void fill(TillSession &till, int lines)
{
    for (int stock = 0; stock < lines; ++stock)
        till.enterCode(BigShop::barcode(stock));
}

void bareLookup(HostConnection &host, int stock)
{
    host.execute(host_queries::barcode(BigShop::barcode(stock)));
    host.execute(host_queries::card(BigShop::code(stock)));
    host.execute(host_queries::pricesOf(BigShop::code(stock)));
}

/// The list grows by one line per look-up and is brought back, outside the clock.
void enterToLine(benchmark::State &state)
{
    const int lines = static_cast<int>(state.range(0));
    TillSession till(shop().machine.program);
    QObject::connect(&till.work(), &TillWork::boxWaits, &till.work(), &TillWork::openBoxes);
    till.load();
    fill(till, lines);
    shop().machine.prompt.answers.clear();
    qint64 total = 0;
    qint64 floor = 0;
    int stock = 1000;
    for (auto _ : state) {
        stock = 1000 + (stock * 7919) % (kStocks - 1000);
        QElapsedTimer timer;
        timer.start();
        bareLookup(*shop().host, stock);
        floor += timer.nsecsElapsed();
        const int next = 1000 + (stock + 1) % (kStocks - 1000);
        timer.start();
        till.enterCode(BigShop::barcode(next));
        const qint64 took = timer.nsecsElapsed();
        total += took;
        state.SetIterationTime(seconds(took));
        if (till.list(0).size() != lines + 1) {
            state.SkipWithError("no line");
            break;
        }
        shop().machine.prompt.answers = {Answer::yes};
        till.sil();
        till.work().openBoxes(); // its question waits until nobody types
    }
    const double count = static_cast<double>(state.iterations());
    state.counters["floor_us"] = seconds(floor) * 1e6 / count;
    state.counters["over_us"] = seconds(total - floor) * 1e6 / count;
}

/// Every sale is posted once by the till and its statements are replayed bare on a twin of the
/// shop. On the same one they would write what stands there already, which the engine does not even
/// store.
void postSale(benchmark::State &state)
{
    constexpr int lines = 20;
    Program &program = shop().machine.program;
    TillSession till(program);
    till.load();
    fill(till, lines);
    Sale sale;
    sale.lines = till.list(0).lines();
    sale.totals = till.totals(0);
    sale.moment = shop().machine.clock.moment;
    const Settings settings = oku(program.files());
    static const BigShop twin(kStocks);
    static const auto twinHost = twin.openCompany();

    Pairs pairs;
    for (auto _ : state) {
        shop().host->statements.clear();
        shop().host->recording = true;
        QElapsedTimer timer;
        timer.start();
        PostingProgress progress;
        const PostingResult result = faturakaydet(program, settings, sale, progress);
        const double took = seconds(timer.nsecsElapsed());
        state.SetIterationTime(took);
        shop().host->recording = false;
        if (result.missing() > 0) {
            state.SkipWithError("a statement failed");
            break;
        }
        timer.start();
        for (const QString &statement : std::as_const(shop().host->statements))
            twinHost->execute(statement);
        pairs.add(took, seconds(timer.nsecsElapsed()));
    }
    pairs.report(state);
    state.counters["statements"] = static_cast<double>(shop().host->statements.size());
}

void totalsOfLongList(benchmark::State &state)
{
    TillSession till(shop().machine.program);
    till.load();
    fill(till, 2000);
    till.selectRow(0, 1000);
    bool two = false;
    for (auto _ : state) {
        two = !two;
        if (!till.miktargir(two ? u"2"_s : u"1"_s).isEmpty())
            state.SkipWithError("refused");
    }
}

BENCHMARK(enterToLine)->Arg(5)->Arg(500)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(postSale)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(30);
BENCHMARK(totalsOfLongList)->Unit(benchmark::kMicrosecond);

} // namespace
