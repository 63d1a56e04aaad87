// The designer's window with three thousand elements: a redraw and one step of a drag, all that the
// window does with it, beside the bare painting of the same commands; opening and saving such a
// layout, beside reading and writing its bytes.

#include "fakes/fake_ports.h"
#include "labels/designer/design_files.h"
#include "labels/designer/designer_session.h"
#include "labels/designer/forms/Form1.h"
#include "labels/designer/forms/design_canvas.h"
#include "labels/print/label_builder.h"
#include "pairs.h"
#include "paper/command_painter.h"
#include "paper/millimetres.h"
#include "platform/machine/profile_key_file.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kOfEach = 1000;
constexpr QSize kWindow(1366, 728); ///< pixels
constexpr QSizeF kLabel(200, 128);  ///< mm
constexpr qint64 kSettle = 500;     ///< milliseconds

double seconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

void report(const Pairs &pairs, benchmark::State &state)
{
    pairs.report(state);
    state.counters["least_ms"] = pairs.whole() * 1e3;
    state.counters["floor_ms"] = pairs.floor() * 1e3;
}

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

/// The designer's window with the crowded label, and the bare painting of what it shows.
struct Window
{
    Window()
    {
        QDir().mkpath(pictureFolder(directory.path()));
        QImage picture(64, 64, QImage::Format_RGB32);
        picture.fill(Qt::darkGreen);
        picture.save(pictureFolder(directory.path()) + u"/a.png"_s);
        session.editor().load(crowded());
        commands = buildLabel(session.editor().layout(), session.row(), fonts).commands;
        form.resize(kWindow);
        form.show();
        canvas = form.findChild<DesignCanvas *>();
        QElapsedTimer timer;
        timer.start();
        while (!timer.hasExpired(kSettle) || session.notices().empty())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }

    /// The same commands, worked out beforehand, painted and nothing else. Seconds.
    double paintBare()
    {
        QImage image(canvas->viewport()->size(), QImage::Format_RGB32);
        PictureStore pictures(pictureFolder(directory.path()));
        QElapsedTimer timer;
        timer.start();
        QPainter painter(&image);
        CommandPainter ink(painter, fonts, pictures);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(canvas->view().origin());
        const double scale = canvas->view().scale() * kMmPerInch / fonts.dpi().width();
        painter.scale(scale, scale);
        ink.paint(commands);
        return seconds(timer);
    }

    /// What `act` does and all that follows of it, on the screen too. Seconds.
    template <typename Act>
    double time(Act act)
    {
        QElapsedTimer timer;
        timer.start();
        act();
        QCoreApplication::processEvents();
        return seconds(timer);
    }

    void mouse(QEvent::Type type, QPointF mm)
    {
        const QPointF at = canvas->view().toPixels(mm);
        QMouseEvent event(type, at, canvas->viewport()->mapToGlobal(at), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(canvas->viewport(), &event);
    }

    const QTemporaryDir directory;
    FakeMachine machine{directory.path()};
    DesignerSession session{machine.program};
    Form1 form{session};
    DesignCanvas *canvas = nullptr;
    const DeviceFonts fonts{{600, 600}};
    std::vector<DrawCommand> commands;
};

/// Everything anew, as after a step of zoom.
void redraw(benchmark::State &state)
{
    Window window;
    Pairs pairs;
    for (auto _ : state) {
        const double bare = window.paintBare();
        const double whole = window.time([&] { window.canvas->zoomFit(); });
        pairs.add(whole, bare);
        state.SetIterationTime(whole);
    }
    report(pairs, state);
}

/// One step of the mouse with `range` elements in hand.
void dragStep(benchmark::State &state)
{
    Window window;
    RefSet refs;
    for (int i = 0; i < state.range(0); ++i)
        refs.insert({ElementKind::text, static_cast<std::size_t>(i)});
    DesignEditor &editor = window.session.editor();
    editor.select(state.range(0) == 3 * kOfEach ? RefSet::all(editor.layout()) : refs);
    const QPointF grasp(2, 2);
    window.mouse(QEvent::MouseButtonPress, grasp);
    window.mouse(QEvent::MouseMove, grasp + QPointF(3, 3));
    Pairs pairs;
    int step = 0;
    for (auto _ : state) {
        const double bare = window.paintBare();
        const double whole = window.time(
            [&] { window.mouse(QEvent::MouseMove, grasp + QPointF(3 + ++step % 20 * 0.3, 3)); });
        pairs.add(whole, bare);
        state.SetIterationTime(whole);
    }
    editor.escape();
    report(pairs, state);
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
    QFile first(path);
    const QByteArray bytes = first.open(QIODevice::ReadOnly) ? first.readAll() : QByteArray();
    Pairs pairs;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        QFile file(saving ? path + u".taban"_s : path);
        if (saving && file.open(QIODevice::WriteOnly))
            file.write(bytes);
        else if (file.open(QIODevice::ReadOnly))
            benchmark::DoNotOptimize(file.readAll());
        file.close();
        const double bare = seconds(timer);
        timer.start();
        if (saving)
            files.save(u"büyük.ayr"_s, design);
        else
            benchmark::DoNotOptimize(files.open(u"büyük.ayr"_s));
        const double whole = seconds(timer);
        pairs.add(whole, bare);
        state.SetIterationTime(whole);
    }
    report(pairs, state);
    state.counters["kB"] = static_cast<double>(bytes.size()) / 1e3;
}

BENCHMARK(redraw)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(dragStep)->Arg(1)->Arg(1000)->Arg(3000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(openLayout)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
