#include "fakes/fake_ports.h"
#include "shell/settings_session.h"
#include "support/golden.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class SettingsTest : public testing::Test
{
protected:
    void openHost()
    {
        RecordingHost &host = machine.openCompany();
        const auto list = [&](const QString &table, const QString &name, const QString &key,
                              const std::vector<RecordSet::Row> &rows) {
            host.answers.insert(u"select * from "_s + table, RecordSet({name, key}, rows));
        };
        list(u"DEPO"_s, u"DEPADI"_s, u"DEPKOD"_s, {{u"MERKEZ"_s, u"01"_s}});
        list(u"STKFIYTIP"_s, u"STKFTFIYADI"_s, u"STKFTFIYNO"_s,
             {{u"PERAKENDE"_s, 1LL}, {u"KOLİ"_s, 2LL}, {u"PERAKENDE"_s, 3LL}});
        list(u"CARKART"_s, u"CARUNVAN"_s, u"CARKOD"_s, {{u"PEŞİN"_s, u"120"_s}});
        m_host = &host;
    }

    FakeMachine machine;
    SettingsSession session{machine.program};
    RecordingHost *m_host = nullptr;
};

} // namespace

TEST_F(SettingsTest, SavesOneStatementPerTableInOrder)
{
    // What nobody touches is written back as it stood.
    machine.db.setRow(u"kasa"_s, {{u"silsifre"_s, u"1"_s}});
    openHost();
    session.load();
    machine.db.statements.clear();
    const int closedBefore = machine.db.closed;

    Settings v = session.values();
    v.ses.bulses = true;
    v.yazici = {u"PDF"_s, true};
    v.login.sifre = u"GİZLİ"_s;
    v.server = {u"sa"_s, u"x"_s, u"KASA1"_s, u"SIRKET"_s, u"ANA"_s};
    v.instan = {u"SQL2"_s, true};
    v.stok.br1fytadi = u"PERAKENDE"_s;
    v.stok.br1fyt = u"1"_s;
    v.stok.br2fytadi = u"KOLİ"_s;
    v.stok.br2fyt = u"2"_s;
    v.liste = {true, false, false, 255, {16777215, 12640511}, u"KASA"_s, 3, u"Arial"_s, u"14"_s};
    int saved = 0;
    QObject::connect(&session, &SettingsSession::saved, [&] { ++saved; });
    session.serverkaydet(v);

    expectGolden(u"shell/settings_save.txt"_s, machine.db.statements.join(u'\n') + u'\n');
    EXPECT_EQ(machine.db.closed, closedBefore + 1);
    EXPECT_EQ(saved, 1);
}

TEST_F(SettingsTest, ReadsRowsInOrderAndSplitsTheListColours)
{
    machine.db.setRow(u"liste"_s, {{u"listrenk"_s, u"255<1234>65280"_s}, {u"enust"_s, u"1"_s}});
    machine.db.setRow(u"kdv"_s, {{u"kdv"_s, u"8"_s}});
    machine.db.setRow(u"stok"_s, {{u"br1fytadi"_s, u"KOLİ"_s},
                                  {u"br2fytadi"_s, u"YOK"_s},
                                  {u"br1fyt"_s, u"2"_s},
                                  {u"br2fyt"_s, u"9"_s}});
    openHost();
    session.load();
    QStringList tables;
    for (const QString &s : machine.db.statements)
        tables += s.section(u' ', 3, 3);
    EXPECT_EQ(tables.join(u' '), u"login instan ses yazici per server liste kasa stok"_s);
    EXPECT_EQ(m_host->statements.join(u'|'),
              u"select * from DEPO|select * from STKFIYTIP|select * from STKFISTIP|"
              "select * from CARKART|select * from CARFISTIP|select * from FATFISTIP"_s);
    const Settings &v = session.values();
    EXPECT_EQ(v.liste.listrenk, (ListColours{255, 65280}));
    EXPECT_TRUE(v.liste.enust);
    EXPECT_EQ(v.kdv.kdv, u"20"_s) << "the stored rate is not shown";
    EXPECT_EQ(v.stok.br2fyt, u"9"_s);
    EXPECT_EQ(session.lists().depots.codes, u"01<1234>"_s);
    EXPECT_EQ(session.lists().priceTypes.find(u"PERAKENDE"_s, u"3"_s), 2); // two of one name
}

TEST_F(SettingsTest, MissingRowsAndALostHostLeaveTheDesignValues)
{
    machine.db.failOn = [](const QString &) { return true; };
    session.load();
    EXPECT_EQ(session.values().liste.listrenk.row, 0xFFFFFF);
    EXPECT_TRUE(session.lists().depots.names.isEmpty());
    EXPECT_TRUE(machine.prompt.shown.empty());
}
