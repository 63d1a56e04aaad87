// A name search over 100,000 embedded stocks with 500 hits: the whole search of the label form,
// against the same statements executed on the same engine with their rows thrown away.

#include "big_shop.h"
#include "common/host_queries.h"
#include "labels/desk/label_desk.h"
#include "labels/desk/stock_queries.h"

#include <QElapsedTimer>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kStocks = 100'000;
constexpr int kHits = 500;

struct Shop
{
    Shop()
    {
        machine.db.setRow(u"stok"_s,
                          {{u"fiyatip"_s, u"1"_s}, {u"br1fyt"_s, u"1"_s}, {u"br2fyt"_s, u"2"_s}});
        machine.program.bag = big.openCompany();
    }

    BigShop big{kStocks};
    FakeMachine machine;
};

/// The statements of the search, bare: one search, then a barcode and a price statement per hit.
int bareStatements(HostConnection &host)
{
    RecordSet found = host.execute(stock_queries::byName(u"aranan"_s));
    QStringList codes;
    for (; !found.eof(); found.moveNext())
        codes += found.text(u"STKKOD");
    for (const QString &code : codes)
        host.execute(host_queries::barcodesOf(code));
    for (const QString &code : codes)
        host.execute(host_queries::pricesOf(code));
    return static_cast<int>(codes.size());
}

void nameSearch(benchmark::State &state)
{
    static Shop shop;
    LabelDesk desk(shop.machine.program);
    desk.loadPriceNumbers();
    qint64 searchTime = 0;
    qint64 floorTime = 0;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        desk.loader().stkcinsibul(u"aranan"_s);
        const qint64 search = timer.nsecsElapsed();
        timer.start();
        const int hits = bareStatements(*shop.machine.program.bag);
        floorTime += timer.nsecsElapsed();
        searchTime += search;
        state.SetIterationTime(static_cast<double>(search) * 1e-9);
        if (hits != kHits || desk.stocks().size() != kHits)
            state.SkipWithError("wrong number of hits");
    }
    state.counters["ratio"] = static_cast<double>(searchTime) / static_cast<double>(floorTime);
}

BENCHMARK(nameSearch)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(3);

} // namespace
