#include "fakes/fixed_measure.h"
#include "paper/command_painter.h"
#include "paper/millimetres.h"
#include "paper/text_block.h"
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

QImage painted(const std::vector<DrawCommand> &commands, const DeviceFonts &fonts, QSize size,
               double zoom = 1)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    PictureStore pictures({});
    QPainter painter(&image);
    painter.scale(zoom, zoom);
    CommandPainter(painter, fonts, pictures).paint(commands);
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

TEST(TextBlock, SaysWhetherAllOfTheTextIsInItsBox)
{
    const DeviceFonts fonts(kTenDots);
    const struct
    {
        QRectF box;
        double angle;
        QString text;
        bool fits;
    } cases[] = {
        {{0, 0, 40, 5}, 0, u"Ayran"_s, true},
        {{0, 0, 40, 5}, 0, u"Köy Peyniri Tam Yağlı Olgun 500 g"_s, false}, // lines left out
        {{0, 0, 40, 12}, 0, u"Köy Peyniri Tam Yağlı Olgun 500 g"_s, true},
        {{0, 0, 8, 5}, 0, u"12.345,50"_s, false}, // a figure runs over
        {{0, 0, 40, 2}, 0, u"Ayran"_s, false},    // lower than its letters
        {{0, 0, 40, 2}, 0, QString(), true},      //
        {{0, 0, 5, 40}, 90, u"Ayran"_s, true},    //
        {{0, 0, 40, 5}, 90, u"Ayran"_s, false},   // a turned line runs along the height
        {{0, 0, 40, 5}, 0, u"bir\niki"_s, false}, //
        {{0, 0, 40, 12}, 0, u"bir\niki"_s, true},
    };
    for (const auto &c : cases)
        EXPECT_EQ(
            placeText(
                {.box = c.box, .angle = c.angle, .font = {u"DejaVu Sans"_s, 9}, .text = c.text},
                fonts)
                .fits,
            c.fits)
            << c.text.toStdString() << ' ' << c.box.width();
}

TEST(TextBlock, ALongNameKeepsItsEndAndItsType)
{
    // A letter is 2 mm wide and a line 4 mm high.
    const struct
    {
        QSizeF box;
        double angle;
        QString text;
        QString lines;
    } cases[] = {
        {{54, 4}, 0, u"Köy Peyniri Tam Yağlı 500 g"_s, u"Köy Peyniri Tam Yağlı 500 g"_s},
        {{52, 4}, 0, u"Köy Peyniri Tam Yağlı 500 g"_s, u"Köy Peyniri Tam … 500 g"_s},
        {{30, 4}, 0, u"Köy Peyniri Tam Yağlı 500 g"_s, u"Köy … 500 g"_s},
        {{20, 8}, 0, u"Köy Peyniri Tam Yağlı 500 g"_s, u"Köy …|500 g"_s},
        {{18, 4}, 0, u"Köy Peyniri Tam Yağlı 500 g"_s, u"Kö… 500 g"_s},
        {{4, 20}, 90, u"Köy Peyniri Tam Yağlı 500 g"_s, u"Köy… 500 g"_s},
        {{28, 4}, 180, u"Kola Hediyeli 6 x 200 ml"_s, u"Ko… 6 x 200 ml"_s},
        {{20, 4}, 0, u"Bulaşık Süngeri Mavi"_s, u"Bula… Mavi"_s},
        {{10, 4}, 0, u"12.345,50"_s, u"12.345,50"_s}, // a figure runs over
        {{8, 4}, 0, u"Un 1.000 g"_s, u"Un"_s},        // no room for its end at all
    };
    for (const auto &c : cases) {
        const PlacedText placed = placeText(
            {.box = {{0, 0}, c.box}, .angle = c.angle, .font = {u"Sans"_s, 10}, .text = c.text},
            FixedMeasure());
        QStringList lines;
        for (const TextCommand &line : placed.lines) {
            lines += line.text;
            EXPECT_EQ(line.font.size, 10);
        }
        EXPECT_EQ(lines.join(u'|'), c.lines) << c.text.toStdString();
        EXPECT_EQ(placed.fits, c.lines == c.text && c.box.width() > 10);
    }
}
