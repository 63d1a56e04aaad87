#include "labels/print/calibration_sheet.h"
#include "labels/print/print_desk.h"
#include "paper/paged_canvas.h"
#include "support/print_qt.h"

#include <QImage>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A printer that misses: what is drawn at a place lands there times `scale`, moved by `off`.
struct BadPrinter
{
    QPointF off;
    double scale;

    QPointF lands(const Calibration &calibration, QPointF mm) const
    {
        return calibration.place(mm) * scale + off;
    }
};

} // namespace

TEST(Calibration, TheNextSheetComesOutAsItShould)
{
    for (const QSizeF area : {QSizeF(200, 287), QSizeF(58, 40)}) {
        const CalibrationSheet sheet = calibrationSheet(area);
        const QPointF cross(sheet.inset, sheet.inset);
        const QPointF end = cross + QPointF(sheet.row, 0);
        EXPECT_LE(end.x(), area.width());
        for (const BadPrinter &printer :
             {BadPrinter{{0, 0}, 1}, {{4.2, 4.2}, 1}, {{-1.5, 3}, 1.02}, {{2, -0.7}, 0.985}}) {
            Calibration now{0.5, -0.5, 1.01}; // found wrong before
            const QPointF at = printer.lands(now, cross);
            const auto next =
                calibrated(now, sheet, {at.x(), at.y(), (printer.lands(now, end) - at).x()});
            ASSERT_TRUE(next);
            EXPECT_NEAR(printer.lands(*next, cross).x(), cross.x(), 1e-9);
            EXPECT_NEAR(printer.lands(*next, cross).y(), cross.y(), 1e-9);
            EXPECT_NEAR(printer.lands(*next, end).x(), end.x(), 1e-9);
        }
        EXPECT_FALSE(calibrated({}, sheet, {sheet.inset, sheet.inset, 0}));
        EXPECT_FALSE(calibrated({}, sheet, {sheet.inset, sheet.inset, sheet.row / 2}));
        EXPECT_FALSE(calibrated({}, sheet, {120, sheet.inset, sheet.row}));
    }
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
