#include "fakes/fixed_measure.h"
#include "paper/command_painter.h"
#include "paper/millimetres.h"
#include "paper/screen_ink.h"
#include "paper/text_block.h"
#include "support/cases.h"
#include "support/print_qt.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr QSizeF kTenDots(254, 254); ///< ten dots to the millimetre

/// The box (mm) of the dots that are not white.
QRectF inkOf(const QImage &image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 255)
                ink = ink.united(QRect(x, y, 1, 1));
    return {ink.x() / 10.0, ink.y() / 10.0, ink.width() / 10.0, ink.height() / 10.0};
}

/// Its digits reach further down than its guard bars.
BarSymbol symbol()
{
    return {.name = u"çubuk"_s,
            .digits = u"8690"_s,
            .modules = 30,
            .quietLeft = 5,
            .quietRight = 5,
            .bars = {{0, 1, true}, {10, 2}},
            .groups = {{u"8690"_s, 2, 26}}};
}

QImage painted(const std::vector<DrawCommand> &commands, const DeviceFonts &fonts, QSize size,
               double zoom = 1, ScreenInk *screen = nullptr)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    PictureStore pictures({});
    QPainter painter(&image);
    painter.scale(zoom, zoom);
    CommandPainter ink(painter, fonts, pictures, screen);
    painter.setRenderHint(QPainter::Antialiasing, zoom < 1);
    ink.paint(commands);
    return image;
}

} // namespace

TEST(DrawCommands, InkStaysInTheBoundingBox)
{
    const DeviceFonts fonts(kTenDots);
    const PaperFont font{u"DejaVu Sans"_s, 14};
    const DrawCommand cases[] = {
        {LineCommand{{5, 10}, {25, 10}, 0.4, 0}, {}},
        {LineCommand{{5, 10}, {5, 30}, 0.5, 0}, {}},
        {LineCommand{{5, 10}, {25, 30}, 0.4, 0}, {}},
        {RectangleCommand{{5, 5, 20, 10}, 0.3, 0, false}, {}},
        {RectangleCommand{{5, 5, 20, 10}, 0, 0, true}, {}},
        {BarsCommand{{5, 5, 20, 10}, symbol(), font, 0}, {}},
        {TextCommand{{20, 20}, 0, font, 0, u"Çay 1"_s}, {}},
        {TextCommand{{20, 20}, 90, font, 0, u"Çay 1"_s}, {}},
        {TextCommand{{20, 20}, 180, font, 0, u"Çay 1"_s}, {}},
        {TextCommand{{20, 20}, 270, font, 0, u"Çay 1"_s}, {}},
        {TextCommand{{20, 20}, 30, font, 0, u"Çay 1"_s}, {}},
    };
    for (const DrawCommand &command : cases) {
        const QRectF ink = inkOf(painted({command}, fonts, {450, 450}));
        const QRectF box = boundingBox(command, fonts);
        EXPECT_FALSE(ink.isEmpty());
        EXPECT_TRUE(box.adjusted(-0.2, -0.2, 0.2, 0.2).contains(ink))
            << toText(command).toStdString() << " ink " << testing::PrintToString(ink);
        // A screen at half the size shows the same at half the place.
        const QRectF half = inkOf(painted({command}, fonts, {450, 450}, 0.5));
        EXPECT_NEAR(half.center().x() * 2, ink.center().x(), 0.4);
        EXPECT_NEAR(half.center().y() * 2, ink.center().y(), 0.4);
    }
}

TEST(DrawCommands, WhatNoPaperHoldsLeavesNoInk)
{
    const DeviceFonts fonts(kTenDots);
    const RectangleCommand wide{{-2 * kLongestPaper, 5, 4 * kLongestPaper, 10}, 0, 0, true};
    EXPECT_TRUE(inkOf(painted({{wide, {}}}, fonts, {450, 450})).isEmpty());
    for (const QRectF &box : {QRectF(2 * kLongestPaper, 5, 20, 10), QRectF(5, 5, 20, 0.1)})
        EXPECT_FALSE(fitBars(symbol(), box, kTenDots));
}

TEST(TextBlock, SaysWhetherAllOfTheTextIsInItsBox)
{
    const DeviceFonts fonts(kTenDots);
    for (const Case &c :
         cases(u"texts_that_fit"_s)) { // width, height, angle, text, whether it fits
        const PlacedText placed = placeText({.box = {0, 0, c.number(0), c.number(1)},
                                             .angle = c.number(2),
                                             .font = {u"DejaVu Sans"_s, 9},
                                             .text = c[3]},
                                            fonts);
        EXPECT_EQ(placed.fits, c[4] == u"fits") << c;
    }
}

TEST(TextBlock, ALongNameKeepsItsEndAndItsType)
{
    for (const Case &c : cases(u"long_names"_s)) { // width, height, angle, name, lines
        const PlacedText placed = placeText({.box = {0, 0, c.number(0), c.number(1)},
                                             .angle = c.number(2),
                                             .font = {u"Sans"_s, 10},
                                             .text = c[3]},
                                            FixedMeasure());
        QStringList lines;
        for (const TextCommand &line : placed.lines) {
            lines += line.text;
            EXPECT_EQ(line.font.size, 10);
        }
        EXPECT_EQ(lines.join(u'|'), c[4]) << c;
        EXPECT_EQ(placed.fits, c[4] == c[3] && c.number(0) > 10) << c;
    }
    const TextBlock narrow{
        .box = {0, 0, 15, 5}, .font = {u"Sans"_s, 10}, .text = u"KDV'li 5"_s, .shrink = true};
    EXPECT_EQ(placeText(narrow, FixedMeasure()).lines.at(0).font.size, 9.375); // no smaller
}

// A window keeps texts, bars and pictures ready to paint; it shows what any painter would.
TEST(DrawCommands, AScreenShowsWhatPaperHas)
{
    const DeviceFonts fonts({600, 600});
    const PaperFont font{u"DejaVu Sans"_s, 9};
    const BarSymbol symbol{u"çubuk"_s,        {}, 12, 3, 3, 0, 0, {{0, 1, true}, {3, 2}, {8, 3}},
                           {{u"42"_s, 0, 12}}};
    const struct
    {
        DrawCommand command;
        int most; ///< grey levels by which a dot may differ; soft edges meet within one
    } cases[] = {{{TextCommand{{2, 2}, 0, font, 0, u"Çay 1 kg"_s}, {}}, 0},
                 {{TextCommand{{4, 20}, 90, font, 0xFF205080, u"Çay 1 kg"_s}, {}}, 0},
                 {{BarsCommand{{2.13, 3.07, 14, 9}, symbol, font, 0xFF400000}, {}}, 70}};
    for (const auto &[command, most] : cases)
        for (const double zoom : {0.137, 0.21, 0.9}) {
            ScreenInk screen(fonts);
            QImage plain = painted({command}, fonts, {300, 300}, zoom);
            painted({command}, fonts, {300, 300}, zoom, &screen);
            const QImage again = painted({command}, fonts, {300, 300}, zoom, &screen);
            double ink = 0;
            double shown = 0;
            for (int y = 0; y < plain.height(); ++y)
                for (int x = 0; x < plain.width(); ++x) {
                    EXPECT_NEAR(qGray(again.pixel(x, y)), qGray(plain.pixel(x, y)), most);
                    ink += 255 - qGray(plain.pixel(x, y));
                    shown += 255 - qGray(again.pixel(x, y));
                }
            EXPECT_GT(ink, 0);
            EXPECT_NEAR(shown / ink, 1, most > 0 ? 0.06 : 0) << zoom;
        }
}
