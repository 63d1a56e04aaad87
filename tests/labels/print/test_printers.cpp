#include "fakes/fake_ports.h"
#include "labels/print/sheet_pages.h"
#include "platform/printing/page_setup.h"
#include "platform/printing/pdf_document.h"
#include "platform/printing/spooler.h"
#include "platform/printing/system_printers.h"
#include "support/cases.h"
#include "support/print_qt.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// Runs a tool over a file and returns all it said.
QByteArray runTool(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(60'000))
        return "not run";
    return process.readAll();
}

class PrintersTest : public testing::Test
{
protected:
    QString path(const QString &name) const { return directory.filePath(name); }
    QStringList outputs() const
    {
        return QDir(path(u"cikti"_s)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    /// Prints pages with one word each and returns the device's size in dots.
    QSize printWords(PrintDocument &document, const QStringList &words) const
    {
        QPainter painter(&document.device());
        for (const QString &word : words) {
            if (word != words.first())
                document.device().newPage();
            painter.drawText(500, 500, word);
        }
        return {document.device().width(), document.device().height()};
    }

    QTemporaryDir directory;
    FixedClock clock;
    SystemPrinters printers{directory.path(), clock};
    const PrinterSetup a4{u"Etiket: raf.ayr"_s, true, 9, 0, {}};
};

} // namespace

TEST_F(PrintersTest, TheBuiltInPrinterStandsLast)
{
    EXPECT_EQ(printers.names().last(), u"PDF"_s);
    EXPECT_EQ(printers.open(u"Yok"_s, a4), nullptr);
    EXPECT_EQ(printers.open(u"pdf"_s, a4), nullptr);
    EXPECT_EQ(printers.open(QString(), a4), nullptr);
}

TEST_F(PrintersTest, EachDocumentBecomesAFileOfItsOwn)
{
    for (int i = 0; i < 2; ++i) {
        const auto document = printers.open(u"PDF"_s, a4);
        ASSERT_TRUE(document);
        EXPECT_EQ(printWords(*document, {u"bir"_s, u"iki"_s}), QSize(4958, 7017));
        document->finish();
    }
    EXPECT_EQ(outputs(), (QStringList{u"Etiket-raf-ayr-20260307-140500-2.pdf"_s,
                                      u"Etiket-raf-ayr-20260307-140500.pdf"_s}));

    const QString file = path(u"cikti/Etiket-raf-ayr-20260307-140500.pdf"_s);
    const QByteArray info = runTool(u"pdfinfo"_s, {file});
    EXPECT_TRUE(info.contains("Pages:           2")) << info.toStdString();
    EXPECT_TRUE(info.contains("(A4)")) << info.toStdString();
    EXPECT_FALSE(info.contains("Syntax")) << info.toStdString();
    EXPECT_TRUE(readFile(file).contains("/ViewerPreferences << /PrintScaling /None >>"));
}

TEST_F(PrintersTest, ADroppedDocumentLeavesNothing)
{
    {
        const auto document = printers.open(u"PDF"_s, a4);
        printWords(*document, {u"bir"_s});
    }
    EXPECT_EQ(outputs(), QStringList());
}

TEST_F(PrintersTest, AFolderThatCannotBeMadeIsSaid)
{
    writeFile(path(u"cikti"_s), {});
    EXPECT_THROW(printers.open(u"PDF"_s, a4), PrintError);
}

#ifdef Q_OS_UNIX
TEST_F(PrintersTest, AFullDiskIsSaidAndLeavesNothing)
{
    auto document = printers.open(u"PDF"_s, a4);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit full{2000, limit.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    printWords(*document, {u"bir"_s, u"iki"_s, u"üç"_s});
    EXPECT_THROW(document->finish(), PrintError);
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    document.reset();
    EXPECT_EQ(outputs(), QStringList());
}
#endif

TEST_F(PrintersTest, LabelsAreVectorBarsAndSearchableText)
{
    PrintJob job;
    job.grid = {5, 5, 68, 35, 3, 8};
    job.barcodes = {{{5, 10, 45, 20}, {u"DejaVu Sans"_s, 8}, 0, 0, 0, QString()}};
    TextElement name;
    name.box = {5, 1, 60, 6};
    name.font = {u"DejaVu Sans"_s, 8, true};
    name.field = u"Stok Adı"_s;
    TextElement price = name;
    price.box = {60, 5, 6, 26};
    price.angle = 90;
    price.field = u"Fiyat"_s;
    job.texts = {name, price};
    for (int i = 0; i < 24; ++i)
        job.rows.push_back({ean::checkDigit(QString::number(869000000000 + i)),
                            {},
                            u"Çağşöü%1"_s.arg(i),
                            u"%1.234,50"_s.arg(i),
                            1});

    const auto document = printers.open(u"PDF"_s, a4);
    {
        const DeviceFonts fonts({600, 600});
        PictureStore store{QString()};
        QPainter painter(&document->device());
        CommandPainter labels(painter, fonts, store);
        LabelBuilder builder(job, fonts);
        GridWalk walk(job.grid);
        for (const LabelRow &row : job.rows) {
            const GridWalk::Place place = walk.next();
            labels.paint(builder.label(row).commands,
                         {static_cast<double>(place.x), static_cast<double>(place.y)});
        }
    }
    document->finish();

    const QString file = path(u"cikti/"_s + outputs().first());
    const QString text = QString::fromUtf8(runTool(u"pdftotext"_s, {file, u"-"_s}));
    const QByteArray images = runTool(u"pdfimages"_s, {u"-list"_s, file});
    EXPECT_EQ(images.count('\n'), 2) << images.toStdString(); // the two lines of its heading
    runTool(u"pdftoppm"_s, {u"-r"_s, u"300"_s, u"-gray"_s, file, path(u"sayfa"_s)});
    const QStringList read = readBarcodes(QImage(path(u"sayfa-1.pgm"_s)));
    for (const LabelRow &row : job.rows) {
        EXPECT_TRUE(text.contains(row.stockName)) << row.stockName.toStdString();
        EXPECT_TRUE(text.contains(row.price)) << row.price.toStdString();
        EXPECT_TRUE(read.contains(row.barcode)) << row.barcode.toStdString();
    }
}

TEST(PageSetup, PaperNumbersOwnSizesAndOrientation)
{
    for (const Case &c : cases(u"page_setups"_s)) {
        const PrinterSetup setup{{},
                                 c[0] == u"portrait",
                                 static_cast<int>(c.number(1)),
                                 0,
                                 QSizeF(c.number(2), c.number(3))};
        const QSizeF size = pageLayout(setup).fullRect(QPageLayout::Millimeter).size();
        EXPECT_NEAR(size.width(), c.number(4), 0.3) << c;
        EXPECT_NEAR(size.height(), c.number(5), 0.3) << c;
    }
}

TEST(Spooler, QualityChoosesTheResolution)
{
    for (const Case &c : cases(u"print_qualities"_s)) {
        QList<int> choices;
        for (const QString &dpi : c[1].split(u' ', Qt::SkipEmptyParts))
            choices += dpi.toInt();
        EXPECT_EQ(chooseResolution(c[0].toInt(), choices, 300), c.number(2)) << c;
    }
}

#ifdef Q_OS_UNIX
/// A print system of two scripts that keep what they are given.
class SpoolerTest : public PrintersTest
{
protected:
    void SetUp() override
    {
        script(u"lpoptions"_s, "echo 'PageSize/Media Size: *A4 Letter'\n"
                               "echo 'Resolution/Output Resolution: 203dpi *300dpi 600x300dpi'\n");
        script(u"lp"_s, "for a; do echo \"$a\"; last=\"$a\"; done > " + path(u"said"_s).toUtf8() +
                            "\ncp \"$last\" " + path(u"got.pdf"_s).toUtf8() + "\n");
        m_before = qgetenv("PATH");
        qputenv("PATH", path(u"bin"_s).toUtf8() + ":" + m_before);
    }
    void TearDown() override { qputenv("PATH", m_before); }
    void script(const QString &name, const QByteArray &text) const
    {
        ASSERT_TRUE(QDir(directory.path()).mkpath(u"bin"_s));
        const QString file = path(u"bin/"_s + name);
        writeFile(file, "#!/bin/sh\n" + text);
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QByteArray m_before;
};

TEST_F(SpoolerTest, TheSetupReachesThePrinter)
{
    const auto document = openSpooled(u"Etiket 1"_s, {u"Raf"_s, true, 256, -4, {58, 40}});
    EXPECT_EQ(document->device().logicalDpiX(), 600);
    printWords(*document, {u"bir"_s, u"iki"_s});
    document->finish();
    const QStringList said = QString::fromUtf8(readFile(path(u"said"_s))).split(u'\n');
    EXPECT_EQ(said.mid(0, 4), (QStringList{u"-d"_s, u"Etiket 1"_s, u"-t"_s, u"Raf"_s}));
    for (const QString &option : {u"print-scaling=none"_s, u"media=Custom.58x40mm"_s,
                                  u"print-quality=5"_s, u"Resolution=600x300dpi"_s})
        EXPECT_TRUE(said.contains(option)) << option.toStdString();
    EXPECT_TRUE(runTool(u"pdfinfo"_s, {path(u"got.pdf"_s)}).contains("Pages:           2"));
}

TEST_F(SpoolerTest, AStoppedRunReachesNobody)
{
    {
        const auto document = openSpooled(u"Etiket"_s, a4);
        printWords(*document, {u"bir"_s});
    }
    EXPECT_FALSE(QFile::exists(path(u"said"_s)));
}

TEST_F(SpoolerTest, WhatThePrintSystemRefusesIsSaid)
{
    script(u"lp"_s, "echo 'lp: no such printer' >&2\nexit 1\n");
    const auto document = openSpooled(u"Etiket"_s, a4);
    printWords(*document, {u"bir"_s});
    try {
        document->finish();
        FAIL();
    } catch (const PrintError &error) {
        EXPECT_TRUE(error.text().contains(u"no such printer"_s));
    }
}
#endif
