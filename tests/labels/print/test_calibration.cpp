#include "labels/print/calibration_sheet.h"
#include "labels/print/print_desk.h"
#include "paper/millimetres.h"
#include "paper/paged_canvas.h"
#include "support/print_qt.h"

#include <QImage>

#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr double kDpi = 300;

/// A printer that cannot reach the first millimetres of its paper, and misses besides: what is
/// drawn at a place lands there times `scale`, moved by `off` (mm).
struct BadPrinter
{
    QPointF unreached;
    QPointF off;
    double scale;

    /// Its sheet of paper.
    QImage print(const CalibrationSheet &sheet, QSizeF area, const Calibration &calibration) const
    {
        const QSizeF paper = area + QSizeF(2 * unreached.x(), 2 * unreached.y());
        QImage image((paper * kDpi / kMmPerInch).toSize(), QImage::Format_Grayscale8);
        image.fill(Qt::white);
        const DeviceFonts fonts({kDpi, kDpi});
        PictureStore pictures({});
        QPainter painter(&image);
        painter.translate((unreached + off) * kDpi / kMmPerInch);
        painter.scale(scale, scale);
        CommandPainter commands(painter, fonts, pictures);
        paintCalibrated(commands, sheet.commands, {}, calibration);
        return image;
    }
};

/// Where the longest line of dots stands in a part of an image, and its ends; `down`: a standing
/// one. Dots.
struct Line
{
    double at = 0;
    int from = 0;
    int to = 0;
};
Line longestLine(const QImage &page, const QRect &part, bool down)
{
    std::vector<std::pair<int, int>> counts; // of dots, and where
    for (int a = down ? part.left() : part.top(); a <= (down ? part.right() : part.bottom()); ++a) {
        int dots = 0;
        for (int b = down ? part.top() : part.left(); b <= (down ? part.bottom() : part.right());
             ++b)
            dots += qGray(down ? page.pixel(a, b) : page.pixel(b, a)) < 128 ? 1 : 0;
        counts.emplace_back(dots, a);
    }
    const auto [most, at] = *std::max_element(counts.begin(), counts.end());
    Line line{at + 0.5, 0, 0};
    bool inside = false;
    for (int b = down ? part.top() : part.left(); b <= (down ? part.bottom() : part.right()); ++b)
        if (qGray(down ? page.pixel(at, b) : page.pixel(b, at)) < 128) {
            line.from = inside ? line.from : b;
            line.to = b;
            inside = true;
        }
    return line;
}

/// What somebody with a ruler reads off a sheet (mm from the edges of the paper).
SheetReading readOff(const QImage &page)
{
    const auto mm = [](double dots) { return dots * kMmPerInch / kDpi; };
    const int corner = std::min(page.width(), page.height()) / 4;
    const QRect first(0, 0, corner, corner);
    const QRect middle(0, page.height() / 2 - 30, page.width(), 60);
    const Line row = longestLine(page, middle, false);
    return {mm(longestLine(page, first, true).at), mm(longestLine(page, first, false).at),
            mm(row.to - row.from)};
}

} // namespace

// Layouts are counted from where the printer counts, so what it cannot reach is no fault of it.
TEST(Calibration, MeasuredOnThePageTheNextSheetComesOutAsItShould)
{
    constexpr double reads = 0.2; // mm, a ruler's
    for (const QSizeF area : {QSizeF(200, 120), QSizeF(58, 40)})
        for (const BadPrinter &printer :
             {BadPrinter{{0, 0}, {0, 0}, 1}, BadPrinter{{4.2, 6}, {0, 0}, 1},
              BadPrinter{{4.2, 4.2}, {-1.5, 0.9}, 1.02}, BadPrinter{{5, 5}, {2, -0.7}, 0.985}}) {
            const CalibrationSheet sheet = calibrationSheet(area, printer.unreached);
            const Calibration before{0.5, -0.5, 1.01}; // found wrong
            const auto next =
                calibrated(before, sheet, readOff(printer.print(sheet, area, before)));
            ASSERT_TRUE(next);
            const SheetReading after = readOff(printer.print(sheet, area, *next));
            EXPECT_NEAR(after.left, sheet.inset + printer.unreached.x(), reads);
            EXPECT_NEAR(after.top, sheet.inset + printer.unreached.y(), reads);
            EXPECT_NEAR(after.row, sheet.row, 2 * reads);
        }
    const CalibrationSheet sheet = calibrationSheet({200, 287});
    EXPECT_FALSE(calibrated({}, sheet, {sheet.inset, sheet.inset, 0}));
    EXPECT_FALSE(calibrated({}, sheet, {sheet.inset, sheet.inset, sheet.row / 2}));
    EXPECT_FALSE(calibrated({}, sheet, {120, sheet.inset, sheet.row}));
}

TEST(Calibration, MovesEverythingAndKeepsTypeAndModules)
{
    const DeviceFonts fonts({254, 254}); // ten dots to the millimetre
    const std::vector<DrawCommand> commands = {
        {RectangleCommand{{10, 10, 5, 5}, 0, 0xFF000000, true}, {}}};
    const auto ink = [&](const Calibration &calibration) {
        QImage image(400, 400, QImage::Format_Grayscale8);
        image.fill(Qt::white);
        PictureStore pictures({});
        QPainter painter(&image);
        CommandPainter commandPainter(painter, fonts, pictures);
        paintCalibrated(commandPainter, commands, {5, 5}, calibration);
        painter.end();
        QRect found;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qGray(image.pixel(x, y)) == 0)
                    found = found.united({x, y, 1, 1});
        return found;
    };
    EXPECT_EQ(ink({}), QRect(150, 150, 50, 50));
    EXPECT_EQ(ink({1, -2, 1}), QRect(160, 130, 50, 50));
    EXPECT_EQ(ink({0, 0, 1.1}), QRect(165, 165, 55, 55));
    const DrawCommand bars{BarsCommand{{10, 10, 40, 20}, {}, {}, 0}, {}};
    const auto moved = std::get<BarsCommand>(scaled(bars, 1.1).shape);
    EXPECT_EQ(moved.box.size(), QSizeF(40, 20));
    EXPECT_EQ(moved.box.center(), QPointF(33, 22));
}

TEST(Calibration, IsKeptForEachPrinter)
{
    PrintDesk desk;
    PrintMemory memory(desk.program.keys, desk.program.directory());
    const Calibration one{-4.25, 0.5, 1.0075};
    EXPECT_TRUE(memory.calibration(u"Lazer"_s).isNone());
    ASSERT_TRUE(memory.setCalibration(u"Lazer"_s, one));
    EXPECT_EQ(memory.calibration(u"Lazer"_s).x, one.x);
    EXPECT_NEAR(memory.calibration(u"Lazer"_s).scale, one.scale, 1e-12);
    EXPECT_TRUE(memory.calibration(u"Termal"_s).isNone());
    for (const Calibration &far : {Calibration{900, 0, 1}, {0, -900, 1}, {0, 0, 5}}) {
        memory.setCalibration(u"Bozuk"_s, far); // no printer is that far off
        EXPECT_TRUE(memory.calibration(u"Bozuk"_s).isNone());
    }
}

TEST(PartUsedSheet, ARunBeginsAndEndsAtAnyPlace)
{
    PrintDesk desk;
    desk.addLayout(u"raf.ayr"_s, PrintDesk::plainLayout()); // 2 × 2
    const struct
    {
        qint64 first;
        int labels;
        int pages;
        qint64 next;
    } cases[] = {{1, 1, 1, 2}, {4, 1, 1, 1}, {3, 3, 2, 2},
                 {1, 4, 1, 1}, {9, 2, 1, 3}, {0, 1, 1, 2}};
    for (const auto &c : cases) {
        PrintRequest request{PrintMode::all, {PrintDesk::row(u"Ayran"_s, c.labels)}};
        request.firstPlace = c.first;
        EXPECT_TRUE(desk.run.yazzzz(request, u"raf.ayr"_s));
        EXPECT_EQ(desk.printers.documents.back().pages, c.pages) << c.first;
        EXPECT_EQ(desk.run.memory().nextPlace(u"raf.ayr"_s), c.next) << c.first;
    }
    GridWalk walk({10, 20, 60, 40, 2, 2}, 3);
    const GridWalk::Place place = walk.next();
    EXPECT_EQ(place.x, 10);
    EXPECT_EQ(place.y, 60);
    EXPECT_EQ(place.page, 1);
}
