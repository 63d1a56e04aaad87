#include "labels/layout/label_layout.h"
#include "labels/print/print_problems.h"
#include "labels/print/scannability.h"
#include "support/files.h"
#include "support/ini_key_file.h"
#include "support/print_qt.h"
#include "support/test_machine.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const LabelRow kRow{u"8690000000012"_s, u"STK001"_s, u"Ayran 1 L"_s, u"34,50"_s, 1, 4};

TextElement text(const LabelBox &box, const QString &field, const QString &caption = {})
{
    TextElement element;
    element.box = box;
    element.font = {u"DejaVu Sans"_s, 8};
    element.field = field;
    element.caption = caption;
    return element;
}

/// A clean label of 60 × 40 mm, two across and two down.
PrintJob cleanJob(const LabelRow &row = kRow)
{
    PrintJob job;
    job.grid = {5, 5, 60, 40, 2, 2};
    job.paper = {130, 90};
    job.barcodes = {{{5, 14, 40, 24}, {u"DejaVu Sans"_s, 7}, 0, 0, 0, {}}};
    job.texts = {text({5, 2, 50, 5}, u"Stok Adı"_s), text({5, 8, 30, 5}, u"Fiyat"_s)};
    job.rows = {row};
    job.rows[0].count = 4;
    return job;
}

const QString kPictures = sourcePath("/demo/ayar/pic");

QString found(const PrintJob &job, QSizeF area = {130, 90}, double dpi = 600)
{
    QStringList texts;
    for (const PrintProblem &problem : findPrintProblems(job, {{dpi, dpi}, area, kPictures, {}})) {
        texts +=
            (problem.ofLayout ? u"tasarım: "_s : u"%1: "_s.arg(problem.queueRow)) + problem.text;
        EXPECT_EQ(problem.stock.isEmpty(), problem.ofLayout);
    }
    return texts.join(u'\n');
}

} // namespace

TEST(PrintProblems, EachIsNamedOnce)
{
    ASSERT_EQ(found(cleanJob()), u""_s);
    const struct
    {
        std::function<void(PrintJob &)> change;
        QString expected; ///< all of it, or its start
    } cases[] = {
        {[](PrintJob &job) { job.rows[0].barcode.clear(); }, u"4: barkodu yok"_s},
        {[](PrintJob &job) { job.rows[0].barcode = u"869000000009"_s; },
         u"4: barkod 869000000009 değil, 8690000000098 olarak basılır"_s},
        {[](PrintJob &job) { job.rows[0].barcode = u"8690000000013"_s; },
         u"4: barkodun son hanesi yanlış"_s},
        {[](PrintJob &job) { job.rows[0].barcode = u"1234567"_s; },
         u"4: barkod 8 ya da 13 haneli değil"_s},
        {[](PrintJob &job) { job.rows[0].barcode = u"ABC-12345678"_s; },
         u"4: barkodda rakamdan başka"_s},
        {[](PrintJob &job) { job.rows[0].price.clear(); }, u"4: fiyatı yok"_s},
        {[](PrintJob &job) { job.rows[0].price = u"0,00"_s; }, u"4: fiyatı sıfır"_s},
        {[](PrintJob &job) { job.rows[0].stockName = u"Köy Peyniri "_s.repeated(9) + u"500 g"_s; },
         u"4: “Stok Adı” yazısı kutusuna sığmıyor"_s},
        {[](PrintJob &job) { job.texts[0].field = u"Stok Adi"_s; },
         u"tasarım: “Stok Adi” adlı alan yok"_s},
        {[](PrintJob &job) {
             job.pictures = {{{50, 2, 5, 5}, u"logo.png"_s}};
         },
         u"tasarım: “logo.png” resmi bulunamadı"_s},
        {[](PrintJob &job) { job.texts[0].box.left = 50; },
         u"tasarım: “Stok Adı” yazısı etiketin dışına taşıyor"_s},
        {[](PrintJob &job) { job.grid.left = -9; },
         u"tasarım: barkod yazıcının basamadığı kenara taşıyor: solda 4,0 mm"_s},
        {[](PrintJob &job) { job.grid.down = 0; }, u"tasarım: sayfadaki etiket adetleri"_s},
        {[](PrintJob &job) { job.barcodes[0].box.width = 29; },
         u"tasarım: çizgileri bu yazıcıda çok ince: 0,254 mm (en az 0,264)"_s},
        {[](PrintJob &job) { job.barcodes[0].box.height = 18; },
         u"tasarım: barkod çok alçak: boyu %"_s},
        {[](PrintJob &job) { job.barcodes[0].box.width = 4; },
         u"tasarım: barkod kutusuna sığmıyor"_s},
        {[](PrintJob &job) { job.barcodes[0].colour = 0x0000FF; },
         u"tasarım: barkodun rengi okuyucu için çok açık"_s}, // red is white to a scanner
        {[](PrintJob &job) { job.barcodes[0].colour = 0xFF0000; }, u""_s},
        {[](PrintJob &job) { job.texts[1].box.top = 20; },
         u"4: barkodun ya da boşluk payının üstüne başka öğe geliyor"_s},
        {[](PrintJob &job) {
             job.texts.push_back(text({5, 20, 9, 5}, {}, u"YENİ"_s));
         },
         u"tasarım: barkodun ya da boşluk payının üstüne başka öğe geliyor"_s},
        {[](PrintJob &job) { job.barcodes[0].box.left = 22; },
         u"tasarım: barkod ya da boşluk payı etiketin dışına taşıyor"_s},
    };
    for (const auto &c : cases) {
        PrintJob job = cleanJob();
        c.change(job);
        const QString all = found(job);
        EXPECT_TRUE(c.expected.isEmpty() ? all.isEmpty() : all.startsWith(c.expected))
            << all.toStdString() << "\nexpected " << c.expected.toStdString();
        EXPECT_LE(all.count(u'\n'), c.expected.contains(u"solda"_s) ? 2 : 0) << all.toStdString();
    }
}

TEST(PrintProblems, OnlyWhatTheRunPrintsOnCounts)
{
    // The printer cannot reach the last ten millimetres, where the second column stands.
    const QSizeF area(104, 90);
    EXPECT_TRUE(
        found(cleanJob(), area).contains(u"barkod yazıcının basamadığı kenara taşıyor: sağda"_s));
    PrintJob one = cleanJob();
    one.rows[0].count = 1;
    EXPECT_EQ(found(one, area), u""_s);
    EXPECT_EQ(found(cleanJob(), {}), u""_s); // a printer that does not say
}

TEST(PrintProblems, ALightPictureBeneathBarsDoesNoHarm)
{
    const QTemporaryDir directory;
    for (const int grey : {255, 200, 100}) {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(qRgb(grey, grey, grey));
        ASSERT_TRUE(image.save(directory.filePath(u"%1.png"_s.arg(grey))));
        PrintJob job = cleanJob();
        job.pictures = {{{0, 0, 60, 40}, u"%1.png"_s.arg(grey)}};
        const auto problems = findPrintProblems(job, {{300, 300}, {130, 90}, directory.path(), {}});
        EXPECT_EQ(problems.empty(), grey >= 200) << grey;
    }
}

// The shop's first sheets must come out whole on any desktop printer, and scan.
TEST(PrintProblems, ShippedLayoutsHaveNone)
{
    const QDir folder(sourcePath("/demo/ayar"));
    const QStringList names = folder.entryList({u"*.ayr"_s});
    ASSERT_GE(names.size(), 4);
    for (const QString &name : names) {
        IniKeyFile keys;
        keys.files.insert(name, IniText(readFile(folder.filePath(name))));
        LabelRow row = kRow;
        if (name.contains(u"EAN8"_s))
            row.barcode = u"86900010"_s;
        row.price = u"1.234,50"_s;
        row.count = 100;
        const LabelLayout layout = openLayout(keys, name);
        const PrintJob job = makePrintJob(layout, {row});
        const bool a4 = job.paper.width() > 200;
        const QSizeF area = a4 ? QSizeF(200, 287) : job.paper; // margins of 5 mm
        EXPECT_EQ(found(job, area), u""_s) << name.toStdString();
        if (!a4) {
            EXPECT_EQ(found(job, area, 203), u""_s) << name.toStdString();
        }
    }
}
