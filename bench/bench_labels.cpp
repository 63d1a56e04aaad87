// Label sheets to PDF: the whole run as the shop makes it, against a floor that paints the same
// bars and texts, worked out beforehand, straight onto a QPdfWriter.

#include "fakes/fake_ports.h"
#include "labels/print/label_builder.h"
#include "labels/print/print_run.h"
#include "labels/print/sheet_grid.h"
#include "pairs.h"
#include "paper/millimetres.h"
#include "platform/printing/page_setup.h"
#include "platform/printing/pdf_document.h"
#include "platform/printing/system_printers.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr double kDpi = PdfDocument::kResolution;

TextElement text(const LabelBox &box, double size, const QString &alignment, const QString &field)
{
    TextElement element;
    element.box = box;
    element.font = {u"DejaVu Sans"_s, size};
    element.alignment = alignment;
    element.field = field;
    element.caption = field;
    return element;
}

/// 24 labels to the A4, each with one EAN-13 and three texts.
LabelLayout shelfLabels()
{
    LabelLayout layout;
    layout.barcodes = {{{4, 20, 38, 14}, {u"DejaVu Sans"_s, 7}, 0, 0, 0, {}}};
    layout.texts = {text({4, 3, 62, 9}, 10, u"1"_s, u"Stok Adı"_s),
                    text({4, 11, 52, 9}, 20, u"3"_s, u"Fiyat"_s),
                    text({44, 29, 22, 3}, 7, u"3"_s, u"Stok Kodu"_s)};
    layout.paperWidth = u"210"_s;
    layout.paperHeight = u"297"_s;
    layout.orientation = u"1"_s;
    layout.paperCode = u"9"_s;
    layout.printer = kPdfPrinter.toString();
    layout.stepX = u"70"_s;
    layout.stepY = u"37,125"_s;
    layout.across = u"3"_s;
    layout.down = u"8"_s;
    return layout;
}

/// Rows that are all different, one label each: nothing can be reused from label to label.
std::vector<LabelRow> makeRows(int labels)
{
    const QStringList names = {u"Köy Peyniri Tam Yağlı"_s, u"Ayran"_s, u"Çiğ Fındık İçi"_s,
                               u"Şeftali Suyu Meyve Karışık Ekonomik Boy"_s};
    std::vector<LabelRow> rows;
    for (int i = 0; i < labels; ++i)
        rows.push_back({ean::checkDigit(QString::number(869000000000 + i * 37LL)),
                        u"STK%1"_s.arg(i, 6, 10, QChar(u'0')),
                        u"%1 %2 g"_s.arg(names[i % names.size()]).arg(i),
                        u"%1,%2"_s.arg(i % 900 + 1).arg(i % 90 + 10), 1});
    return rows;
}

/// What the floor paints, in dots.
struct Primitives
{
    struct Text
    {
        QPointF at;
        const QFont *font;
        QString text;
    };
    struct Label
    {
        bool newPage = false;
        std::vector<QRect> bars;
        std::vector<Text> texts;
    };
    DeviceFonts fonts{{kDpi, kDpi}};
    QFont digits;
    std::vector<Label> labels;
};

void addBars(const BarsCommand &bars, QPointF origin, const Primitives &all,
             Primitives::Label &label)
{
    const auto geometry = fitBars(bars.symbol, bars.box.translated(origin), {kDpi, kDpi});
    const int guards = geometry->module * kGuardDepth;
    label.bars = barRectangles(bars.symbol, *geometry, geometry->bottom - guards, geometry->bottom);
    const QString &digits = bars.symbol.digits;
    label.texts.push_back(
        {QPointF(geometry->x(-8), geometry->bottom), &all.digits, digits.left(1)});
    label.texts.push_back(
        {QPointF(geometry->x(8), geometry->bottom), &all.digits, digits.mid(1, 6)});
    label.texts.push_back({QPointF(geometry->x(54), geometry->bottom), &all.digits, digits.mid(7)});
}

Primitives makePrimitives(const PrintJob &job)
{
    Primitives all;
    all.digits = all.fonts.find({u"DejaVu Sans"_s, 7}).font();
    LabelBuilder builder(job, all.fonts);
    GridWalk walk(job.grid);
    for (const LabelRow &row : job.rows) {
        const GridWalk::Place place = walk.next();
        const QPointF origin(static_cast<double>(place.x), static_cast<double>(place.y));
        Primitives::Label label;
        label.newPage = place.newPage;
        for (const DrawCommand &command : builder.label(row).commands) {
            if (const auto *bars = std::get_if<BarsCommand>(&command.shape))
                addBars(*bars, origin, all, label);
            if (const auto *line = std::get_if<TextCommand>(&command.shape)) {
                const DeviceFont &font = all.fonts.find(line->font);
                const QPointF at = toDots(line->at + origin, {kDpi, kDpi});
                label.texts.push_back({at + QPointF(0, font.ascent()), &font.font(), line->text});
            }
        }
        all.labels.push_back(std::move(label));
    }
    return all;
}

void paintFloor(const Primitives &all, const QString &file)
{
    QPdfWriter writer(file);
    writer.setResolution(PdfDocument::kResolution);
    writer.setPageLayout(pageLayout(printerSetup(shelfLabels(), {})));
    QPainter painter(&writer);
    for (const auto &label : all.labels) {
        if (label.newPage)
            writer.newPage();
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::black);
        painter.drawRects(label.bars.data(), static_cast<int>(label.bars.size()));
        painter.setPen(Qt::black);
        for (const auto &one : label.texts) {
            painter.setFont(*one.font);
            painter.drawText(one.at, one.text);
        }
    }
}

double seconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

void labelsToPdf(benchmark::State &state)
{
    const int labels = static_cast<int>(state.range(0));
    const QTemporaryDir directory;
    FakeMachine machine;
    SystemPrinters printers(directory.path(), machine.clock);
    Program program(Ports{machine.connector, machine.db, machine.keys, printers, machine.sounds,
                          machine.clock, machine.prompt},
                    directory.path());
    PrintRun run(program);
    bool printed = false;
    QObject::connect(&run, &PrintRun::problemsFound, [&run] { run.answer(true); });
    QObject::connect(&run, &PrintRun::finished, [&printed](bool done) { printed = done; });
    const LabelLayout layout = shelfLabels();
    saveLayout(machine.keys, program.path(u"ayar/raf.ayr"), layout);
    const PrintRequest request = {PrintMode::all, makeRows(labels)};

    const Primitives floor = makePrimitives(makePrintJob(layout, request.rows));
    Pairs pairs;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        paintFloor(floor, directory.filePath(u"floor.pdf"_s));
        const double floorTime = seconds(timer);
        timer.start();
        printed = false;
        run.yazzzz(request, u"raf.ayr"_s);
        if (!printed)
            state.SkipWithError("not printed");
        const double engine = seconds(timer);
        pairs.add(engine, floorTime);
        state.SetIterationTime(engine);
    }

    const auto files = QDir(directory.filePath(u"cikti"_s)).entryInfoList(QDir::Files);
    pairs.report(state);
    state.counters["us_per_label"] = pairs.whole() * 1e6 / labels;
    state.counters["kB"] = files.isEmpty() ? 0.0 : static_cast<double>(files.first().size()) / 1e3;
    state.counters["floor_kB"] =
        static_cast<double>(QFile(directory.filePath(u"floor.pdf"_s)).size()) / 1e3;
}

BENCHMARK(labelsToPdf)
    ->Arg(100)
    ->Arg(1'000)
    ->Arg(10'000)
    ->UseManualTime()
    ->Iterations(15)
    ->Unit(benchmark::kMillisecond);

} // namespace
