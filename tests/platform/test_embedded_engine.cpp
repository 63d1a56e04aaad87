#include "platform/demo/demo_shop.h"
#include "platform/host/embedded_engine.h"
#include "platform/scratch.h"
#include "support/cases.h"
#include "support/print_qt.h"
#include "support/test_machine.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

const QDate kToday(2026, 11, 20);

class EmbeddedEngineTest : public testing::Test
{
protected:
    EmbeddedEngineTest()
    {
        createDemoShop(scratch.path(), kToday, sourcePath("/tests/platform/demo"));
        host = std::make_unique<EmbeddedEngine>(scratch.path(), u"DEMOSIRKET"_s);
    }

    QStringList codes(const QString &condition)
    {
        return texts(host->execute(u"select * from STKKART where "_s + condition), u"STKKOD");
    }

    std::optional<int> errorOfStatement(const QString &statement)
    {
        return errorOf([&] { host->execute(statement); });
    }

    Scratch scratch;
    std::unique_ptr<EmbeddedEngine> host;
};

TEST_F(EmbeddedEngineTest, FindsRowsAsATurkishServerDoes)
{
    for (const Case &c : cases(u"host_conditions"_s))
        EXPECT_EQ(codes(c.value(0)).join(u' '), c.value(1)) << c;
}

TEST_F(EmbeddedEngineTest, BringsWrittenTextIntoTheColumnsType)
{
    host->execute(u"Set DateFormat dmy"_s);
    host->execute(u"INSERT INTO STKKART (STKKOD,STKBAKIYE,STKSIRA,STKFIYAT,STKSYFTARIHI) values "
                  "('Y1','12.50','7','1.23456','5.3.2026')"_s);
    host->execute(u"INSERT INTO STKKART (STKKOD,STKBAKIYE,STKSIRA,STKFIYAT,STKSYFTARIHI) values "
                  "('Y2','','',' ','')"_s);
    RecordSet rows = host->execute(u"select * from STKKART where STKKOD LIKE 'Y_'"_s);
    EXPECT_EQ(rows.value(u"STKBAKIYE"), QVariant(12.5));
    EXPECT_EQ(rows.value(u"STKSIRA"), QVariant(qlonglong{7}));
    EXPECT_EQ(rows.value(u"STKFIYAT"), QVariant(1.2346)); // money has four decimals
    EXPECT_EQ(rows.value(u"STKSYFTARIHI"), QVariant(QDate(2026, 3, 5)));
    rows.moveNext();
    for (const char16_t *column : {u"STKBAKIYE", u"STKSIRA", u"STKFIYAT"})
        EXPECT_EQ(rows.value(column).toDouble(), 0.0); // an empty text is 0 there
    EXPECT_EQ(rows.value(u"STKSYFTARIHI"), QVariant(QDate(1900, 1, 1)));

    host->execute(u"UPDATE STKKART SET STKBAKIYE= '-3.5',STKSYFTARIHI='06.03.2026' "
                  "where STKKOD='y1'"_s);
    EXPECT_EQ(codes(u"STKBAKIYE=-3.5 and STKSYFTARIHI='6.3.2026'"_s), QStringList{u"Y1"_s});
    EXPECT_EQ(host->execute(u"select * from STKKART where STKKOD='S001'"_s).text(u"STKBIRIM2"),
              u" "_s);
    rows = host->execute(u"select * from STKKART where STKKOD='S002'"_s);
    EXPECT_TRUE(rows.value(u"STKSYFSAATI").isNull());
    EXPECT_TRUE(
        host->execute(u"select max(STKHARREFNO) AS TOTAL from  STKHAR"_s).value(u"TOTAL").isNull());
}

TEST_F(EmbeddedEngineTest, RefusesWhatTheServerRefuses)
{
    const QStringList before = texts(host->execute(u"select * from STKKART"_s), u"STKFIYAT");
    for (const Case &c : cases(u"host_refusals"_s))
        EXPECT_EQ(errorOfStatement(c.value(0)),
                  c.value(1) == u"duplicate" ? HostError::kDuplicate : HostError::kStatement)
            << c;
    EXPECT_EQ(texts(host->execute(u"select * from STKKART"_s), u"STKFIYAT"), before);
    EXPECT_EQ(host->state(), 1);
}

TEST_F(EmbeddedEngineTest, RunsABatchWholeOrNotAtAll)
{
    const RecordSet rows = host->execute(
        u"delete from STKKART where STKKOD='S001'; select STKKOD from STKKART; select 1 AS X;"_s);
    EXPECT_EQ(texts(rows, u"STKKOD"), (QStringList{u"S002"_s, u"S003"_s}));
    EXPECT_EQ(errorOfStatement(u"delete from STKKART; select '"_s), HostError::kStatement);
    EXPECT_EQ(codes(u"1=1"_s).size(), 2);
}

TEST_F(EmbeddedEngineTest, TwoTillsShareAFile)
{
    EmbeddedEngine second(scratch.path(), u"DEMOSIRKET"_s);
    second.execute(u"BEGIN IMMEDIATE"_s);
    second.execute(u"UPDATE STKKART SET STKBAKIYE='1' where STKKOD='S001'"_s);
    EXPECT_EQ(codes(u"STKBAKIYE='12.5'"_s), QStringList{u"S001"_s}); // readers do not wait
    std::thread writer([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        second.execute(u"COMMIT"_s);
    });
    host->execute(u"UPDATE STKKART SET STKBAKIYE='2' where STKKOD='S002'"_s); // writers do
    writer.join();
    EXPECT_EQ(codes(u"STKBAKIYE>'0'"_s), (QStringList{u"S001"_s, u"S002"_s}));
}

TEST_F(EmbeddedEngineTest, GivesUpOnAStatementThatDoesNotEnd)
{
    EmbeddedEngine hasty(scratch.path(), u"DEMOSIRKET"_s, std::chrono::milliseconds(50));
    const QString endless = u"with recursive n(i) as (select 1 union all select i+1 from n) "
                            "select count(*) from n"_s;
    EXPECT_EQ(errorOf([&] { hasty.execute(endless); }), HostError::kConnectionLost);
    EXPECT_EQ(hasty.execute(u"select 1 AS N"_s).number(u"N"), 1);
}

TEST_F(EmbeddedEngineTest, OpensOnlyDatabasesOfTheFolder)
{
    scratch.write(u"METIN.yerel"_s, QByteArray(5000, 'x'));
    const QStringList refused = {u"YOK"_s,   u"METIN"_s,        QString(),
                                 u"../x"_s,  u"..\\DEMOANA"_s,  scratch.path(u"DEMOANA"_s),
                                 u"DEMO*"_s, u"DEMOANA.yerel"_s};
    for (const QString &name : refused)
        EXPECT_EQ(errorOf([&] { EmbeddedEngine(scratch.path(), name); }),
                  HostError::kConnectionLost)
            << name.toStdString();
}

/// Whatever a file holds, a program that reads it gets values or a HostError.
TEST_F(EmbeddedEngineTest, SurvivesDamagedFiles)
{
    host.reset();
    const QByteArray sound = readFile(scratch.path(u"DEMOSIRKET.yerel"_s));
    std::uint32_t random = 1;
    for (int round = 0; round < 300; ++round) {
        QByteArray damaged = sound;
        for (int i = 0; i < 40; ++i) {
            random = random * 1664525U + 1013904223U;
            damaged[static_cast<qsizetype>(random >> 8) % damaged.size()] =
                static_cast<char>(random);
        }
        if (round % 4 == 0)
            damaged.truncate(static_cast<qsizetype>(random >> 8) % damaged.size());
        scratch.write(u"DEMOSIRKET.yerel"_s, damaged);
        errorOf([&] {
            EmbeddedEngine engine(scratch.path(), u"DEMOSIRKET"_s);
            for (const char16_t *statement :
                 {u"select * from STKKART where STKCINSI LIKE '%a%'",
                  u"select * from STKKART where STKKOD='S002'",
                  u"INSERT INTO STKHAR (STKHARREFNO,STKHARTAR) values ('1','1.1.2026')",
                  u"UPDATE STKKART SET STKBAKIYE='1'"})
                errorOf([&] { engine.execute(QString::fromUtf16(statement)); });
        });
    }
}

} // namespace
