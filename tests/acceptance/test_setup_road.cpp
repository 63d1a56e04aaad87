#include "acceptance/rooms_shop.h"
#include "app/setup_room.h"
#include "sales/sale_settings.h"
#include "shell/forms/login.h"
#include "shell/forms/parametre.h"
#include "shell/forms/setup_form.h"
#include "shell/setup_session.h"
#include "shell/setup_writing.h"
#include "support/files.h"
#include "support/keyboard.h"
#include "tour/ledger_rows.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

/// A working folder in which the program has never run to its end; the demo shop's databases are a
/// ledger like any other.
struct NewTill : ShopFolder, RealMachine
{
    NewTill() : RealMachine(folder.path()), probe(folder.path()), room(program)
    {
        copyShippedFiles(folder.path());
        createDemoShop(folder.path(), clock.now().date());
    }

    SystemProbe probe;
    SetupRoom room;
};

/// The set-up as its user has it before him.
struct Wizard
{
    Wizard(Program &program, HostProbe &probe, SetupRoom &room, SetupSession::Occasion occasion)
        : session(program, probe, room, occasion), form(session)
    {
        form.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    explicit Wizard(NewTill &till)
        : Wizard(till.program, till.probe, till.room, SetupSession::Occasion::firstStart)
    {}

    /// Types what a step is answered with, and goes on once the server has answered.
    void answer(SetupStep step, const QString &text = {})
    {
        ASSERT_EQ(static_cast<int>(session.step()), static_cast<int>(step));
        EXPECT_TRUE(QTest::qWaitFor([this] { return !form.isBusy(); }, 20'000));
        type(text);
        key(Qt::Key_Return);
    }

    SetupSession session;
    SetupForm form;
};

QMap<QString, QByteArray> filesOf(const QString &directory)
{
    QMap<QString, QByteArray> files;
    QDirIterator all(directory, QDir::Files, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString name = all.next();
        files.insert(name, readFile(name));
    }
    return files;
}

/// All of the own ledger's way; the codes are others than the demo shop's own.
void answerAll(Wizard &wizard)
{
    using S = SetupStep;
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    wizard.answer(S::server, kEmbeddedServer.toString());
    wizard.answer(S::databases);
    wizard.answer(S::diagnosis);
    wizard.answer(S::warehouse, u"arka"_s);
    wizard.answer(S::salePrice, u"peraken"_s);
    wizard.answer(S::customer, u"öz çın"_s);
    wizard.answer(S::stockSlip, u"toptan"_s);
    wizard.answer(S::accountSlip, u"virman"_s);
    wizard.answer(S::invoiceType);
    wizard.answer(S::labelPrice1, u"1"_s);
    wizard.answer(S::labelPrice2, u"koli"_s);
    wizard.answer(S::receiptPrinter);
    wizard.answer(S::labelPrinter);
    type(u"kasığ"_s);
    key(Qt::Key_Return); // to the other box
    wizard.answer(S::password, u"kasığ"_s);
}

} // namespace

TEST(Setup, ByKeysWritesWhatTheTillBooksItsSalesOn)
{
    NewTill till;
    {
        Wizard wizard(till);
        answerAll(wizard);
        EXPECT_FALSE(QFile::exists(till.program.path(settings::kFile))) << "before the last step";
        wizard.answer(SetupStep::summary);
        EXPECT_EQ(wizard.form.result(), QDialog::Accepted);
    }
    const Settings::Stok stok = oku(till.program.files()).stok;
    EXPECT_EQ(
        (QStringList{stok.depo, stok.depoadi, stok.fiyatip, stok.carikod, stok.cari, stok.stkfistip,
                     stok.crfistip, stok.ftfistip, stok.br1fyt, stok.br2fyt, stok.br2fytadi}),
        (QStringList{u"02"_s, u"ARKA DEPO"_s, u"1"_s, u"120.01.002"_s, u"Öz Çınar Lokantası"_s,
                     u"4"_s, u"6"_s, u"3"_s, u"1"_s, u"2"_s, u"KOLİ"_s}));
    EXPECT_EQ(settings::read(till.program.files(), {u"login"}).login.sifre, u"KASIĞ"_s);

    till.open();
    const LedgerRows before(till.program.company());
    TillSession session(till.program);
    QStringList unknown;
    QObject::connect(&session, &TillSession::codesChecked, &session,
                     [&](const QStringList &codes) { unknown = codes; });
    session.load();
    EXPECT_EQ(unknown, QStringList());
    session.enterCode(u"86933308"_s);
    session.post();
    const QString written = LedgerRows(till.program.company()).changedSince(before);
    for (const QString &part : {u"120.01.002"_s, u"Öz Çınar Lokantası"_s})
        EXPECT_TRUE(written.contains(part)) << written.toStdString();
    RecordSet slip = till.program.company().execute(
        u"select * from STKFIS where STKFISREFNO=(select max(STKFISREFNO) from STKFIS)"_s);
    EXPECT_EQ(slip.text(u"STKFISANADEPO") + slip.text(u"STKFISTIPI"), u"024"_s);
    slip = till.program.company().execute(
        u"select * from CARFIS where CARFISREFNO=(select max(CARFISREFNO) from CARFIS)"_s);
    EXPECT_EQ(slip.text(u"CARFISTIPI"), u"6"_s);
}

TEST(Setup, TakesAnotherTillsSettingsButItsPrinters)
{
    RealShop other;
    {
        OpenDatabase db(other.db, other.program.path(settings::kFile));
        db.execute(u"Update stok set depo='03',depoadi='ÇARŞI ŞUBESİ' Where id ='1'"_s);
        db.execute(u"Update yazici set yazici1='ÖBÜR YAZICI' Where id ='1'"_s);
    }
    {
        OpenDatabase receipt(other.db, other.program.path(settings::kReceiptFile));
        settings::complete(receipt, LocalFile::receipt, settings::Fill::design);
        receipt.execute(u"Update zno set zno='77' Where id ='1'"_s);
    }
    other.keys.write(u"print"_s, u"printer"_s, u"ÖBÜR YAZICI"_s,
                     other.program.path(u"ayar/Bizim.ayr"));
    writeFile(other.program.path(u"ayar/pic/logo.png"), "logo");
    const auto untouched = filesOf(other.program.directory());

    NewTill till;
    {
        Wizard wizard(till);
        key(Qt::Key_Down);
        key(Qt::Key_Down);
        key(Qt::Key_Return);
        wizard.answer(SetupStep::folder, till.folder.path()); // its own
        key(Qt::Key_A, Qt::ControlModifier);
        wizard.answer(SetupStep::folder, other.folder.path());
        key(Qt::Key_Return);
        ASSERT_EQ(wizard.session.step(), SetupStep::receiptPrinter) << "it has no such printer";
        key(Qt::Key_Down);
        wizard.answer(SetupStep::receiptPrinter);
        wizard.answer(SetupStep::labelPrinter);
        wizard.answer(SetupStep::summary);
        EXPECT_EQ(wizard.form.result(), QDialog::Accepted);
    }
    const Settings taken = settings::read(till.program.files(), {u"stok", u"yazici"});
    EXPECT_EQ(taken.stok.depo + taken.yazici.yazici1, u"03PDF"_s);
    EXPECT_EQ(till.keys.read(u"print"_s, u"printer"_s, till.program.path(u"ayar/Bizim.ayr")),
              kPdfPrinter);
    EXPECT_EQ(readFile(till.program.path(u"ayar/pic/logo.png")), "logo");
    const QString receipts = till.program.path(settings::kReceiptFile);
    EXPECT_FALSE(QFile::permissions(receipts).testAnyFlags(QFile::ReadGroup | QFile::ReadOther));
    settings::Texts counter{{u"zno.zno"_s, {}}};
    OpenDatabase receipt(till.db, receipts);
    settings::readTexts(receipt, LocalFile::receipt, u"zno", counter);
    EXPECT_EQ(counter.value(u"zno.zno"_s), u"0"_s) << "a till counts its own";
    EXPECT_EQ(filesOf(other.program.directory()), untouched);
}

/// Whoever opens it from the settings and leaves has changed nothing, whatever was typed.
TEST_F(RoomsTest, TheSetupOpensFromTheSettingsWithTodaysValuesAndMayBeLeft)
{
    rooms.open();
    rooms.showLogin();
    enter(open<login>().first(), u"lgpass"_s, {});
    ASSERT_NE(await<parametre>(), nullptr);
    const auto before = filesOf(shop.folder.path());
    click(open<parametre>().first(), u"setup"_s);
    SetupForm *const form = await<SetupForm>();
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(open<parametre>().isEmpty());
    ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    key(Qt::Key_Return);
    EXPECT_EQ(child<QLineEdit>(*form, u"server"_s)->text(), kEmbeddedServer);
    type(u"X"_s);
    key(Qt::Key_Escape); // asked, and nobody says yes
    EXPECT_EQ(open<SetupForm>().size(), 1);
    shop.prompt.answers = {Answer::yes};
    key(Qt::Key_Escape);
    EXPECT_TRUE(open<SetupForm>().isEmpty());
    EXPECT_EQ(filesOf(shop.folder.path()), before);
}

TEST(Setup, TellsWhatCannotBeWrittenAndKeepsTheAnswers)
{
    NewTill till;
    Wizard wizard(till);
    answerAll(wizard);
    writeFile(till.program.path(u"kurulum.yeni"), "in the way");
    const auto before = filesOf(till.folder.path());
    wizard.answer(SetupStep::summary);
    EXPECT_TRUE(child<QLabel>(wizard.form, u"notice"_s)->text().contains(u"yazılamadı"_s));
    EXPECT_EQ(filesOf(till.folder.path()), before);
    QFile::remove(till.program.path(u"kurulum.yeni"));
    wizard.answer(SetupStep::summary);
    EXPECT_EQ(oku(till.program.files()).stok.depo, u"02"_s);
}

TEST(Setup, SearchesFiftyThousandCustomersWithoutDelay)
{
    std::vector<HostCode> codes;
    for (int i = 0; i < 50'000; ++i)
        codes.push_back({u"120.%1"_s.arg(i, 6, 10, QChar(u'0')),
                         u"İnci Çiçekçilik ve Ağaçlandırma Ltd. Şti. Şube %1"_s.arg(i)});
    CodeChoices choices;
    choices.setCodes(std::move(codes));
    QElapsedTimer timer;
    timer.start();
    for (const QString &typed : {u"i"_s, u"in"_s, u"inc"_s, u"inci şube 4999"_s})
        choices.search(typed);
    EXPECT_LT(timer.elapsed(), 2000) << "the slowest machine that runs the tests";
    EXPECT_EQ(choices.rowCount(), 15);
    EXPECT_EQ(choices.at(0).code, u"120.004999"_s);
    choices.search(u"çiçek"_s); // other words: among all of them again
    EXPECT_EQ(choices.rowCount(), 50'000);
}
