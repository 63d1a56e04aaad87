#include "common/connection_string.h"
#include "fakes/fake_ports.h"
#include "platform/host/embedded_file.h"
#include "platform/host/engine_connector.h"
#include "platform/host/odbc_session.h"
#include "platform/host/sqlite_file.h"
#include "platform/host/statement_batch.h"
#include "platform/scratch.h"
#include "support/print_qt.h"
#include "support/test_server.h"
#include "support/wine.h"

#include <array>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

enum class Road
{
    embedded,
    odbc,
    server
};

void PrintTo(Road road, std::ostream *out)
{
    const std::array names = {"Embedded", "Odbc", "Server"};
    *out << names.at(static_cast<std::size_t>(road));
}

std::string roadName(const testing::TestParamInfo<Road> &info)
{
    return testing::PrintToString(info.param);
}

/// One suite over the roads to a database: the embedded engine, and ODBC: with the driver for
/// SQLite, told to us the way a shop would, and to the test server.
class Engines : public testing::TestWithParam<Road>
{
protected:
    void SetUp() override
    {
        if (GetParam() == Road::embedded)
            return openEmbedded();
        if (GetParam() == Road::server) {
            SKIP_WITHOUT_SERVER();
            return openServer();
        }
        if (!OdbcSession::installedDrivers().contains(u"SQLite3"_s))
            GTEST_SKIP() << "the ODBC driver for SQLite is not installed";
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
        open({kEmbeddedServer.toString(), {}, {}, u"DENEME"_s});
    }

    void openOdbc()
    {
        const QString file = scratch.path(u"deneme.db"_s);
        SqliteFile(file, SqliteFile::Mode::createWhenMissing, std::chrono::seconds(5))
            .execute(u"CREATE TABLE STKKART (STKKOD varchar(20) NOT NULL PRIMARY KEY, "
                     "STKCINSI varchar(9000), STKSIRA integer, STKBAKIYE float, STKTARIH date)"_s);
        const QString keyFile = scratch.path(u"baglanti.zev"_s);
        keys.write(u"odbc"_s, u"surucu"_s, u"SQLite3"_s, keyFile);
        keys.write(u"odbc"_s, u"ek"_s, u"Database="_s + driverPath(file), keyFile);
        open({u"KASA1"_s, u"sa"_s, u"gizli"_s, u"MUVSIRKET"_s});
    }

    void openServer()
    {
        server = std::make_unique<TestServer>(connector, testLogin().value());
        const QString name = server->newName();
        server->run(
            u"CREATE DATABASE %1 COLLATE Turkish_CI_AS\nGO\nUSE %1\nGO\n"
            "CREATE TABLE STKKART (STKKOD varchar(20) NOT NULL PRIMARY KEY, "
            "STKCINSI varchar(max), STKSIRA int, STKBAKIYE float, STKTARIH date)"_s.arg(name));
        open(server->login(name));
    }

    void open(const ConnectionSettings &wanted)
    {
        settings = wanted;
        host = connector.open(connectionString(settings));
    }

    void insert(const QString &values)
    {
        host->execute(
            u"INSERT INTO STKKART (STKKOD,STKCINSI,STKSIRA,STKBAKIYE) values (%1)"_s.arg(values));
    }

    Scratch scratch;
    MemoryKeyFile keys;
    EngineConnector connector{scratch.path(), keys};
    std::unique_ptr<TestServer> server;
    ConnectionSettings settings;
    std::unique_ptr<HostConnection> host;
};

class ServerTypes : public Engines
{};

/// The driver for SQLite knows no dates.
class Dates : public Engines
{};

TEST_P(Engines, ManySelectsAreAnsweredEachByItself)
{
    for (int i = 0; i < 40; ++i)
        insert(u"'S%1','Ürün %1','%1','0.5'"_s.arg(i));
    QStringList statements;
    for (int i = 0; i < 40; ++i)
        statements += u"select * from STKKART where STKKOD='S%1'"_s.arg(i);
    statements[3] = u"select * from STKKART where STKKOD='x;'''"_s;
    statements[5] = u"select STKKOD from STKKART where STKSIRA<2"_s;
    std::vector<RecordSet> answers;
    host->executeAll(statements, answers);
    ASSERT_EQ(answers.size(), 40U);
    EXPECT_TRUE(answers[3].eof());
    EXPECT_EQ(answers[5].rowCount(), 2);
    EXPECT_EQ(answers[39].text(u"STKCINSI"), u"Ürün 39"_s);

    // What spoils one of them is told as if it had gone alone; those before it are answered.
    QStringList spoilt = {u"select * from STKKART where STKKOD='O'nun'"_s, // as a user types it
                          u"select YOK from STKKART"_s};
    if (GetParam() == Road::server) // finds it only among the rows
        spoilt += u"select 1/(STKSIRA-7) from STKKART"_s;
    const auto failure = [](const auto &call) {
        try {
            call();
        } catch (const HostError &error) {
            return error.text();
        }
        return QString();
    };
    for (const QString &statement : spoilt) {
        statements[20] = statement;
        answers.clear();
        const QString alone = failure([&] { host->execute(statement); });
        EXPECT_FALSE(alone.isEmpty());
        EXPECT_EQ(failure([&] { host->executeAll(statements, answers); }), alone);
        ASSERT_EQ(answers.size(), 20U);
        EXPECT_EQ(answers[19].text(u"STKKOD"), u"S19"_s);
    }
    EXPECT_EQ(host->execute(statements[39]).rowCount(), 1);
}

TEST(StatementBatch, OnlyStatementsThatEndWhereTheyEndTravelTogether)
{
    const QString plain = u"select * from T where A='x'"_s;
    EXPECT_EQ(statementBatch({plain, plain}), plain + u";\n"_s + plain);
    EXPECT_TRUE(statementBatch({plain, u"SELECT * from T where A='O''nun; -- [x] /*'"_s}));
    for (const QString &open :
         {u"select * from T where A='O'nun'"_s, u"select 1 -- x"_s, u"select 1 /* x"_s,
          u"select \"a"_s, u"select [a"_s, u"select 1; delete from T"_s, u"delete from T"_s})
        EXPECT_FALSE(statementBatch({plain, open, plain})) << open.toStdString();
}

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

    EXPECT_EQ(host->execute(u"select max(STKSIRA) AS TOTAL from  STKKART"_s).number(u"TOTAL"), 7);
    const RecordSet none = host->execute(u"select * from STKKART where STKKOD='YOK'"_s);
    EXPECT_TRUE(none.eof());
    EXPECT_EQ(none.columns().size(), 5);
    EXPECT_TRUE(
        host->execute(u"UPDATE STKKART SET STKSIRA='1' where STKKOD='YOK'"_s).columns().isEmpty());
    host->execute(u"delete from STKKART where STKSIRA>'6'"_s);
    EXPECT_EQ(host->execute(u"select * from STKKART"_s).rowCount(), 1);
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
              GetParam() == Road::odbc ? HostError::kStatement : HostError::kDuplicate);
    EXPECT_EQ(host->state(), 1);
    EXPECT_EQ(host->execute(u"select * from STKKART"_s).rowCount(), 1);
}

TEST_P(Engines, TwoConnectionsStandSideBySide)
{
    const auto first = std::move(host);
    settings.server = settings.server.toUpper(); // names compare without regard to case
    settings.database = settings.database.toLower();
    open(settings);
    insert(u"'S1','Stok','1','1'"_s);
    EXPECT_EQ(first->execute(u"select * from STKKART"_s).rowCount(), 1);
}

/// What tables of a ledger may hold besides the types above; most of them only a server has.
TEST_P(ServerTypes, AreAllRead)
{
    host->execute(
        u"CREATE TABLE HER (K int, A bit, B tinyint, C smallint, D bigint, E decimal(18,4), "
        "F numeric(5,2), G money, H smallmoney, I real, J float, L datetime, M smalldatetime, "
        "N datetime2(3), O date, P time, Q char(5), R nchar(5), S nvarchar(20), T text, U ntext, "
        "V uniqueidentifier, W varbinary(4), X varchar(max), Y image)"_s);
    host->execute(u"INSERT INTO HER VALUES ('1','1','255','-7','8690000000012','-12.5','18.99',"
                  "'149.9','0.1','0.35','1.995','20261120 00:01:02','20261120 14:05:00',"
                  "'2026-11-20 14:05:06.789','20261120','14:05:06','ab','Şğ','İıçö',"
                  "'uzun ş','uzun İ','6F9619FF-8B86-D011-B42D-00C04FC964FF',0x0102,'"_s +
                  QString(9000, u'ğ') + u"',0x01)"_s);
    host->execute(u"INSERT INTO HER (K) VALUES (2)"_s);
    RecordSet rows = host->execute(u"select * from HER order by K"_s);
    ASSERT_EQ(rows.rowCount(), 2);
    QStringList fields;
    for (const QString &column : rows.columns())
        if (column != u"X"_s)
            fields += rows.text(column);
    EXPECT_EQ(fields.join(u'|'),
              u"1|1|255|-7|8690000000012|-12,5|18,99|149,9|0,1|0,35|1,995|20.11.2026 00:01:02|"
              "20.11.2026 14:05:00|20.11.2026 14:05:06|20.11.2026|14:05:06.0000000|ab   |Şğ   |"
              "İıçö|uzun ş|uzun İ|6F9619FF-8B86-D011-B42D-00C04FC964FF|0102|01"_s);
    EXPECT_EQ(rows.text(u"X"), QString(9000, u'ğ'));
    rows.moveNext();
    for (const QString &column : rows.columns().mid(1))
        EXPECT_TRUE(rows.value(column).isNull()) << column.toStdString();
}

/// "Set DateFormat dmy" is told once and holds for the statements after it.
TEST_P(Dates, AreReadDayFirst)
{
    host->execute(u"Set DateFormat dmy"_s);
    insert(u"'S1','Stok','1','1'"_s);
    host->execute(u"UPDATE STKKART SET STKTARIH='05.11.2026' where STKKOD='S1'"_s);
    EXPECT_EQ(host->execute(u"select * from STKKART"_s).text(u"STKTARIH"), u"05.11.2026"_s);
    const auto found = [&](const QString &from, const QString &to) {
        return host
            ->execute(
                u"select * from STKKART where (STKTARIH between '%1' and '%2')"_s.arg(from, to))
            .rowCount();
    };
    EXPECT_EQ(found(u"05.11.2026"_s, u"30.11.2026"_s), 1);
    EXPECT_EQ(found(u"06.10.2026"_s, u"04.11.2026"_s), 0);
}

INSTANTIATE_TEST_SUITE_P(, Engines, testing::Values(Road::embedded, Road::odbc, Road::server),
                         roadName);

INSTANTIATE_TEST_SUITE_P(, ServerTypes, testing::Values(Road::server), roadName);
INSTANTIATE_TEST_SUITE_P(, Dates, testing::Values(Road::embedded, Road::server), roadName);

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
