#include "fakes/fake_ports.h"
#include "shell/forms/baglan.h"
#include "shell/forms/login.h"
#include "shell/forms/parametre.h"
#include "shell/forms/strt.h"
#include "shell/host_link.h"
#include "shell/login_session.h"
#include "shell/settings_session.h"
#include "shell/start_session.h"
#include "support/keyboard.h"
#include "support/print_qt.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct SettingsForm : testing::Test
{
    const QTemporaryDir folder;
    FakeMachine machine{folder.path()};
    SettingsSession session{machine.program};
};

} // namespace

TEST(StartForm, TheMenuReachesEveryForm)
{
    FakeMachine machine;
    HostLink link(machine.program);
    StartSession session(machine.program, link);
    strt form(session, link);
    QSignalSpy sales(&form, &strt::stfaturaWanted);
    QSignalSpy connection(&form, &strt::baglanWanted);
    QSignalSpy settings(&form, &strt::loginWanted);
    QSignalSpy about(&form, &strt::kakkndWanted);
    for (const QString &name : {u"stftr"_s, u"sqlbag"_s, u"ayr"_s, u"hknd"_s})
        child<QAction>(form, name)->trigger();
    EXPECT_EQ(sales.count() * connection.count() * settings.count() * about.count(), 1);
    EXPECT_FALSE(form.isVisible());
}

TEST(LoginForm, AWrongPasswordClearsTheBoxAndKeepsTheDialog)
{
    FakeMachine machine;
    machine.db.setRow(u"login"_s, {{u"sifre"_s, u"123"_s}});
    LoginSession session(machine.program);
    login form(session);
    form.show();
    auto *box = child<QLineEdit>(form, u"lgpass"_s);
    QTest::keyClicks(box, u"yanlis"_s);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(box->text(), QString());
    EXPECT_EQ(machine.prompt.shown.size(), 1U);
    QTest::keyClicks(box, u"123"_s);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.result(), QDialog::Accepted);
}

TEST(ConnectionForm, ConnectsUnloadsItselfAndSaysSo)
{
    FakeMachine machine;
    machine.connector.refuse = {u"database"_s};
    HostLink link(machine.program);
    baglan form(link);
    QSignalSpy unloaded(&form, &baglan::unloaded);
    form.show();
    EXPECT_EQ(form.windowTitle(), u"   Sql Server Bağlantısı   "_s);
    auto *connectButton = child<QPushButton>(form, u"button1"_s);
    EXPECT_EQ(connectButton->text(), u"Bağlan"_s);
    EXPECT_TRUE(connectButton->isEnabled());
    QTest::keyClick(&form, Qt::Key_Return);
    EXPECT_FALSE(connectButton->isEnabled());
    EXPECT_TRUE(QTest::qWaitFor([&] { return connectButton->isEnabled(); }, 3000));
    machine.connector.refuse.clear();
    QTest::keyClick(&form, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form.isVisible(); }, 3000));
    EXPECT_EQ(unloaded.count(), 1);
}

TEST(ConnectionForm, EscapeUnloadsTooAndAnOpenConnectionNeedsNoButton)
{
    FakeMachine machine;
    HostLink link(machine.program);
    link.sqlbaglan();
    baglan form(link);
    QSignalSpy unloaded(&form, &baglan::unloaded);
    form.show();
    EXPECT_FALSE(child<QPushButton>(form, u"button1"_s)->isEnabled());
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_EQ(unloaded.count(), 1);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(SettingsForm, WhatIsTypedIsSavedAndTheDialogUnloads)
{
    machine.printers.list = {u"Kasa"_s, u"PDF"_s};
    machine.db.setRow(u"yazici"_s, {{u"yazici1"_s, u"Sökülmüş"_s}, {u"yazdirma"_s, u"1"_s}});
    parametre form(session);
    form.show();
    EXPECT_EQ(child<QComboBox>(form, u"yazici"_s)->placeholderText(), u"Sökülmüş"_s);
    QTest::keyClicks(child<QLineEdit>(form, u"srvadi"_s), u"KASA1"_s);
    child<QCheckBox>(form, u"uses1"_s)->setChecked(true);
    child<QComboBox>(form, u"stl"_s)->setCurrentIndex(2);
    machine.db.statements.clear();
    QTest::keyClick(child<QLineEdit>(form, u"srvadi"_s), Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    const QString all = machine.db.statements.join(u'\n');
    EXPECT_TRUE(all.contains(u"server = 'KASA1'"_s));
    EXPECT_TRUE(all.contains(u"bulses = '1'"_s));
    EXPECT_TRUE(all.contains(u"bold = '2'"_s));
    EXPECT_TRUE(all.contains(u"yazici1 = 'Sökülmüş'"_s)) << "a printer that is away is not lost";
}

TEST_F(SettingsForm, WarnsOfWhatWouldNotBeSaved)
{
    parametre form(session);
    form.show();
    auto *warning = child<QLabel>(form, u"uyari"_s);
    QTest::keyClicks(child<QLineEdit>(form, u"bsl"_s), u"Ali'nin"_s);
    EXPECT_TRUE(warning->text().contains(u"Başlık: tek tırnak"_s));
    machine.db.failOn = [](const QString &statement) { return statement.startsWith(u"begin"_s); };
    QTest::keyClick(child<QLineEdit>(form, u"srvadi"_s), Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(warning->text().contains(u"Ayarlar kaydedilemez"_s));
}

TEST_F(SettingsForm, AStoredPasswordIsNeverShownAndSmallLettersAreAskedFor)
{
    machine.db.setRow(u"login"_s, {{u"sifre"_s, u"GİZLİ"_s}});
    parametre form(session);
    form.show();
    auto *password = child<QLineEdit>(form, u"lgpass"_s);
    EXPECT_EQ(password->text(), u"GİZLİ"_s);
    child<QCheckBox>(form, u"goster"_s)->setChecked(true);
    EXPECT_EQ(password->echoMode(), QLineEdit::Password);
    QTest::keyClick(password, Qt::Key_End);
    QTest::keyClick(password, Qt::Key_A);
    EXPECT_EQ(password->text(), u"a"_s);
    EXPECT_EQ(password->echoMode(), QLineEdit::Normal);
    password->undo();
    EXPECT_FALSE(password->text().contains(u"GİZLİ"_s));

    password->setText(u"ılık"_s);
    QTest::keyClick(password, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible()) << "nobody said yes to capitals";
    EXPECT_FALSE(machine.prompt.shown.back().text.contains(u"ılık"_s));
    machine.prompt.answers = {Answer::yes};
    QTest::keyClick(password, Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(machine.db.statements.contains(u"Update login set sifre = 'ILIK' Where id ='1'"_s));
}

TEST_F(SettingsForm, AllFontsMayBeListedWithoutLosingTheChosenOneAndItsSize)
{
    machine.db.setRow(u"liste"_s, {{u"font"_s, u"Sökülmüş"_s}, {u"size"_s, u"15,5"_s}});
    parametre form(session);
    for (const bool all : {true, false}) {
        child<QCheckBox>(form, u"Check2"_s)->setChecked(all);
        EXPECT_EQ(child<QComboBox>(form, u"fnt"_s)->placeholderText(), u"Sökülmüş"_s);
        EXPECT_EQ(child<QComboBox>(form, u"sz"_s)->currentText(), u"15,5"_s);
    }
}

TEST_F(SettingsForm, TheInstanceBoxFollowsItsCheckBoxAndSamplesShowTheirFont)
{
    parametre form(session);
    EXPECT_FALSE(child<QLineEdit>(form, u"instance"_s)->isEnabled());
    child<QCheckBox>(form, u"Check1"_s)->setChecked(true);
    EXPECT_TRUE(child<QLineEdit>(form, u"instance"_s)->isEnabled());
    child<QComboBox>(form, u"sz2"_s)->setCurrentText(u"24"_s);
    EXPECT_EQ(child<QLabel>(form, u"orn2"_s)->font().pointSizeF(), 24.0);
}
