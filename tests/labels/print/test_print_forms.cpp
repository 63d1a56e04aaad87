#include "labels/print/forms/print_problems.h"
#include "labels/print/forms/print_progress.h"
#include "labels/print/forms/yazfrm.h"
#include "labels/print/print_desk.h"
#include "support/keyboard.h"
#include "support/print_qt.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class PrintDialogTest : public testing::Test
{
protected:
    void SetUp() override
    {
        desk.addLayout(u"Kasa.ayr"_s, PrintDesk::plainLayout());
        desk.addLayout(u"Raf.ayr"_s, PrintDesk::barcodeLayout());
        open();
    }
    /// Opens the dialog, anew when it is open.
    void open()
    {
        const std::vector<LabelRow> rows = {PrintDesk::row(u"Ayran"_s, 2),
                                            PrintDesk::row(u"Peynir"_s, 1)};
        form.emplace(desk.run, PrintRequest{PrintMode::all, rows});
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&*form));
    }
    template <typename T>
    T *child(const QString &name)
    {
        return form->findChild<T *>(name);
    }
    bool hasPreview() { return !child<QLabel>(u"onizleme"_s)->pixmap(Qt::ReturnByValue).isNull(); }

    PrintDesk desk;
    std::optional<yazfrm> form;
};

} // namespace

TEST_F(PrintDialogTest, KeysChooseALayoutSeeItAndPrintOnce)
{
    key(Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    open();
    EXPECT_FALSE(hasPreview());
    key(Qt::Key_Return);
    EXPECT_EQ(desk.prompt.warned, QStringList{u"Ayar Dosyası Seciniz..."_s});
    EXPECT_TRUE(form->isVisible());

    key(Qt::Key_Down);
    key(Qt::Key_Down);
    EXPECT_EQ(child<QLineEdit>(u"ad"_s)->text(), u"Raf.ayr"_s);
    EXPECT_EQ(child<QComboBox>(u"yazici"_s)->currentText(), u"PDF"_s);
    EXPECT_TRUE(hasPreview());
    key(Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([this] { return desk.printers.documents.size() == 1; }));
    EXPECT_EQ(desk.printers.documents[0].setup.document, u"Etiket Raf"_s);
    EXPECT_TRUE(desk.printers.documents[0].finished);
}

TEST_F(PrintDialogTest, ANameCanBeTyped)
{
    desk.addLayout(u"DEPO.AYR"_s, PrintDesk::plainLayout()); // as old programs save them
    open();
    QTest::keyClicks(child<QLineEdit>(u"ad"_s), u"depo"_s);
    EXPECT_TRUE(hasPreview());
    open();
    auto *const name = child<QLineEdit>(u"ad"_s);
    QTest::keyClicks(name, u"kas"_s);
    EXPECT_FALSE(hasPreview());
    QTest::keyClicks(name, u"a"_s);
    EXPECT_TRUE(hasPreview());
    EXPECT_EQ(name->text(), u"kasa"_s);
    EXPECT_EQ(child<QListWidget>(u"liste"_s)->currentItem()->text(), u"Kasa.ayr"_s);
    QTest::keyClicks(name, u"x"_s);
    EXPECT_FALSE(hasPreview());
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_EQ(name->text(), u"kasax"_s);
    EXPECT_EQ(desk.prompt.warned.size(), 1);
}

// A shop's own printer and its everyday layout are settled here, and the layout's file keeps them.
TEST_F(PrintDialogTest, ALayoutGetsItsPrinterAndBecomesTheDefault)
{
    desk.printers.list.prepend(u"Zebra"_s);
    open();
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    auto *printer = child<QComboBox>(u"yazici"_s);
    auto *const standard = child<QCheckBox>(u"varsayilan"_s);
    EXPECT_FALSE(standard->isChecked());
    printer->setFocus();
    key(Qt::Key_Up);
    standard->setFocus();
    key(Qt::Key_Space);
    EXPECT_EQ(desk.run.layouts().open(u"Raf.ayr"_s).printer, u"Zebra"_s);
    EXPECT_EQ(desk.run.layouts().open(u"Kasa.ayr"_s).printer, u"PDF"_s);
    EXPECT_EQ(desk.run.layouts().defaultName(), u"Raf.ayr"_s);
    key(Qt::Key_Space);
    EXPECT_EQ(desk.run.layouts().defaultName(), u""_s);

    desk.printers.list.removeFirst(); // the printer was taken off the machine
    open();
    child<QListWidget>(u"liste"_s)->setCurrentRow(0);
    child<QListWidget>(u"liste"_s)->setCurrentRow(1);
    printer = child<QComboBox>(u"yazici"_s);
    EXPECT_EQ(printer->currentText(), u"Zebra (bu bilgisayarda yok)"_s);
}

TEST(PrintProblemsForm, AnswersOnceAfterItsOwnKey)
{
    PrintDesk desk;
    desk.addLayout(u"raf.ayr"_s, PrintDesk::barcodeLayout());
    LabelRow bad = PrintDesk::row(u"Ayran"_s, 1, 7);
    bad.barcode.clear();
    std::unique_ptr<PrintProblems> form;
    QList<int> wanted;
    QObject::connect(&desk.run, &PrintRun::problemsFound, [&](const auto &problems) {
        form = std::make_unique<PrintProblems>(desk.run, problems);
        QObject::connect(form.get(), &PrintProblems::rowWanted, [&](int row) { wanted += row; });
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    });
    const auto answer = [&](auto press) {
        desk.run.yazzzz({PrintMode::all, {bad}}, u"raf.ayr"_s);
        press();
        EXPECT_FALSE(form->isVisible());
        EXPECT_TRUE(desk.run.isRunning());
        QCoreApplication::processEvents();
        EXPECT_FALSE(desk.run.isRunning());
        return desk.printers.documents.back().finished;
    };
    EXPECT_FALSE(answer([] { key(Qt::Key_Escape); }));
    EXPECT_FALSE(answer([] { key(Qt::Key_Return); }));
    EXPECT_TRUE(wanted.isEmpty());
    EXPECT_FALSE(answer([&] { form->findChild<QPushButton *>(u"satir"_s)->click(); }));
    EXPECT_EQ(wanted, QList<int>{7});
    EXPECT_TRUE(answer([&] { form->findChild<QPushButton *>(u"yazdir"_s)->click(); }));
}

TEST(PrintProgress, ShowsALongRunAndEscapeStopsIt)
{
    PrintDesk desk;
    desk.addLayout(u"raf.ayr"_s, PrintDesk::plainLayout());
    PrintProgress window(desk.run);
    bool shown = false;
    const auto stopOnceShown = [&](qint64 label, qint64 labels, int page) {
        EXPECT_EQ(labels, 999'999);
        EXPECT_EQ(page, (label + 3) / 4);
        if (page < 2)
            return;
        shown = window.isVisible();
        EXPECT_TRUE(window.findChild<QLabel *>(u"durum"_s)->text().endsWith(u"/ 999.999"_s));
        EXPECT_TRUE(window.findChild<QLabel *>(u"sayfa"_s)->text().startsWith(u"Sayfa "_s));
        QTest::keyClick(&window, Qt::Key_Escape);
    };
    QObject::connect(&desk.run, &PrintRun::progressed, &window, stopOnceShown);
    QString status;
    QObject::connect(&desk.run, &PrintRun::statusChanged, &window,
                     [&](const QString &text) { status = text; });
    EXPECT_FALSE(
        desk.run.yazzzz({PrintMode::all, {PrintDesk::row(u"Ayran"_s, 999'999)}}, u"raf.ayr"_s));
    EXPECT_TRUE(shown);
    EXPECT_TRUE(status.contains(u"hiçbir etiket"_s));
    EXPECT_FALSE(desk.run.isRunning());
    EXPECT_TRUE(desk.printers.documents[0].cancelled);
    EXPECT_FALSE(desk.printers.documents[0].finished);
    EXPECT_FALSE(window.isVisible());
}

TEST(PrintProgress, ShortRunsNeverShowIt)
{
    PrintDesk desk;
    desk.addLayout(u"raf.ayr"_s, PrintDesk::plainLayout());
    PrintProgress window(desk.run);
    bool shown = false;
    QObject::connect(&desk.run, &PrintRun::rowStarted, [&] { shown |= window.isVisible(); });
    EXPECT_TRUE(desk.run.yazzzz({PrintMode::all, {PrintDesk::row(u"Ayran"_s, 1)}}, u"raf.ayr"_s));
    EXPECT_FALSE(shown);
}
