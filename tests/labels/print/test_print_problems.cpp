#include "labels/layout/label_layout.h"
#include "labels/print/print_problems.h"
#include "labels/print/scannability.h"
#include "support/cases.h"
#include "support/ini_key_file.h"
#include "support/print_qt.h"

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
    for (const Case &c : cases(u"print_problems"_s)) {
        PrintJob job = cleanJob();
        const QHash<QString, QString *> words = {{u"barcode"_s, &job.rows[0].barcode},
                                                 {u"price"_s, &job.rows[0].price},
                                                 {u"name"_s, &job.rows[0].stockName},
                                                 {u"field"_s, &job.texts[0].field}};
        const QHash<QString, float *> lengths = {{u"text.left"_s, &job.texts[0].box.left},
                                                 {u"text.top"_s, &job.texts[1].box.top},
                                                 {u"bars.left"_s, &job.barcodes[0].box.left},
                                                 {u"bars.width"_s, &job.barcodes[0].box.width},
                                                 {u"bars.height"_s, &job.barcodes[0].box.height},
                                                 {u"grid.left"_s, &job.grid.left},
                                                 {u"grid.down"_s, &job.grid.down}};
        if (words.contains(c[0]))
            *words[c[0]] = c[1];
        else if (lengths.contains(c[0]))
            *lengths[c[0]] = static_cast<float>(c.number(1));
        else if (c[0] == u"picture")
            job.pictures = {{{50, 2, 5, 5}, c[1]}};
        else if (c[0] == u"text over the bars")
            job.texts.push_back(text({5, 20, 9, 5}, {}, c[1]));
        else
            job.barcodes[0].colour = c[1].toInt(nullptr, 16);
        const QString all = found(job);
        EXPECT_TRUE(c.value(2).isEmpty() ? all.isEmpty() : all.startsWith(c[2]))
            << c << "\nfound: " << all.toStdString();
        EXPECT_LE(all.count(u'\n'), c.value(2).contains(u"solda"_s) ? 2 : 0) << all.toStdString();
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
    ASSERT_GE(names.size(), 5);
    for (const QString &name : names) {
        IniKeyFile keys;
        keys.files.insert(name, IniText(readFile(folder.filePath(name))));
        LabelRow row = kRow;
        row.fields.insert(u"STKMENSEI"_s, u"Kahramanmaraş"_s);
        row.price = u"1.234,50"_s;
        row.count = 100;
        LabelRow other = row; // a box that is right for the long symbol is right for the short one
        other.barcode = u"86900010"_s;
        const LabelLayout layout = openLayout(keys, name);
        const PrintJob job = makePrintJob(
            layout, name.contains(u"EAN8"_s) ? std::vector{other} : std::vector{row, other});
        const bool a4 = job.paper.width() > 200;
        const QSizeF area = a4 ? QSizeF(200, 287) : job.paper; // margins of 5 mm
        EXPECT_EQ(found(job, area), u""_s) << name.toStdString();
        if (!a4) {
            EXPECT_EQ(found(job, area, 203), u""_s) << name.toStdString();
        }
    }
}
