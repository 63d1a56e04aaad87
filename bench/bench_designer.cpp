// The designer with three thousand elements: redrawing the canvas and one step of a drag, beside
// the bare painting of the same commands; opening and saving such a layout, beside reading and
// writing its bytes.

#include "fakes/fake_ports.h"
#include "labels/designer/canvas_view.h"
#include "labels/designer/design_editor.h"
#include "labels/designer/design_files.h"
#include "labels/designer/design_scene.h"
#include "paper/command_painter.h"
#include "paper/millimetres.h"
#include "platform/machine/profile_key_file.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kOfEach = 1000;
constexpr QSize kScreen(1000, 640); ///< pixels of the canvas
constexpr QSizeF kLabel(200, 128);  ///< mm

/// A label crowded with texts, barcodes and pictures.
Design crowded()
{
    Design design;
    design.label = kLabel;
    const auto place = [](int i, float step) {
        return LabelBox{static_cast<float>(i % 40) * 5 + step,
                        static_cast<float>(i / 40) * 5 + step, 4.8F, 4};
    };
    for (int i = 0; i < kOfEach; ++i) {
        design.layout.pictures.push_back({place(i, 0), u"a.png"_s});
        LabelBox bars = place(i, 1);
        bars.width = 30;
        design.layout.barcodes.push_back(
            {bars, {u"DejaVu Sans"_s, 6}, 0, 0, 0, u"8690000000012"_s});
        TextElement text;
        text.box = place(i, 0.5F);
        text.font = {u"DejaVu Sans"_s, 6};
        text.caption = u"Metin %1"_s.arg(i);
        design.layout.texts.push_back(text);
    }
    return design;
}

LabelRow row()
{
    return {.barcode = u"8690000000012"_s,
            .stockCode = u"K1"_s,
            .stockName = u"Ad"_s,
            .price = u"1,00"_s};
}

struct Canvas
{
    Canvas() : scene(directory.path())
    {
        QImage picture(64, 64, QImage::Format_RGB32);
        picture.fill(Qt::darkGreen);
        picture.save(directory.filePath(u"a.png"_s));
        view.fit({QPointF(), kLabel}, kScreen, 10);
        editor.load(crowded());
        scene.show(editor.layout(), row());
        image.fill(Qt::white);
    }
    void redraw(const QRectF &exposed)
    {
        QPainter painter(&image);
        painter.setClipRect(view.toPixels(exposed).toAlignedRect());
        scene.paint(painter, view, exposed);
    }

    QTemporaryDir directory;
    CanvasView view;
    DesignEditor editor;
    DesignScene scene;
    QImage image{kScreen, QImage::Format_ARGB32_Premultiplied};
};

/// The same commands, worked out beforehand, painted and nothing else.
void paintBare(Canvas &canvas, const std::vector<DrawCommand> &commands, const DeviceFonts &fonts,
               PictureStore &pictures)
{
    QPainter painter(&canvas.image);
    CommandPainter ink(painter, fonts, pictures);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(canvas.view.origin());
    const double scale = canvas.view.scale() * kMmPerInch / fonts.dpi().width();
    painter.scale(scale, scale);
    ink.paint(commands);
}

double milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void redraw(benchmark::State &state)
{
    Canvas canvas;
    const QRectF all(QPointF(), kLabel);
    const std::vector<DrawCommand> commands = canvas.scene.commands();
    const DeviceFonts fonts(canvas.scene.device());
    PictureStore pictures(canvas.directory.path());
    double floor = 0;
    double drawn = 0;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        paintBare(canvas, commands, fonts, pictures);
        floor += milliseconds(timer);
        timer.start();
        canvas.redraw(all);
        const double one = milliseconds(timer);
        drawn += one;
        state.SetIterationTime(one / 1e3);
    }
    state.counters["ratio"] = drawn / floor;
    state.counters["floor_ms"] = floor / static_cast<double>(state.iterations());
}

/// One step of the mouse with `range` elements in hand.
void dragStep(benchmark::State &state)
{
    Canvas canvas;
    const std::vector<DrawCommand> commands = canvas.scene.commands();
    const DeviceFonts fonts(canvas.scene.device());
    PictureStore pictures(canvas.directory.path());
    RefSet refs;
    for (int i = 0; i < state.range(0); ++i)
        refs.insert({ElementKind::text, static_cast<std::size_t>(i)});
    canvas.editor.select(state.range(0) == 3 * kOfEach ? RefSet::all(canvas.editor.layout())
                                                       : refs);
    const QPointF grasp(2, 2);
    canvas.editor.press({grasp, 0.5});
    double floor = 0;
    double drawn = 0;
    int step = 0;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        paintBare(canvas, commands, fonts, pictures);
        floor += milliseconds(timer);
        timer.start();
        canvas.editor.move({grasp + QPointF(1 + ++step % 20 * 0.1, 1), 0.5});
        canvas.redraw(canvas.scene.show(canvas.editor.layout(), row()));
        const double one = milliseconds(timer);
        drawn += one;
        state.SetIterationTime(one / 1e3);
    }
    state.counters["ratio"] = drawn / floor;
    state.counters["floor_ms"] = floor / static_cast<double>(state.iterations());
}

void openLayout(benchmark::State &state)
{
    const QTemporaryDir directory;
    QDir(directory.path()).mkdir(u"ayar"_s);
    FakeMachine machine(directory.path());
    ProfileKeyFile keys;
    Program program(Ports{machine.connector, machine.db, keys, machine.printers, machine.sounds,
                          machine.clock, machine.prompt},
                    directory.path());
    DesignFiles files(program.keys, program.clock, program.directory());
    const Design design = crowded();
    const QString path = directory.filePath(u"ayar/büyük.ayr"_s);
    const bool saving = state.range(0) != 0;
    files.save(u"büyük.ayr"_s, design);
    QByteArray bytes;
    double floor = 0;
    double used = 0;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        QFile file(saving ? path + u".taban"_s : path);
        if (saving && file.open(QIODevice::WriteOnly))
            file.write(bytes);
        else if (file.open(QIODevice::ReadOnly))
            bytes = file.readAll();
        file.close();
        floor += milliseconds(timer);
        timer.start();
        if (saving)
            files.save(u"büyük.ayr"_s, design);
        else
            benchmark::DoNotOptimize(files.open(u"büyük.ayr"_s));
        const double one = milliseconds(timer);
        used += one;
        state.SetIterationTime(one / 1e3);
        if (bytes.isEmpty()) {
            QFile first(path);
            if (first.open(QIODevice::ReadOnly))
                bytes = first.readAll();
        }
    }
    state.counters["ratio"] = used / floor;
    state.counters["floor_ms"] = floor / static_cast<double>(state.iterations());
    state.counters["kB"] = static_cast<double>(QFile(path).size()) / 1e3;
}

BENCHMARK(redraw)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(dragStep)->Arg(1)->Arg(1000)->Arg(3000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(openLayout)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
