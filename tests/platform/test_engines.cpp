#include "common/connection_string.h"
#include "fakes/fake_ports.h"
#include "platform/embedded_file.h"
#include "platform/engine_connector.h"
#include "platform/odbc_session.h"
#include "platform/scratch.h"
#include "platform/sqlite_file.h"
#include "support/print_qt.h"
#include "support/wine.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

enum class Engine
{
    embedded,
    odbc
};

/// One suite over both roads to a database: the embedded engine, and ODBC (here with the driver for
/// SQLite, told to us the way a shop would).
class Engines : public testing::TestWithParam<Engine>
{
protected:
    void SetUp() override
    {
        if (GetParam() == Engine::embedded)
            return openEmbedded();
        if (!OdbcSession::installedDrivers().contains(u"SQLite3"_s))
            GTEST_SKIP() << "the ODBC driver for SQLite is not installed";
        if (runsUnderWine())
            GTEST_SKIP() << "Wine lists the drivers of the system beneath, which lack its files";
        openOdbc();
    }

    void openEmbedded()
    {
        using demo::Type;
        demo::Table table;
        table.name = u"STKKART"_s;
        table.columns = {{u"STKKOD"_s, Type::text, 20, true},
                         {u"STKCINSI"_s, Type::text, 9000},
                         {u"STKSIRA"_s, Type::integer},
                         {u"STKBAKIYE"_s, Type::number},
                         {u"STKTARIH"_s, Type::date}};
        writeEmbeddedFile(scratch.path(u"DENEME.yerel"_s), {table}, QDate(2026, 11, 20));
        open(u"(yerel)"_s, u"DENEME"_s);
    }

    void openOdbc()
    {
        const QString file = scratch.path(u"deneme.db"_s);
        SqliteFile(file, SqliteFile::Mode::createWhenMissing, std::chrono::seconds(5))
            .execute(u"CREATE TABLE STKKART (STKKOD varchar(20) NOT NULL PRIMARY KEY, "
                     "STKCINSI varchar(9000), STKSIRA integer, STKBAKIYE float, STKTARIH date)"_s);
        const QString keyFile = scratch.path(u"baglanti.zev"_s);
        keys.write(u"odbc"_s, u"surucu"_s, u"SQLite3"_s, keyFile);
        keys.write(u"odbc"_s, u"ek"_s, u"Database="_s + file, keyFile);
        open(u"KASA1"_s, u"MUVSIRKET"_s);
    }

    void open(const QString &server, const QString &database)
    {
        host = connector.open(connectionString({server, u"sa"_s, u"gizli"_s, database}));
    }

    void insert(const QString &values)
    {
        host->execute(
            u"INSERT INTO STKKART (STKKOD,STKCINSI,STKSIRA,STKBAKIYE) values (%1)"_s.arg(values));
    }

    Scratch scratch;
    MemoryKeyFile keys;
    EngineConnector connector{scratch.path(), keys};
    std::unique_ptr<HostConnection> host;
};

TEST_P(Engines, WritesAndReadsEveryType)
{
    ASSERT_EQ(host->state(), 1);
    insert(u"'S1','Çıtır ŞEKER','7','12.50'"_s);
    host->execute(u"UPDATE STKKART SET STKTARIH='2026-11-20' where STKKOD='S1'"_s);
    insert(u"'S2',NULL,NULL,NULL"_s);
    RecordSet rows = host->execute(u"select * from STKKART"_s);
    ASSERT_EQ(rows.rowCount(), 2);
    EXPECT_EQ(rows.columns(), (QStringList{u"STKKOD"_s, u"STKCINSI"_s, u"STKSIRA"_s, u"STKBAKIYE"_s,
                                           u"STKTARIH"_s}));
    EXPECT_EQ(rows.value(u"STKCINSI"), QVariant(u"Çıtır ŞEKER"_s));
    EXPECT_EQ(rows.value(u"STKSIRA"), QVariant(qlonglong{7}));
    EXPECT_EQ(rows.value(u"STKBAKIYE"), QVariant(12.5));
    EXPECT_EQ(rows.value(u"STKTARIH"), QVariant(QDate(2026, 11, 20)));
    rows.moveNext();
    for (const char16_t *column : {u"STKCINSI", u"STKSIRA", u"STKBAKIYE", u"STKTARIH"})
        EXPECT_TRUE(rows.value(column).isNull());
}

TEST_P(Engines, CarriesTextUnchanged)
{
    const QStringList samples = {
        QString(),
        u" "_s,
        u"iki blank  "_s,
        u"çğıİöşü ÇĞIİÖŞÜ â €"_s,
        u"çift \"tırnak\" [a] %_"_s,
        QString(4095, u'x'),
        QString(4096, u'ş'),
        QString(8191, u'ç'),
    };
    int number = 0;
    for (const QString &sample : samples)
        insert(u"'S%1','%2','1','1'"_s.arg(++number).arg(sample));
    EXPECT_EQ(texts(host->execute(u"select * from STKKART"_s), u"STKCINSI"), samples);
}

TEST_P(Engines, UpdatesDeletesAndCounts)
{
    for (int i = 1; i <= 60; ++i)
        insert(u"'S%1','Stok','%1','1'"_s.arg(i));
    EXPECT_EQ(host->execute(u"select max(STKSIRA) AS TOTAL from  STKKART"_s).number(u"TOTAL"), 60);
    host->execute(u"UPDATE STKKART SET STKBAKIYE= '5.25' where STKKOD='S7'"_s);
    EXPECT_EQ(host->execute(u"select * from STKKART where STKKOD='S7'"_s).text(u"STKBAKIYE"),
              u"5,25"_s);
    host->execute(u"delete from STKKART where STKSIRA>'20'"_s);
    EXPECT_EQ(host->execute(u"select * from STKKART"_s).rowCount(), 20);
    const RecordSet none = host->execute(u"select * from STKKART where STKKOD='YOK'"_s);
    EXPECT_TRUE(none.eof());
    EXPECT_EQ(none.columns().size(), 5);
    EXPECT_TRUE(
        host->execute(u"UPDATE STKKART SET STKSIRA='1' where STKKOD='YOK'"_s).columns().isEmpty());
}

TEST_P(Engines, SaysWhatWentWrongAndGoesOn)
{
    insert(u"'S1','Stok','1','1'"_s);
    const auto errorOfStatement = [&](const QString &statement) {
        return errorOf([&] { host->execute(statement); });
    };
    EXPECT_EQ(errorOfStatement(u"select * from STKKART where STKCINSI LIKE '%6'lı%'"_s),
              HostError::kStatement);
    EXPECT_EQ(errorOfStatement(u"select * from YOK"_s), HostError::kStatement);
    // The ODBC driver for SQLite has no SQLSTATE of its own for a key that is there already.
    EXPECT_EQ(errorOfStatement(u"INSERT INTO STKKART (STKKOD) values ('S1')"_s),
              GetParam() == Engine::embedded ? HostError::kDuplicate : HostError::kStatement);
    EXPECT_EQ(host->state(), 1);
    EXPECT_EQ(host->execute(u"select * from STKKART"_s).rowCount(), 1);
}

TEST_P(Engines, TwoConnectionsStandSideBySide)
{
    const auto first = std::move(host);
    open(GetParam() == Engine::embedded ? u"(YEREL)"_s : u"KASA1"_s, u"deneme"_s);
    insert(u"'S1','Stok','1','1'"_s);
    EXPECT_EQ(first->execute(u"select * from STKKART"_s).rowCount(), 1);
}

INSTANTIATE_TEST_SUITE_P(, Engines, testing::Values(Engine::embedded, Engine::odbc),
                         [](const auto &engine) {
                             return engine.param == Engine::embedded ? "Embedded" : "Odbc";
                         });

TEST(EngineConnector, DoesNotOpenWhatTheStringCorrupts)
{
    const Scratch scratch;
    MemoryKeyFile keys;
    EngineConnector connector(scratch.path(), keys);
    const ConnectionSettings settings{u"(yerel)"_s, u"sa"_s, u"gizli;şifre"_s, u"DENEME"_s};
    EXPECT_EQ(errorOf([&] { connector.open(connectionString(settings)); }),
              HostError::kConnectionLost);
    EXPECT_EQ(errorOf([&] { connector.open(QString()); }), HostError::kConnectionLost);
}

} // namespace
