// Giving 5,000 stocks new EAN-13 numbers and saving them, over 100,000 embedded stocks whose ledger
// holds 2,500 of the numbers already: the whole work of the number desk, against the same
// statements executed bare on the same engine.

#include "big_shop.h"
#include "labels/desk/label_desk.h"
#include "pairs.h"
#include "recorded_host.h"

#include <QElapsedTimer>

#include <benchmark/benchmark.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kStocks = 100'000;
constexpr int kNumbers = 5'000;
constexpr int kTaken = 2'500;

/// The shop's own barcodes run to 8690000099999, so every base up to this one is taken.
constexpr qint64 kLastTakenBase = 869'000'009'999;

struct Shop
{
    Shop()
    {
        machine.db.setRow(u"stok"_s,
                          {{u"fiyatip"_s, u"1"_s}, {u"br1fyt"_s, u"1"_s}, {u"br2fyt"_s, u"2"_s}});
        auto recorded = std::make_unique<RecordedHost>(big.openCompany());
        host = recorded.get();
        machine.program.bag = std::move(recorded);
    }

    BigShop big{kStocks};
    FakeMachine machine;
    RecordedHost *host = nullptr;
};

/// A stock list of stocks without a barcode, as a search leaves it, gathered into the queue.
void gather(LabelDesk &desk)
{
    std::vector<StockRow> rows;
    for (int i = 0; i < kNumbers; ++i)
        rows.push_back({.barcode = {},
                        .code = u"YENI%1"_s.arg(i, 6, 10, QChar(u'0')),
                        .name = u"Yeni ürün %1"_s.arg(i),
                        .unitName = u"ADET"_s,
                        .price = u"12,50"_s});
    desk.clearQueue();
    desk.stocks().clear();
    desk.stocks().append(rows);
    for (int row = 0; row < kNumbers; ++row)
        desk.stocks().barcodeRead(row);
    desk.ekbartum();
}

/// The replay writes the same numbers again.
void removeNumbers(HostConnection &host)
{
    host.execute(u"DELETE FROM STKBARKOD where STKBARSTKKOD LIKE 'YENI%'"_s);
}

void generateAndSave(benchmark::State &state)
{
    static Shop shop;
    LabelDesk desk(shop.machine.program);
    desk.loadPriceNumbers();
    const QString base = QString::number(kLastTakenBase - kTaken);
    Pairs pairs;
    for (auto _ : state) {
        gather(desk);
        shop.host->statements.clear();
        shop.host->recording = true;
        QElapsedTimer timer;
        timer.start();
        desk.numbers().generate(base);
        desk.numbers().brgnc();
        const double took = static_cast<double>(timer.nsecsElapsed()) * 1e-9;
        state.SetIterationTime(took);
        shop.host->recording = false;
        removeNumbers(*shop.host);

        timer.start();
        for (const QString &statement : std::as_const(shop.host->statements))
            shop.host->execute(statement);
        pairs.add(took, static_cast<double>(timer.nsecsElapsed()) * 1e-9);
        removeNumbers(*shop.host);
        if (desk.numbers().isOn() || shop.host->statements.size() != kTaken + 2 * kNumbers) {
            state.SkipWithError("not all numbers were given and saved");
            break;
        }
    }
    pairs.report(state);
    state.counters["statements"] = static_cast<double>(shop.host->statements.size());
}

BENCHMARK(generateAndSave)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(3);

} // namespace
