#include "labels/print/label_preview.h"
#include "labels/print/scannability.h"
#include "labels/print/sheet_pages.h"
#include "paper/bars.h"
#include "support/print_qt.h"

#include <QFontMetricsF>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

QString barcode(int serial, bool ean8)
{
    const QString number =
        ean::checkDigit(QString::number((ean8 ? 2000000 : 869000000000) + serial));
    return number.right(ean8 ? 8 : 13);
}

/// Labels of one barcode and a name, each with a number of its own.
PrintJob makeJob(const SheetGrid &grid, const LabelBox &bars, QSizeF paper, int labels, bool ean8)
{
    PrintJob job;
    job.grid = grid;
    job.paper = paper;
    job.barcodes = {{bars, {u"DejaVu Sans"_s, 8}, 0, 0, 0, QString()}};
    TextElement name;
    name.box = {2, 1, grid.stepX - 4, 3.5F};
    name.font = {u"DejaVu Sans"_s, 7};
    name.alignment = u"2"_s;
    name.field = u"Stok Adı"_s;
    job.texts = {name};
    for (int i = 0; i < labels; ++i)
        job.rows.push_back({barcode(i, ean8), {}, u"Ürün %1"_s.arg(i), {}, 1});
    return job;
}

PrintJob shelfLabels()
{
    return makeJob({3, 8, 68, 35, 3, 8}, {5, 8, 45, 20}, {210, 297}, 30, false);
}

PrintJob smallLabels()
{
    return makeJob({5, 11, 40, 21.2F, 5, 13}, {4, 5, 32, 14}, {210, 297}, 65, true);
}

PrintJob rollLabels()
{
    return makeJob({0, 0, 58, 40, 1, 1}, {4, 10, 50, 26}, {58, 40}, 3, false);
}

QRectF elementBox(const GridWalk::Place &place, const LabelBox &box)
{
    return {static_cast<double>(place.x + box.left), static_cast<double>(place.y + box.top),
            static_cast<double>(box.width), static_cast<double>(box.height)};
}

bool isWhite(const QImage &page, const QRect &area)
{
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (qGray(page.pixel(x, y)) != 255)
                return false;
    return true;
}

/// The first label in its colours.
QImage paintColour(const PrintJob &job, double dpi)
{
    QImage page(toDots({QPointF(), job.paper}, dpi).size().toSize(), QImage::Format_RGB32);
    page.fill(Qt::white);
    const DeviceFonts fonts({dpi, dpi});
    PictureStore pictures({});
    QPainter painter(&page);
    CommandPainter(painter, fonts, pictures)
        .paint(LabelBuilder(job, fonts).label(job.rows[0]).commands);
    return page;
}

/// One line of dots through a symbol as modules; '?' where a module is not of one colour.
QString readModules(const QImage &page, const BarSymbol &symbol, const BarsGeometry &at, int y)
{
    QString modules;
    for (int m = -symbol.quietLeft; m < symbol.modules + symbol.quietRight; ++m) {
        int dark = 0;
        for (int dot = 0; dot < at.module; ++dot)
            dark += qGray(page.pixel(at.x(m) + dot, y)) == 0 ? 1 : 0;
        modules += dark == 0 ? u'0' : dark == at.module ? u'1' : u'?';
    }
    return modules;
}

QString expectedModules(const BarSymbol &symbol)
{
    QString modules(symbol.totalModules(), u'0');
    for (const Bar &bar : symbol.bars)
        for (int i = 0; i < bar.width; ++i)
            modules[symbol.quietLeft + bar.start + i] = u'1';
    return modules;
}

} // namespace

TEST(LabelSheets, EveryBarcodeIsReadInItsPlace)
{
    for (const PrintJob &job : {shelfLabels(), smallLabels(), rollLabels()}) {
        for (const double dpi : {203.0, 300.0, 600.0}) {
            const auto pages = paintPages(job, dpi);
            GridWalk walk(job.grid);
            for (const LabelRow &row : job.rows) {
                // What a scanner sees that is held over this element's box and no other.
                const GridWalk::Place place = walk.next();
                const QImage &page = pages.at(static_cast<std::size_t>(place.page - 1));
                const QRectF box = toDots(elementBox(place, job.barcodes[0].box), dpi);
                EXPECT_EQ(readBarcodes(page.copy(box.toAlignedRect())), QStringList{row.barcode})
                    << dpi << " dpi, page " << place.page;
            }
        }
    }
}

TEST(LabelSheets, ModulesAreEqualWholeDotsBetweenWhiteQuietZones)
{
    for (const PrintJob &job : {shelfLabels(), smallLabels()}) {
        for (const double dpi : {203.0, 300.0, 600.0}) {
            const QImage page = paintPages(job, dpi).front();
            const LabelBox &box = job.barcodes[0].box;
            GridWalk walk(job.grid);
            for (std::size_t i = 0; i < 24; ++i) {
                const GridWalk::Place place = walk.next();
                const QString &code = job.rows[i].barcode;
                const auto symbol = ean::encode(ean::bySize(code, ean::Symbology::ean13), code);
                const QRectF element = elementBox(place, box);
                const auto at = fitBars(*symbol, element, {dpi, dpi});
                ASSERT_TRUE(at);
                const QRect dots = toDots(element, dpi).toAlignedRect();
                EXPECT_GE(at->x(-symbol->quietLeft), dots.left());
                EXPECT_LE(at->x(symbol->modules + symbol->quietRight), dots.right() + 1);

                const int half = at->top + (at->bottom - at->top) / 2;
                for (const int y : {at->top, half})
                    EXPECT_EQ(readModules(page, *symbol, *at, y), expectedModules(*symbol));
                EXPECT_TRUE(isWhite(page, QRect(QPoint(at->x(-symbol->quietLeft), at->top),
                                                QPoint(at->left - 1, half))));
                EXPECT_TRUE(isWhite(
                    page, QRect(QPoint(at->x(symbol->modules), at->top),
                                QPoint(at->x(symbol->modules + symbol->quietRight) - 1, half))));
            }
        }
    }
}

TEST(LabelSheets, GuardBarsReachFiveModulesFurther)
{
    const PrintJob job = rollLabels();
    const double dpi = 600;
    const QImage page = paintPages(job, dpi).front();
    const auto symbol = *ean::encode(ean::Symbology::ean13, job.rows[0].barcode);
    const BarsGeometry at = *fitBars(symbol, {4, 10, 50, 26}, {dpi, dpi});
    const auto lowest = [&](const Bar &bar) {
        int y = at.top;
        while (y < at.bottom && qGray(page.pixel(at.x(bar.start), y)) == 0)
            ++y;
        return y;
    };
    const auto guard = std::find_if(symbol.bars.begin(), symbol.bars.end(),
                                    [](const Bar &bar) { return bar.guard; });
    const auto plain = std::find_if(symbol.bars.begin(), symbol.bars.end(),
                                    [](const Bar &bar) { return !bar.guard; });
    EXPECT_EQ(lowest(*guard) - lowest(*plain), kGuardDepth * at.module);
}

TEST(LabelSheets, TheSmallestBarcodeScansAndASmallerOneIsRefused)
{
    for (const bool ean8 : {false, true}) {
        const QString number = barcode(7, ean8);
        const auto symbol = *ean::encode(ean::bySize(number, ean::Symbology::ean13), number);
        for (const double dpi : {203.0, 300.0, 600.0}) {
            const DeviceFonts fonts({dpi, dpi});
            const PaperFont digits{u"DejaVu Sans"_s, 8};
            const QSizeF size = smallestBox(symbol, digits, dpi);
            const QSizeF label = size + QSizeF(4, 4);
            const QPointF at(2, 2);
            EXPECT_TRUE(barFaults({{at, size}, symbol, digits, 0}, label, fonts).empty())
                << dpi << ' ' << size.width() << " x " << size.height();
            EXPECT_FALSE(
                barFaults({{at, size - QSizeF(0.2, 0)}, symbol, digits, 0}, label, fonts).empty());
            EXPECT_FALSE(
                barFaults({{at, size - QSizeF(0, 0.4)}, symbol, digits, 0}, label, fonts).empty());

            PrintJob job = makeJob(
                {0, 0, static_cast<float>(label.width()), static_cast<float>(label.height()), 1, 1},
                {2, 2, static_cast<float>(size.width()), static_cast<float>(size.height())}, label,
                1, ean8);
            job.texts.clear();
            EXPECT_EQ(readBarcodes(paintPages(job, dpi).front()), QStringList{job.rows[0].barcode});
        }
    }
}

// A poor scanner: red light, a spot of a tenth of a millimetre and more, held askew. It reads what
// the rule lets through and fails where the rule refuses.
TEST(LabelSheets, WhatTheRuleRefusesAPoorScannerCannotRead)
{
    const auto seen = [](const QImage &page, double dpi) {
        const int width = qRound(page.width() * 200 / dpi);
        QImage red = page.scaledToWidth(width, Qt::SmoothTransformation)
                         .convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < red.height(); ++y)
            for (int x = 0; x < red.width(); ++x) {
                const int light = qRed(red.pixel(x, y));
                red.setPixel(x, y, qRgb(light, light, light));
            }
        red = red.scaledToWidth(3 * width, Qt::SmoothTransformation);
        QImage held(red.size() * 2, QImage::Format_RGB32);
        held.fill(Qt::white);
        QPainter painter(&held);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.translate(held.rect().center());
        painter.rotate(25);
        painter.drawImage(-red.rect().center(), red);
        painter.end();
        return readBarcodes(held);
    };
    const struct
    {
        ScanFault::Kind kind;
        std::function<void(PrintJob &)> spoil;
    } cases[] = {
        {ScanFault::module, [](PrintJob &job) { job.barcodes[0].box.width *= 0.4F; }},
        {ScanFault::height, [](PrintJob &job) { job.barcodes[0].box.height *= 0.2F; }},
        {ScanFault::colour, [](PrintJob &job) { job.barcodes[0].colour = 0x0000FF; }},
        {ScanFault::covered,
         [](PrintJob &job) {
             job.texts[0].box = {2, 8, 40, 6};
             job.texts[0].font.size = 40;
             job.texts[0].caption = u"█████████"_s;
             job.texts[0].field.clear();
         }},
    };
    for (const double dpi : kUsualResolutions) {
        const QString number = barcode(7, false);
        const QSizeF size =
            smallestBox(*ean::encode(ean::Symbology::ean13, number), {u"DejaVu Sans"_s, 8}, dpi);
        PrintJob good =
            makeJob({0, 0, 60, 40, 1, 1},
                    {6, 9, static_cast<float>(size.width()), static_cast<float>(size.height())},
                    {60, 40}, 1, false);
        good.rows = {{number, {}, {}, {}, 1}};
        const auto faults = [&](const PrintJob &job) {
            const DeviceFonts fonts({dpi, dpi});
            PictureStore pictures({});
            const BuiltLabel label = LabelBuilder(job, fonts).label(job.rows[0]);
            const auto bars =
                std::find_if(label.commands.begin(), label.commands.end(), [](const auto &command) {
                    return std::holds_alternative<BarsCommand>(command.shape);
                });
            auto found = barFaults(std::get<BarsCommand>(bars->shape), labelRoom(job), fonts);
            const auto place = static_cast<std::size_t>(bars - label.commands.begin());
            if (auto cover = CoverSearch(label, job, fonts, pictures).fault(place))
                found.push_back(std::move(*cover));
            return found;
        };
        EXPECT_TRUE(faults(good).empty());
        EXPECT_EQ(seen(paintColour(good, dpi), dpi), QStringList{number}) << dpi;
        for (const auto &c : cases) {
            PrintJob job = good;
            c.spoil(job);
            const auto found = faults(job);
            EXPECT_TRUE(std::any_of(found.begin(), found.end(),
                                    [&](const ScanFault &one) { return one.kind == c.kind; }))
                << dpi << ' ' << c.kind;
            EXPECT_EQ(seen(paintColour(job, dpi), dpi), QStringList()) << dpi << ' ' << c.kind;
        }
    }
}

TEST(LabelSheets, ABoxTooNarrowForItsModulesDrawsNoBars)
{
    PrintJob job = rollLabels();
    job.rows.resize(1);
    job.texts.clear();
    for (const LabelBox box : {LabelBox{4, 10, 10, 20}, LabelBox{4, 10, 50, 0}, LabelBox{},
                               LabelBox{4, 10, 1e30F, 20}, LabelBox{4, 10, -50, 20}}) {
        job.barcodes[0].box = box;
        const QImage page = paintPages(job, 203).front();
        EXPECT_TRUE(isWhite(page, page.rect()));
    }
}

TEST(LabelSheets, HostileLayoutsEndWithoutHarm)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float endless = std::numeric_limits<float>::infinity();
    PrintJob job = rollLabels();
    job.rows = {{barcode(1, false), {}, u"Ürün"_s, {}, 50}};
    job.pictures = {{{0, 0, 1e30F, 1e30F}, u"a.png"_s}, {{nan, nan, nan, nan}, u"a.png"_s}};
    for (const float value : {nan, endless, -endless, 1e38F, -1e38F, 0.0F}) {
        for (float *const place :
             {&job.grid.left, &job.grid.stepX, &job.grid.across, &job.barcodes[0].box.left,
              &job.barcodes[0].box.height, &job.texts[0].box.top, &job.texts[0].box.width}) {
            const float before = std::exchange(*place, value);
            EXPECT_FALSE(paintPages(job, 203).empty());
            *place = before;
        }
        const double wide = static_cast<double>(value);
        const PaperFont font = std::exchange(job.texts[0].font, {u"x"_s.repeated(300), wide});
        const double angle = std::exchange(job.texts[0].angle, wide);
        EXPECT_FALSE(paintPages(job, 203).empty());
        job.texts[0].font = font;
        job.texts[0].angle = angle;
    }
}

TEST(LabelSheets, TurnedTextsFillTheBoxTheDesignerShows)
{
    // The ink of a text that is as long as its box must lie inside that box at every angle.
    for (const double angle : {0.0, 90.0, 180.0, 270.0}) {
        for (const QString &alignment : {u"1"_s, u"2"_s, u"3"_s}) {
            PrintJob job;
            job.grid = {0, 0, 50, 50, 1, 1};
            job.paper = {50, 50};
            TextElement element;
            const bool upright = angle == 90 || angle == 270;
            element.box = upright ? LabelBox{20, 10, 5, 30} : LabelBox{10, 20, 30, 5};
            element.font = {u"DejaVu Sans"_s, 9};
            element.angle = angle;
            element.alignment = alignment;
            element.caption = u"Şeftali"_s;
            job.texts = {element};
            job.rows = {LabelRow{}};

            QImage page = paintPages(job, 300).front();
            EXPECT_FALSE(isWhite(page, page.rect()));
            QPainter(&page).fillRect(
                toDots(elementBox({}, element.box), 300).adjusted(-2, -2, 2, 2), Qt::white);
            EXPECT_TRUE(isWhite(page, page.rect())) << angle << alignment.toStdString();
        }
    }
}

TEST(LabelSheets, TextsAreMeasuredAsTheyAreDrawn)
{
    const DeviceFonts fonts({600, 600});
    for (const QString &name : {u"Çiğ köfte 1,5 kg"_s, u"IĞDIR KAYISISI"_s, u"25.000,00 TL"_s,
                                u"AVAYAVTo."_s, u"çay\u0130 \u4e2d\u6587 100 \u20ba"_s}) {
        const PaperFont font{u"DejaVu Sans"_s, 9, true};
        const double drawn = QFontMetricsF(fonts.find(font).font()).horizontalAdvance(name);
        EXPECT_NEAR(fonts.width(font, name), drawn * kMmPerInch / 600, 0.02) << name.toStdString();
    }
}

TEST(LabelSheets, PicturesLieBeneathBarsAndTexts)
{
    const QTemporaryDir directory;
    QImage grey(40, 40, QImage::Format_RGB32);
    grey.fill(qRgb(200, 200, 200));
    ASSERT_TRUE(grey.save(directory.filePath(u"zemin.png"_s)));

    PrintJob job = rollLabels();
    job.rows.resize(1);
    job.pictures = {{{0, 0, 58, 40}, u"zemin.png"_s}};
    const QImage page = paintPages(job, 300, directory.path()).front();
    EXPECT_EQ(qGray(page.pixel(2, 2)), 200);
    EXPECT_EQ(qGray(page.pixel(page.width() - 2, page.height() - 2)), 200);
    EXPECT_TRUE(readBarcodes(page).contains(job.rows[0].barcode));
}
