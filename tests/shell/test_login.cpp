#include "fakes/fake_ports.h"
#include "shell/login_session.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Login, TheTypedTextIsUpperCasedAndTheStoredOneIsNot)
{
    const struct
    {
        QString stored;
        QString typed;
        bool accepted;
    } cases[] = {
        {u""_s, u""_s, true},
        {u"GİZLİ"_s, u"gizli"_s, true},
        {u"ILIK"_s, u"ılık"_s, true},
        {u"gizli"_s, u"gizli"_s, false},
        {u"GIZLI"_s, u"gizli"_s, false},
        {u"A"_s, u"A "_s, false},
    };
    for (const auto &c : cases) {
        FakeMachine machine;
        machine.db.setRow(u"login"_s, {{u"sifre"_s, c.stored}});
        LoginSession session(machine.program);
        bool accepted = false;
        QObject::connect(&session, &LoginSession::accepted, [&] { accepted = true; });
        session.load();
        session.enter(c.typed);
        EXPECT_EQ(accepted, c.accepted) << c.typed.toStdString();
        ASSERT_EQ(machine.prompt.shown.size(), c.accepted ? 0U : 1U);
        if (!c.accepted) {
            EXPECT_EQ(machine.prompt.shown[0].text, u"Yanlış Şifre"_s);
            EXPECT_EQ(machine.prompt.shown[0].caption, u"TAMAM"_s);
            EXPECT_EQ(machine.prompt.shown[0].icon, 2);
        }
        EXPECT_EQ(machine.db.opened, QStringList{u"/shop/data.dbs"_s});
        EXPECT_EQ(machine.db.closed, 1);
    }
}
