#include "fakes/fake_ports.h"
#include "shell/host_link.h"
#include "shell/start_session.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class HostLinkTest : public testing::Test
{
protected:
    HostLinkTest()
    {
        machine.db.setRow(u"server"_s, {{u"server"_s, u"KASA1"_s},
                                        {u"sql"_s, u"SIRKET"_s},
                                        {u"msql"_s, u"ANA"_s},
                                        {u"kuladi"_s, u"sa"_s},
                                        {u"sifre"_s, u"x"_s}});
        machine.db.setRow(u"instan"_s, {{u"insname"_s, u"SQL2"_s}, {u"inskullan"_s, u"1"_s}});
        QObject::connect(&link, &HostLink::connectionDialogWanted, &link, [this] { ++dialogs; });
        QObject::connect(&link, &HostLink::stockListWanted, &link, [this] { ++stockLists; });
    }

    FakeMachine machine;
    HostLink link{machine.program};
    int dialogs = 0;
    int stockLists = 0;
};

RecordSet vatClasses(int count)
{
    std::vector<RecordSet::Row> rows;
    for (int i = 1; i <= count; ++i)
        rows.push_back({qlonglong(100 + i), double(i) / 2});
    return RecordSet({u"KDVKISNO"_s, u"KDVKISORAN"_s}, rows);
}

} // namespace

TEST_F(HostLinkTest, OpensMasterThenCompanyAndShowsTheStockList)
{
    machine.connector.answers.insert(u"select * from KDVKISIM"_s, vatClasses(130));
    link.sqlbaglan();
    EXPECT_EQ(machine.connector.opened,
              (QStringList{u"Server=KASA1;Provider=SQLOLEDB;UID=sa;PWD=x;database=ANA;"_s,
                           u"Server=KASA1;Provider=SQLOLEDB;UID=sa;PWD=x;database=SIRKET;"_s}));
    auto &company = static_cast<RecordingHost &>(*machine.program.bag);
    EXPECT_EQ(company.statements, QStringList{u"Set DateFormat dmy"_s});
    EXPECT_EQ(stockLists, 1);
    EXPECT_EQ(dialogs, 0);
    EXPECT_EQ(machine.program.kdvtab[0][2], QString());
    EXPECT_EQ(machine.program.kdvtab[3][1], u"103"_s);
    EXPECT_EQ(machine.program.kdvtab[3][2], u"1,5"_s);
    EXPECT_EQ(machine.program.kdvtab[100][1], u"200"_s); // there is room for no more
}

TEST_F(HostLinkTest, AMasterThatDoesNotOpenBringsTheConnectionDialog)
{
    machine.connector.refuse = {u"database=ANA"_s};
    link.sqlbaglan();
    EXPECT_EQ(machine.connector.opened.size(), 1);
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(stockLists, 0);
}

TEST_F(HostLinkTest, ACompanyThatDoesNotOpenIsSilentAndTheTimerStillShowsTheStockList)
{
    machine.connector.refuse = {u"database=SIRKET"_s};
    StartSession session(machine.program, link);
    int first = 0;
    QObject::connect(&session, &StartSession::stockListWanted, &session, [&] { ++first; });
    session.load();
    EXPECT_EQ(dialogs + stockLists, 0);
    EXPECT_TRUE(machine.prompt.shown.empty());
    session.firstTick();
    EXPECT_EQ(first, 1);
    machine.program.handle([&] { machine.program.company(); });
    ASSERT_EQ(machine.prompt.shown.size(), 1U);
    EXPECT_TRUE(machine.prompt.shown[0].text.contains(u"Şirket veritabanı açılamadı: SIRKET\n"_s));
}

TEST_F(HostLinkTest, ALostCompanyConnectionComesBackWhereItWasLost)
{
    link.sqlbaglan();
    machine.program.reopen = [this] { link.reopenCompany(); };
    static_cast<RecordingHost &>(*machine.program.bag).open = false;
    EXPECT_THROW(machine.program.openCompany(), HostError);
    auto &company = static_cast<RecordingHost &>(machine.program.company());
    EXPECT_EQ(company.statements, QStringList{u"Set DateFormat dmy"_s});
    EXPECT_EQ(machine.connector.opened.size(), 3);
    EXPECT_EQ(stockLists, 1);

    company.open = false;
    machine.connector.refuse = {u"database=SIRKET"_s};
    EXPECT_THROW(machine.program.company(), HostError);
    EXPECT_THROW(machine.program.company(), HostError);
    EXPECT_EQ(machine.connector.opened.size(), 4) << "a scan waits for an absent server only once";
}

TEST_F(HostLinkTest, UnreadableSettingsKeepTheFormerServerAndStillTry)
{
    link.ayaroku();
    machine.db.failOn = [](const QString &) { return true; };
    link.sqlbaglan();
    EXPECT_TRUE(machine.connector.opened.at(0).startsWith(u"Server=KASA1;"_s));
}

TEST_F(HostLinkTest, TheIndexTableIsAPermutationWithItsTail)
{
    StartSession(machine.program, link).load();
    QStringList table(machine.program.sira.begin(), machine.program.sira.end());
    EXPECT_EQ(table.first() + u' ' + table.mid(83).join(u' '), u"2 32 0 1 2 3"_s);
    for (int number = 0; number < 84; ++number)
        EXPECT_EQ(table.mid(0, 84).count(QString::number(number)), 1) << number;
}
