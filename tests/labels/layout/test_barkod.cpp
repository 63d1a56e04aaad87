#include "labels/layout/forms/barkod.h"
#include "labels/layout/property_bag.h"
#include "paper/turned_text.h"
#include "support/print_qt.h"

#include <QPainter>
#include <QSignalSpy>

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

using namespace Qt::StringLiterals;

namespace {

/// How much black a picture holds.
qint64 ink(const QImage &picture)
{
    const QImage grey = picture.convertToFormat(QImage::Format_Grayscale8);
    qint64 sum = 0;
    for (int y = 0; y < grey.height(); ++y)
        for (int x = 0; x < grey.width(); ++x)
            sum += 255 - grey.constScanLine(y)[x];
    return sum;
}

void setUp(Barkod &text, const QString &caption)
{
    QFont font(u"DejaVu Sans"_s, 14);
    font.setItalic(true);
    text.setCaptionFont(font);
    text.setCaption(caption);
    text.setBackStyle(1);
    text.setBackColor(0xFFFFFF);
}

/// The same text on a page so large that nothing of it can be cut off.
QImage onLargePage(const Barkod &text)
{
    QImage page(800, 800, QImage::Format_ARGB32_Premultiplied);
    page.fill(Qt::white);
    QPainter painter(&page);
    painter.setPen(Qt::black);
    const PaperFont font = {.name = u"DejaVu Sans"_s, .size = 14, .italic = true};
    drawTurnedText(painter, {400, 400}, normalisedAngle(static_cast<double>(text.angle())),
                   DeviceFont(font, text.logicalDpiY()), text.caption());
    return page;
}

} // namespace

TEST(TurnedText, AnglesAreNormalised)
{
    for (int angle = -1000; angle <= 1000; ++angle) {
        const int normal = normalisedAngle(angle);
        EXPECT_EQ((angle - normal) % 360, 0) << angle;
        EXPECT_LE(std::abs(normal), 180) << angle;
    }
    EXPECT_EQ(normalisedAngle(180), -180);
    EXPECT_EQ(normalisedAngle(-180), 180);
    const std::pair<double, int> fractions[] = {
        {359.6, 0}, {89.7, 90}, {-0.4, 0}, {44.4, 44}, {45.5, 46}};
    for (const auto &[angle, normal] : fractions)
        EXPECT_EQ(normalisedAngle(angle), normal) << angle;
    for (const double hostile : {1e300, -1e300, std::nan(""), HUGE_VAL})
        EXPECT_LE(std::abs(normalisedAngle(hostile)), 180) << hostile;
}

TEST(Barkod, EverySetStoresTellsAndDrawsOnce)
{
    const std::vector<std::pair<const char *, QVariant>> values = {
        {"Angle", 270.0F},   {"Caption", u"Çay"_s},
        {"AutoSize", false}, {"ColorStyle", 1},
        {"BackColor", 255U}, {"ForeColor", 128U},
        {"Enabled", false},  {"Font", QFont(u"Arial"_s)},
        {"BackStyle", 1},    {"BorderStyle", 1},
        {"PosX", -7},        {"PosY", 9},
    };
    Barkod text(u"Barkod1"_s);
    text.show();
    const QSignalSpy changes(&text, &Barkod::propertyChanged);
    const QSignalSpy drawings(&text, &Barkod::redrawn);
    for (int time = 0; time < 2; ++time) // also when it is set to what it is
        for (const auto &[name, value] : values) {
            EXPECT_TRUE(text.setProperty(name, value)) << name;
            EXPECT_EQ(text.property(name), value) << name;
            EXPECT_EQ(changes.last().first().toString(), QString::fromLatin1(name));
            EXPECT_EQ(changes.count(), drawings.count()) << name;
        }
    EXPECT_EQ(drawings.count(), 24);

    PropertyBag bag;
    text.writeProperties(bag);
    Barkod copy(u"Barkod2"_s);
    const QSignalSpy copyDrawings(&copy, &Barkod::redrawn);
    copy.readProperties(bag);
    EXPECT_EQ(copyDrawings.count(), 1);
    for (const auto &[name, value] : values)
        EXPECT_EQ(copy.property(name), value) << name;
    EXPECT_EQ(bag.read(u"AutoSize"_s, true), bag.read(u"Autosize"_s, true));
    copy.readProperties(PropertyBag());
    const Barkod fresh(u"Barkod2"_s);
    EXPECT_EQ(fresh.caption(), u"Barkod2"_s);
    EXPECT_EQ(fresh.angle(), 90.0F);
    EXPECT_TRUE(fresh.autoSize());
    for (const auto &[name, value] : values)
        EXPECT_EQ(copy.property(name), fresh.property(name)) << name;
}

TEST(Barkod, TheWholeCaptionIsInsideAtEveryAngle)
{
    for (const QString &caption : {u"Çiğköfte fj 12,50"_s, u"f"_s})
        for (int angle = -360; angle <= 360; angle += 30) {
            Barkod text(u"Barkod1"_s);
            setUp(text, caption);
            text.setAngle(static_cast<float>(angle));
            const QImage shown = text.grab().toImage();
            const qint64 all = ink(onLargePage(text));
            EXPECT_GT(all, 1000);
            EXPECT_EQ(ink(shown), all) << angle;
            // and no more room than the turned line needs
            text.setAngle(0);
            const QSizeF flat = text.size();
            const double turn = angle * std::numbers::pi / 180;
            const double along = std::fabs(std::cos(turn));
            const double across = std::fabs(std::sin(turn));
            EXPECT_NEAR(shown.width(), flat.width() * along + flat.height() * across, 4) << angle;
            EXPECT_NEAR(shown.height(), flat.width() * across + flat.height() * along, 4) << angle;
        }
}

TEST(Barkod, ColoursBackgroundAndBorderShow)
{
    Barkod text(u"Barkod1"_s);
    setUp(text, QString());
    text.setAutoSize(false);
    text.resize(40, 20);
    const auto corner = [&](int x) { return text.grab().toImage().pixelColor(x, x); };
    text.setBackColor(0x0000FF); // red comes first in these numbers' low byte
    EXPECT_EQ(corner(5), QColor(Qt::red));
    EXPECT_EQ(corner(0), QColor(Qt::red));
    text.setForeColor(0xFF0000);
    text.setBorderStyle(1);
    EXPECT_EQ(corner(0), QColor(Qt::blue));
    EXPECT_EQ(corner(5), QColor(Qt::red));
    text.setBackColor(0x8000000F);
    EXPECT_EQ(corner(5), text.palette().color(QPalette::Button));
    EXPECT_EQ(text.size(), QSize(40, 20));
    text.setBackStyle(0);
    text.setBorderStyle(0);
    QImage page(40, 20, QImage::Format_ARGB32_Premultiplied);
    page.fill(Qt::green);
    text.render(&page, {}, {}, {});
    EXPECT_EQ(page.pixelColor(5, 5), QColor(Qt::green));
}
