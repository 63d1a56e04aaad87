#include "fakes/fake_ports.h"
#include "shell/login_session.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Login, TheTypedTextIsUpperCasedAndTheStoredOneIsNot)
{
    using Case = std::tuple<QString, QString, bool>;
    for (const auto &[stored, typed, right] : {Case{u""_s, u""_s, true},
                                               {u"GİZLİ"_s, u"gizli"_s, true},
                                               {u"ILIK"_s, u"ılık"_s, true},
                                               {u"gizli"_s, u"gizli"_s, false},
                                               {u"GIZLI"_s, u"gizli"_s, false},
                                               {u"A"_s, u"A "_s, false}}) {
        FakeMachine machine;
        machine.db.setRow(u"login"_s, {{u"sifre"_s, stored}});
        LoginSession session(machine.program);
        bool accepted = false;
        QObject::connect(&session, &LoginSession::accepted, [&] { accepted = true; });
        session.load();
        session.enter(typed);
        EXPECT_EQ(accepted, right) << typed.toStdString();
        ASSERT_EQ(machine.prompt.shown.size(), right ? 0U : 1U);
        if (!right) {
            EXPECT_EQ(machine.prompt.shown[0].text, u"Yanlış Şifre"_s);
            EXPECT_EQ(machine.prompt.shown[0].caption, u"TAMAM"_s);
            EXPECT_EQ(machine.prompt.shown[0].icon, 2);
        }
        EXPECT_EQ(machine.db.opened, QStringList{u"/shop/data.dbs"_s});
        EXPECT_EQ(machine.db.closed, 1);
    }
}
