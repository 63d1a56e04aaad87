#include "fakes/fake_ports.h"
#include "labels/designer/designer_session.h"
#include "labels/designer/designs.h"
#include "platform/machine/profile_key_file.h"
#include "support/files.h"
#include "support/test_machine.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kReplace = u"Aynı İsimde Ayar Mevcut.Yinede Değiştirilmesini İstiyormusunuz..."_s;
const QString kReplaceAs = u"Ayar Dosyası Zaten Var.Dosyanın Değiştirilmesini İstiyormusunuz..."_s;

struct Folder
{
    QTemporaryDir directory;
};

/// A designer over a folder of the disk, on a machine of fakes with real key files.
class DesignerSessionTest : public testing::Test, protected Folder
{
protected:
    DesignerSessionTest()
    {
        QDir().mkpath(pictureFolder(directory.path()));
        session = std::make_unique<DesignerSession>(program);
    }
    QString path(const QString &name) const { return layoutFolder(directory.path()) + u'/' + name; }
    void addText(const QString &caption)
    {
        session->editor().change(u"deneme"_s, 0, [&](Design &design) {
            design.layout.texts.push_back(textAt({1, 1, 20, 5}, caption));
        });
    }
    QString lastAsked() const
    {
        return machine.prompt.shown.empty() ? QString() : machine.prompt.shown.back().text;
    }

    FakeMachine machine{directory.path()};
    ProfileKeyFile keys;
    Program program{Ports{machine.connector, machine.db, keys, machine.printers, machine.sounds,
                          machine.clock, machine.prompt},
                    directory.path()};
    std::unique_ptr<DesignerSession> session;
};

} // namespace

TEST_F(DesignerSessionTest, SavesUnderANameAndOpensTheSameAgain)
{
    EXPECT_EQ(session->title(), u"Sayfa Tasarımı"_s);
    addText(u"Şeftali"_s);
    session->editor().select({{kText, 0}});
    session->editor().run(Command::lock);
    session->editor().pressRuler(Qt::Vertical);
    session->editor().release({{5, 5}, 0.5, false, true});
    const Design design = session->editor().design();
    EXPECT_TRUE(session->kaydet(u"Raf"_s, true));
    EXPECT_EQ(session->title(), u"Sayfa Tasarımı (Raf.ayr)"_s);
    EXPECT_FALSE(session->editor().document().isDirty());
    EXPECT_TRUE(session->isDefault());
    const QByteArray bytes = readFile(path(u"Raf.ayr"_s));
    EXPECT_TRUE(bytes.startsWith("\r\n[tx1]\r\nx=20,0\r\n"));

    session->newLayout();
    EXPECT_NE(session->editor().design(), design);
    EXPECT_TRUE(session->ac(u"Raf.ayr"_s));
    EXPECT_EQ(session->editor().design(), design);
    EXPECT_TRUE(machine.prompt.shown.empty()); // nothing unsaved, nothing there before
}

// Layouts from elsewhere keep every key they have, opaque numbers too.
TEST_F(DesignerSessionTest, ALayoutOpenedAndSavedUnchangedKeepsItsBytes)
{
    for (const QString &name :
         {u"Raf 3x8.ayr"_s, u"Raf Etiketi.ayr"_s, u"Dört Yön.ayr"_s, u"65li A4 EAN8.ayr"_s}) {
        const QByteArray bytes = readFile(sourcePath("/demo/ayar/") + name);
        writeFile(path(name), bytes);
        ASSERT_TRUE(session->ac(name));
        machine.prompt.answers = {Answer::yes};
        ASSERT_TRUE(session->kaydet(name, false));
        EXPECT_EQ(lastAsked(), kReplace);
        EXPECT_EQ(readFile(path(name)), bytes) << qPrintable(name);
    }
}

TEST_F(DesignerSessionTest, AFileIsReplacedOnlyWhenTheUserSaysSo)
{
    writeFile(path(u"eski.ayr"_s), "\r\n[label]\r\nsol=7\r\n");
    const QByteArray before = readFile(path(u"eski.ayr"_s));
    EXPECT_FALSE(session->kaydet(u"eski"_s, false));
    EXPECT_EQ(lastAsked(), kReplace);
    EXPECT_FALSE(session->saveAs(u"eski.ayr"_s));
    EXPECT_EQ(machine.prompt.asked, QStringList{kReplaceAs});
    EXPECT_EQ(readFile(path(u"eski.ayr"_s)), before);
    machine.prompt.confirmWith = true;
    EXPECT_TRUE(session->saveAs(u"eski.ayr"_s));
    EXPECT_NE(readFile(path(u"eski.ayr"_s)), before);
}

TEST_F(DesignerSessionTest, NamesThatNoFileCanBearAreRefused)
{
    const QStringList refused = {
        u""_s,    u"  "_s,      u"a/b"_s,   u"a\\b"_s,   u"..\\x"_s, u"a:b"_s,
        u"a*"_s,  u"a?"_s,      u"\"a\""_s, u"a<b"_s,    u"a|b"_s,   u"a\tb"_s,
        u"CON"_s, u"nul.ayr"_s, u"Lpt1"_s,  u".gizli"_s, u"Αθήνα"_s, QString(101, u'a')};
    for (const QString &name : refused) {
        const std::size_t before = machine.prompt.shown.size();
        EXPECT_FALSE(session->kaydet(name, false)) << qPrintable(name);
        EXPECT_EQ(machine.prompt.shown.size(), before + 1) << qPrintable(name);
    }
    EXPECT_EQ(QDir(layoutFolder(directory.path())).entryList(QDir::Files), QStringList());
    EXPECT_TRUE(session->kaydet(u"Çok Özel İş [2]"_s, false));
    EXPECT_TRUE(QFile::exists(path(u"Çok Özel İş [2].ayr"_s)));
}

// A read-only folder stands for a full disk too: the key file is written whole or not at all.
TEST_F(DesignerSessionTest, AFailedSaveLosesNothing)
{
    addText(u"bir"_s);
    ASSERT_TRUE(session->kaydet(u"raf"_s, false));
    const QByteArray saved = readFile(path(u"raf.ayr"_s));
    addText(u"iki"_s);
    FakeMachine readOnly(directory.path());
    readOnly.keys.writable = false;
    Program away(Ports{readOnly.connector, readOnly.db, readOnly.keys, readOnly.printers,
                       readOnly.sounds, readOnly.clock, readOnly.prompt},
                 directory.path());
    DesignerSession other(away);
    readOnly.prompt.confirmWith = true;
    EXPECT_FALSE(other.saveAs(u"raf"_s));
    EXPECT_FALSE(other.saveAs(u"yeni"_s));
    EXPECT_FALSE(QFile::exists(path(u"yeni.ayr"_s)));
    EXPECT_TRUE(readOnly.prompt.shown.back().text.contains(u"kaydedilemedi"_s));
    EXPECT_EQ(other.title(), u"Sayfa Tasarımı"_s);
    EXPECT_EQ(readFile(path(u"raf.ayr"_s)), saved);
}

TEST_F(DesignerSessionTest, UnsavedWorkIsAskedAbout)
{
    addText(u"bir"_s);
    int gone = 0;
    int saveDialogs = 0;
    QObject::connect(session.get(), &DesignerSession::saveWanted, [&] { ++saveDialogs; });
    machine.prompt.answers = {Answer::closed, Answer::yes, Answer::yes, Answer::no};
    session->guarded([&] { ++gone; }); // stay
    EXPECT_EQ(gone + saveDialogs, 0);
    session->guarded([&] { ++gone; }); // save, but the dialog is closed
    session->saveAbandoned();
    EXPECT_EQ(saveDialogs, 1);
    session->guarded([&] { ++gone; }); // save
    ASSERT_TRUE(session->kaydet(u"raf"_s, false));
    EXPECT_EQ(gone, 1);
    addText(u"iki"_s);
    session->guarded([&] { ++gone; }); // give up
    EXPECT_EQ(gone, 2);
    EXPECT_EQ(machine.prompt.shown.size(), 4U);
}

TEST_F(DesignerSessionTest, ACopyOutlivesACrashAndIsOfferedAgain)
{
    EXPECT_FALSE(hasRecovery(program));
    ASSERT_TRUE(session->kaydet(u"raf"_s, false));
    addText(u"emek"_s);
    session->editor().select({{kText, 0}});
    session->editor().run(Command::lock);
    session->keepCopy();
    const Design lost = session->editor().design();
    session.reset(); // the program ended without a question

    ASSERT_TRUE(hasRecovery(program));
    session = std::make_unique<DesignerSession>(program);
    machine.prompt.answers = {Answer::closed, Answer::yes};
    EXPECT_FALSE(session->recover());
    ASSERT_TRUE(session->recover());
    EXPECT_EQ(session->editor().design(), lost);
    EXPECT_EQ(session->fileName(), u"raf.ayr"_s);
    EXPECT_TRUE(session->editor().document().isDirty());
    machine.prompt.answers = {Answer::yes};
    EXPECT_TRUE(session->kaydet(u"raf"_s, false));
    EXPECT_FALSE(hasRecovery(program));
}

TEST_F(DesignerSessionTest, OpeningWantsAChoice)
{
    EXPECT_FALSE(session->ac(u""_s));
    EXPECT_FALSE(session->ac(u"yok.ayr"_s));
    const QString pick = u"Ayar Dosyası Seciniz..."_s;
    EXPECT_EQ(machine.prompt.warned, (QStringList{pick, pick}));
    // Three thousand elements open, the next one is left out.
    Design big;
    big.layout.texts.assign(1001, textAt({1, 1, 5, 5}));
    big.layout.barcodes.assign(1000, barsAt({1, 1, 5, 5}));
    big.layout.pictures.assign(1000, {{1, 1, 5, 5}, {}});
    saveLayout(keys, path(u"büyük.ayr"_s), big.layout);
    EXPECT_TRUE(session->ac(u"büyük.ayr"_s));
    EXPECT_EQ(RefSet::all(session->editor().layout()).size(), 3000U);
}
