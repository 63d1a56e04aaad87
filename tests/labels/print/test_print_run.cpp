#include "common/turkish.h"
#include "labels/layout/layout_encoding.h"
#include "labels/print/label_preview.h"
#include "labels/print/print_desk.h"
#include "support/cases.h"
#include "support/print_qt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class PrintRunTest : public testing::Test
{
protected:
    void SetUp() override
    {
        desk.openCompany(); // fields that have no name of ours may be columns of the stock card
        QObject::connect(&desk.run, &PrintRun::rowStarted, [this](int row) { rows += row; });
        QObject::connect(&desk.run, &PrintRun::finished, [this](bool done) { ends += done; });
        QObject::connect(&desk.run, &PrintRun::layoutWanted, [this](const PrintRequest &request) {
            modes += static_cast<int>(request.mode);
            EXPECT_TRUE(desk.run.yazzzz(request, u"raf.ayr"_s));
        });
        QObject::connect(&desk.run, &PrintRun::problemsFound,
                         [this](const std::vector<PrintProblem> &problems) {
                             asked.push_back(problems);
                             desk.run.answer(printAllTheSame, forget);
                         });
        QObject::connect(&desk.run, &PrintRun::statusChanged,
                         [this](const QString &text) { status = text; });
    }
    void useDefault(const LabelLayout &layout)
    {
        desk.addLayout(u"raf.ayr"_s, layout);
        desk.setDefault(u"raf.ayr"_s);
    }
    const RecordedDocument &document() const { return desk.printers.documents.at(0); }

    PrintDesk desk;
    QList<int> rows;
    QList<bool> ends;
    QList<int> modes;
    QString status;
    std::vector<std::vector<PrintProblem>> asked;
    bool printAllTheSame = false;
    bool forget = false;
    const std::vector<LabelRow> queue = {PrintDesk::row(u"Ayran"_s, 3),
                                         PrintDesk::row(u"Peynir"_s, 2, 1)};
    const PrintRequest second = {PrintMode::selected, {queue[1]}};
};

} // namespace

TEST_F(PrintRunTest, AllRowsWithTheDefaultLayout)
{
    useDefault(PrintDesk::barcodeLayout());
    desk.run.start({PrintMode::all, queue});
    ASSERT_EQ(desk.printers.documents.size(), 1U);
    EXPECT_EQ(document().printer, u"PDF"_s);
    EXPECT_EQ(document().setup, (PrinterSetup{u"Etiket raf"_s, true, 256, 0, {120, 80}}));
    EXPECT_EQ(document().pages, 2);
    EXPECT_TRUE(document().finished);
    EXPECT_EQ(rows, (QList<int>{0, 1}));
    EXPECT_EQ(ends, QList<bool>{true});
    EXPECT_TRUE(status.startsWith(u"5 etiket yazdırıldı, 2 sayfa"_s)) << status.toStdString();
    EXPECT_TRUE(modes.empty());
    EXPECT_TRUE(asked.empty());
}

TEST_F(PrintRunTest, OnlyTheSelectedRow)
{
    useDefault(PrintDesk::plainLayout());
    desk.run.start(second);
    EXPECT_EQ(rows, QList<int>{1});
    EXPECT_EQ(document().pages, 1);
    EXPECT_TRUE(document().finished);
    desk.run.start({PrintMode::selected, {PrintDesk::row(u"Ayran"_s, 8)}});
    EXPECT_EQ(desk.printers.documents.back().pages, 2); // a full sheet feeds no blank one
}

TEST_F(PrintRunTest, WithoutADefaultTheDialogIsAskedFor)
{
    desk.addLayout(u"raf.ayr"_s, PrintDesk::plainLayout());
    desk.run.start({PrintMode::all, queue});
    desk.run.start(second);
    EXPECT_EQ(modes, (QList<int>{1, 2}));
    EXPECT_EQ(rows, (QList<int>{0, 1, 1}));

    desk.setDefault(u"raf.ayr"_s);
    desk.run.start(
        {.mode = PrintMode::all, .rows = queue, .chooseLayout = true}); // asked for all the same
    EXPECT_EQ(modes, (QList<int>{1, 2, 1}));
}

TEST_F(PrintRunTest, APrinterThatIsGoneIsSaid)
{
    LabelLayout layout = PrintDesk::plainLayout();
    layout.printer = u"Etiket Yazıcısı"_s;
    useDefault(layout);
    desk.run.start({PrintMode::all, queue});
    desk.setDefault(u"silinmis.ayr"_s);
    desk.run.start({PrintMode::all, queue});
    EXPECT_TRUE(status.contains(u"silinmis.ayr"_s)) << status.toStdString();
    const QString message = u"Yazici Hatası,Doğru Yazıcı Seçimi Yapınız..."_s;
    EXPECT_EQ(desk.prompt.warned, (QStringList{message, message}));
    EXPECT_EQ(ends, (QList<bool>{false, false}));
    EXPECT_TRUE(rows.empty());
}

TEST_F(PrintRunTest, WhatComesOutOtherwiseIsAskedAboutFirst)
{
    useDefault(PrintDesk::barcodeLayout());
    std::vector<LabelRow> bad = queue;
    bad[1].barcode.clear();
    desk.run.start({PrintMode::all, bad});
    ASSERT_EQ(asked.size(), 1U);
    ASSERT_EQ(asked[0].size(), 1U);
    EXPECT_EQ(asked[0][0], (PrintProblem{false, 1, u"Peynir"_s, {}, u"barkodu yok"_s}));
    EXPECT_FALSE(document().finished);
    EXPECT_TRUE(rows.empty());
    EXPECT_TRUE(status.contains(u"hiçbir etiket yazdırılmadı"_s));
    EXPECT_EQ(ends, QList<bool>{false});

    printAllTheSame = true;
    desk.run.start({PrintMode::all, bad});
    EXPECT_TRUE(desk.printers.documents.at(1).finished);
    EXPECT_EQ(ends, (QList<bool>{false, true}));
}

// A shop knows its layout's faults after the first time; those of its goods are new every day.
TEST_F(PrintRunTest, FaultsOfALayoutCanBeForgottenUntilTheyChange)
{
    LabelLayout layout = PrintDesk::plainLayout();
    layout.texts[0].field = layout.texts[0].caption = u"Renk"_s;
    useDefault(layout);
    printAllTheSame = forget = true;
    desk.run.start(second);
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_TRUE(asked[0][0].ofLayout);
    desk.run.start(second);
    EXPECT_EQ(asked.size(), 1U);
    EXPECT_EQ(ends, (QList<bool>{true, true}));

    layout.across = u"0"_s;
    useDefault(layout);
    desk.run.start(second);
    EXPECT_EQ(asked.size(), 2U);
}

TEST_F(PrintRunTest, ARunThatWaitsForAnAnswerCanBeStopped)
{
    LabelLayout layout = PrintDesk::plainLayout();
    layout.texts[0].field = layout.texts[0].caption = u"Renk"_s;
    useDefault(layout);
    PrintRun run(desk.program); // nobody answers
    QObject::connect(&run, &PrintRun::finished, [this](bool done) { ends += done; });
    run.start(second);
    EXPECT_TRUE(run.isRunning());
    run.stop();
    EXPECT_FALSE(run.isRunning());
    run.answer(true);
    EXPECT_EQ(ends, QList<bool>{false});
    EXPECT_FALSE(document().finished);
}

// An editor keeps Turkish letters in Unicode without a word; every bound field would be unknown.
TEST_F(PrintRunTest, ALayoutSavedInUnicodeIsConvertedOrNotPrinted)
{
    useDefault(PrintDesk::plainLayout());
    const QString file = layoutFolder(desk.directory.path()) + u"/raf.ayr"_s;
    const QString text = u"\r\n[tx1]\r\nyz=Çay Şekeri ığ\r\n"_s;
    const QByteArray good = turkish::toCodePage1254(text);
    QByteArray utf16("\xFF\xFE");
    for (const QChar c : text)
        utf16.append(static_cast<char>(c.cell())).append(static_cast<char>(c.row()));
    for (const QByteArray &bytes : {text.toUtf8(), "\xEF\xBB\xBF" + text.toUtf8(), utf16}) {
        writeFile(file, bytes);
        desk.prompt.confirmWith = false;
        desk.run.start(second);
        EXPECT_EQ(readFile(file), bytes);
        EXPECT_TRUE(status.contains(u"raf.ayr"_s));
        desk.prompt.confirmWith = true;
        desk.run.start(second);
        EXPECT_EQ(readFile(file), good);
    }
    EXPECT_EQ(ends, (QList<bool>{false, true, false, true, false, true}));

    writeFile(file, u"yz=中文"_s.toUtf8());
    desk.run.start(second);
    EXPECT_EQ(readFile(file), u"yz=中文"_s.toUtf8());
    EXPECT_EQ(desk.prompt.warned.size(), 1);
    for (const QByteArray &bytes : {good, QByteArray(), QByteArray("\r\n[tx1]\r\nyz=plain")})
        EXPECT_EQ(encodingOf(bytes), LayoutEncoding::codePage);
}

TEST_F(PrintRunTest, FailuresOfThePrinterAreSaidAndLeaveNothingRunning)
{
    useDefault(PrintDesk::plainLayout());
    desk.printers.failToBegin = true;
    desk.run.start({PrintMode::all, queue});
    desk.printers.failToBegin = false;
    desk.printers.failBeforePage = 2;
    desk.run.start({PrintMode::all, queue});
    desk.printers.failBeforePage = 0;
    desk.printers.finishError = u"Disk dolu."_s;
    desk.run.start({PrintMode::all, queue});
    desk.printers.finishError.reset();

    ASSERT_EQ(desk.prompt.warned.size(), 3);
    EXPECT_TRUE(desk.prompt.warned[0].contains(u"başlayamadı"_s));
    EXPECT_TRUE(desk.prompt.warned[1].contains(u"2. sayfada durdu"_s));
    EXPECT_EQ(desk.prompt.warned[2], u"Disk dolu."_s);
    EXPECT_TRUE(desk.printers.documents[1].cancelled);
    for (const RecordedDocument &one : desk.printers.documents)
        EXPECT_FALSE(one.finished);

    desk.run.start({PrintMode::all, queue});
    EXPECT_TRUE(desk.printers.documents.back().finished);
    EXPECT_EQ(ends, (QList<bool>{false, false, false, true}));
}

TEST_F(PrintRunTest, ASecondRunIsRefusedWhileOneRuns)
{
    useDefault(PrintDesk::plainLayout());
    QObject::connect(&desk.run, &PrintRun::rowStarted, [&] {
        EXPECT_TRUE(desk.run.isRunning());
        desk.run.start({.rows = queue, .chooseLayout = true});
        EXPECT_FALSE(desk.run.yazzzz({PrintMode::all, queue}, u"raf.ayr"_s));
    });
    desk.run.start({PrintMode::all, queue});
    EXPECT_EQ(desk.printers.documents.size(), 1U);
    EXPECT_EQ(ends, QList<bool>{true});
}

TEST_F(PrintRunTest, TheNextRunMayBeginWhereTheLastOneEnded)
{
    useDefault(PrintDesk::plainLayout());
    bool again = true;
    QObject::connect(&desk.run, &PrintRun::finished, [&] {
        if (std::exchange(again, false))
            desk.run.start(second);
    });
    desk.run.start({PrintMode::all, queue});
    EXPECT_EQ(rows, (QList<int>{0, 1, 1}));
    EXPECT_EQ(ends, (QList<bool>{true, true}));
}

TEST_F(PrintRunTest, SheetsWithoutCountsAreAskedAboutAndKeepToOnePage)
{
    printAllTheSame = true;
    for (const QString &count : {u"0"_s, u"-3"_s, u"abc"_s, u""_s, u"2,3"_s, u"1e30"_s}) {
        LabelLayout layout = PrintDesk::plainLayout();
        layout.across = count;
        useDefault(layout);
        desk.run.start({PrintMode::all, {PrintDesk::row(u"Ayran"_s, 300)}});
        EXPECT_EQ(desk.printers.documents.back().pages, 1) << count.toStdString();
        EXPECT_TRUE(desk.printers.documents.back().finished);
    }
    EXPECT_EQ(asked.size(), 6U);
}

TEST_F(PrintRunTest, RowsOfNoLabelsAreLeftOut)
{
    useDefault(PrintDesk::barcodeLayout());
    LabelRow none = PrintDesk::row(u"Yok"_s, 0, 1);
    none.barcode = u"12345670"_s;
    LabelRow last = PrintDesk::row(u"Ayran"_s, 3, 2);
    last.barcode = u"869000000001"_s; // still EAN-13: the row between prints nothing
    printAllTheSame = true;
    desk.run.start({PrintMode::all, {queue[0], none, last}});
    EXPECT_EQ(rows, (QList<int>{0, 2}));
    desk.run.start({PrintMode::all, {none}});
    desk.run.start({PrintMode::all, {}});
    EXPECT_EQ(desk.printers.documents.size(), 1U);
    EXPECT_TRUE(modes.empty());
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_TRUE(asked[0][0].text.endsWith(u"8690000000012 olarak basılır"_s));
    EXPECT_TRUE(desk.prompt.warned.empty());
}

TEST_F(PrintRunTest, TheFirstWaitingLabelIsPreviewed)
{
    useDefault(PrintDesk::barcodeLayout());
    const auto preview = [this](const QString &layout) {
        return desk.run.preview({PrintMode::all, queue}, desk.run.layouts().open(layout),
                                {300, 300});
    };
    const QSize shown = preview(u"raf.ayr"_s).size();
    EXPECT_EQ(shown.width(), 300);
    EXPECT_NEAR(shown.height(), 200, 1);
    EXPECT_TRUE(preview(u"yok.ayr"_s).isNull());
    EXPECT_TRUE(desk.run.preview({}, desk.run.layouts().open(u"raf.ayr"_s), {300, 300}).isNull());
    EXPECT_EQ(desk.run.layouts().names(), QStringList{u"raf.ayr"_s});
    EXPECT_FALSE(desk.run.requireLayout(u"../raf.ayr"_s));
    EXPECT_EQ(desk.prompt.warned.back(), u"Ayar Dosyası Seciniz..."_s);
}

TEST(LabelPreview, LabelsAreAsLargeAsTheirStepOrSheet)
{
    for (const Case &c : cases(u"label_sizes"_s)) {
        const auto mm = [&](int field) { return static_cast<float>(c.number(field)); };
        PrintJob job;
        job.grid = {mm(0), mm(1), mm(2), mm(3), mm(4), mm(5)};
        job.paper = {c.number(6), c.number(7)};
        job.pictures = {{{5, 5, 15, 5}, u"a.png"_s}, {{5, 5, 1e9F, 1e9F}, u"a.png"_s}};
        EXPECT_EQ(labelSize(job), QSizeF(c.number(8), c.number(9))) << c;
    }
}
