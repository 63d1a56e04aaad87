#include "fakes/fake_ports.h"
#include "labels/designer/design_checks.h"
#include "labels/designer/design_scene.h"
#include "labels/designer/designs.h"
#include "labels/designer/geometry.h"
#include "labels/designer/readable_bars.h"
#include "labels/designer/sheet_preview.h"
#include "labels/print/print_desk.h"
#include "labels/print/scannability.h"
#include "paper/millimetres.h"
#include "support/print_qt.h"

#include <QPdfWriter>

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr double kDpi = 300;
const QMarginsF kUnreached(3, 4, 3, 4); // mm

/// A printer whose pages can be looked at.
class ImagePrinters final : public Printers
{
public:
    QStringList names() const override { return {u"PDF"_s}; }
    std::unique_ptr<PrintDocument> open(const QString &, const PrinterSetup &setup) override
    {
        return std::make_unique<Document>(*this, setup.paper);
    }
    std::vector<QImage> pages;

private:
    class Device final : public QPdfWriter
    {
    public:
        Device(ImagePrinters &printers, QSizeF paper, QIODevice *unread)
            : QPdfWriter(unread), m_printers(printers),
              m_size(((paper - QSizeF(6, 8)) * kDpi / kMmPerInch).toSize())
        {
            setResolution(qRound(kDpi));
            newPage();
        }
        bool newPage() override
        {
            m_printers.pages.emplace_back(m_size, QImage::Format_RGB32);
            m_printers.pages.back().fill(Qt::white);
            return true;
        }

    protected:
        QPaintDevice *redirected(QPoint *) const override { return &m_printers.pages.back(); }

    private:
        ImagePrinters &m_printers;
        QSize m_size;
    };
    class Document final : public PrintDocument
    {
    public:
        Document(ImagePrinters &printers, QSizeF paper) : m_device(printers, paper, &m_buffer)
        {
            m_buffer.open(QIODevice::WriteOnly);
        }
        QPagedPaintDevice &device() override { return m_device; }
        void cancel() override {}
        void finish() override {}

    private:
        QBuffer m_buffer;
        Device m_device;
    };
};

} // namespace

TEST(DesignOutput, ThePreviewIsThePrintedPageDotByDot)
{
    PrintDesk desk;
    ImagePrinters printers;
    Program program(
        Ports{desk.connector, desk.db, desk.keys, printers, desk.sounds, desk.clock, desk.prompt},
        desk.directory.path());
    QImage picture(5, 5, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    ASSERT_TRUE(picture.save(pictureFolder(desk.directory.path()) + u"/a.png"_s));
    LabelLayout layout = PrintDesk::barcodeLayout();
    layout.texts[0].caption = layout.texts[0].field; // what the file keeps of a bound text
    layout.pictures = {{{46.3F, 11.7F, 9, 9}, u"a.png"_s}};
    layout.texts.push_back(textAt({50, 3, 4, 30}, u"dönük"_s));
    layout.texts.back().angle = 270;
    desk.addLayout(u"raf.ayr"_s, layout);

    for (const Calibration &calibration : {Calibration{}, Calibration{0.4, -0.3, 1.01}}) {
        PrintMemory(program.keys, program.directory()).setCalibration(u"PDF"_s, calibration);
        PrintRun run(program);
        QObject::connect(&run, &PrintRun::problemsFound, [&] { run.answer(true); });
        printers.pages.clear();
        PrintRequest request{PrintMode::all,
                             {PrintDesk::row(u"Ayran 1 L"_s, 1), PrintDesk::row(u"Peynir"_s, 2)}};
        request.firstPlace = 2;
        run.yazzzz(request, u"raf.ayr"_s);
        ASSERT_EQ(printers.pages.size(), 1U);

        PrintJob job = makePrintJob(layout, request.rows);
        job.firstPlace = 2;
        const QString folder = pictureFolder(desk.directory.path());
        const QImage shown =
            previewSheet(job, {{kDpi, kDpi}, kUnreached, calibration}, folder, kDpi);
        const QPoint corner = toDots({kUnreached.left(), kUnreached.top()}, {kDpi, kDpi}).toPoint();
        QImage expected = shown.copy(QRect(corner, printers.pages[0].size()));
        // The place that is used already is grey on the screen only.
        const auto used = [](QRgb dot) { return dot == qRgb(0xE0, 0xE4, 0xE4); };
        for (int y = 0; y < expected.height(); ++y)
            for (int x = 0; x < expected.width(); ++x)
                if (used(expected.pixel(x, y)))
                    expected.setPixel(x, y, qRgb(255, 255, 255));
        EXPECT_TRUE(expected == printers.pages[0]);
    }
    const auto shown = [&layout](const QString &count) {
        layout.across = layout.down = count;
        return previewSheet(makePrintJob(layout, {PrintDesk::row(u"Ayran"_s, 3)}),
                            {{kDpi, kDpi}, {}, {}}, {}, kDpi);
    };
    EXPECT_TRUE(shown(u"0"_s) == shown(u"1"_s)); // a sheet nobody can count shows one label
}

// What was only moved is not built anew; it must look as if it had been.
TEST(DesignOutput, AMovedElementLooksAsIfItHadAlwaysStoodThere)
{
    LabelLayout layout = textsAt({{2, 2, 20, 6}, {30, 2, 5, 25}}).layout;
    layout.texts[1].angle = 90;
    layout.texts[0].alignment = u"3"_s;
    layout.barcodes = {barsAt({2, 12, 38, 15})};
    const LabelRow row = PrintDesk::row(u"Ayran 1 L"_s, 1);
    const auto picture = [](DesignScene &scene) {
        QImage image(400, 300, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        scene.paint(painter, CanvasView(), {-1000, -1000, 3000, 3000});
        return image;
    };
    DesignScene scene({});
    scene.show(layout, row);
    const QRectF before = scene.show(layout, row);
    EXPECT_TRUE(before.isNull());
    for (const LabelRef ref : RefSet::all(layout)) {
        LabelBox &box = boxOf(layout, ref);
        const QRectF former = rectangle(box);
        box.left += 7.3F;
        box.top += 3.1F;
        const QRectF changed = scene.show(layout, row);
        EXPECT_TRUE(changed.contains(former) && changed.contains(rectangle(box)));
        DesignScene fresh({});
        fresh.show(layout, row);
        EXPECT_TRUE(picture(scene) == picture(fresh));
    }
}

TEST(DesignOutput, AnyBoxCanBeMadeReadable)
{
    const QSizeF label(66, 36);
    for (const QString &number : {u"8690000000012"_s, u"86900010"_s})
        for (const double dpi : kUsualResolutions)
            for (const LabelBox &box : {LabelBox{2, 2, 5, 5}, LabelBox{2, 2, 38.5F, 15},
                                        LabelBox{30, 30, 20, 5}, LabelBox{1, 1, 64, 10}}) {
                BarcodeElement bars = barsAt(box);
                bars.box = readableBox(bars, number, dpi, label);
                const auto symbol = ean::encode(ean::bySize(number, ean::Symbology::ean13), number);
                const LabelBox &now = bars.box;
                const auto faults = barFaults(
                    {QRectF(static_cast<double>(now.left), static_cast<double>(now.top),
                            static_cast<double>(now.width), static_cast<double>(now.height)),
                     *symbol, bars.font, 0},
                    label, DeviceFonts({dpi, dpi}));
                EXPECT_TRUE(faults.empty()) << dpi << ' ' << box << " -> " << now;
            }
}

TEST(DesignOutput, WhatWouldComeOutWrongIsSaidOfItsElement)
{
    Design design = textsAt({{2, 2, 40, 6}});
    design.layout.texts[0].field = u"Stok Adı"_s;
    design.layout.barcodes = {barsAt({2, 9, 45, 24})};
    design.layout.stepX = u"70"_s;
    design.layout.stepY = u"37"_s;
    design.layout.across = design.layout.down = u"2"_s;
    const LabelRow row = PrintDesk::row(u"Ayran 1 L"_s, 1);
    const struct
    {
        std::function<void(Design &, LabelRow &)> change;
        LabelRef ref;
        QString start; ///< of what is said; "" for nothing
    } cases[] = {
        {[](auto &, auto &) {}, {}, u""_s},
        {[](auto &, auto &r) { r.barcode = u"8690000000013"_s; },
         {kBars, 0},
         u"barkodun son hanesi yanlış"_s},
        {[](auto &, auto &r) { r.barcode = u"869"_s; }, {kBars, 0}, u"barkod 8 ya da 13"_s},
        {[](auto &d, auto &) { d.layout.barcodes[0].box.width = 20; },
         {kBars, 0},
         u"çizgileri bu yazıcıda çok ince"_s},
        {[](auto &d, auto &) { d.layout.texts[0].box.height = 0; },
         {kText, 0},
         u"Ögenin eni ya da boyu sıfır"_s},
        {[](auto &d, auto &) { d.layout.texts[0].font.name = u"Yokyazı"_s; },
         {kText, 0},
         u"“Yokyazı” yazı tipi bu bilgisayarda yok"_s},
        {[](auto &d, auto &) { d.layout.texts[0].field = u"STKMENSEI"_s; },
         {kText, 0},
         u"“STKMENSEI” adlı alan yok"_s},
        {[](auto &d, auto &) {
             d.layout.pictures = {{{50, 2, 8, 8}, {}}};
         },
         {kPicture, 0},
         u"Resim seçilmemiş"_s},
        {[](auto &d, auto &) { d.layout.left = u"70"_s; }, // the second column
         {kBars, 0},
         u"barkod yazıcının basamadığı kenara taşıyor: sağda"_s},
    };
    for (const auto &c : cases) {
        Design changed = design;
        LabelRow shown = row;
        c.change(changed, shown);
        DesignChecks checks({});
        checks.begin(changed, shown, {{300, 300}, {150, 90}, {}, {}});
        while (checks.goOn(0)) {
        }
        const auto notices = checks.take();
        const auto said = [&](const DesignNotice &notice) {
            return notice.ref == c.ref && notice.text.startsWith(c.start);
        };
        EXPECT_EQ(c.start.isEmpty(), notices.empty()) << c.start.toStdString();
        EXPECT_TRUE(c.start.isEmpty() || std::any_of(notices.begin(), notices.end(), said))
            << c.start.toStdString();
    }
}
