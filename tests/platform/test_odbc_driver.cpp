#include "common/host_error.h"
#include "platform/host/odbc_driver.h"
#include "platform/host/odbc_errors.h"
#include "platform/host/sql_browser.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(OdbcDriver, TheFirstKnownOneIsTaken)
{
    const QString ms18 = u"ODBC Driver 18 for SQL Server"_s;
    const QString ms17 = u"ODBC Driver 17 for SQL Server"_s;
    const QString ms13 = u"ODBC Driver 13 for SQL Server"_s;
    struct Case
    {
        QStringList installed;
        QString expected;
    };
    const std::vector<Case> cases = {
        {{u"FreeTDS"_s, u"SQL Server"_s, ms13, ms17, ms18}, ms18},
        {{u"FreeTDS"_s, u"SQL Server"_s, ms13, ms17}, ms17},
        {{u"FreeTDS"_s, u"SQL Server"_s, ms13}, ms13},
        {{u"FreeTDS"_s, u"SQL Server"_s}, u"SQL Server"_s},
        {{u"SQLite3"_s, u"FreeTDS"_s}, u"FreeTDS"_s},
        {{u"SQLite3"_s, u"SQL Server Native Client 11.0"_s}, QString()},
        {{}, QString()},
    };
    for (const Case &c : cases)
        EXPECT_EQ(odbc_driver::choose(c.installed), c.expected);
}

TEST(OdbcDriver, EachIsToldInItsOwnWay)
{
    struct Case
    {
        QString driver;
        QString server;
        QString password;
        QString extra;
        QString expected; ///< without the name of the driver
    };
    const QString ms = u"ODBC Driver 18 for SQL Server"_s;
    const QString old = u"SQL Server"_s;
    const QString tds = u"FreeTDS"_s;
    const QString open = u"Encrypt=no;TrustServerCertificate=yes;"_s;
    const std::vector<Case> cases = {
        {ms, u"KASA1"_s, u"x"_s, {}, u"Server=KASA1;UID=sa;PWD=x;Database=MUV;"_s + open},
        {ms,
         u"KASA1\\SQL2"_s,
         u"x"_s,
         {},
         u"Server=KASA1\\SQL2;UID=sa;PWD=x;Database=MUV;"_s + open},
        {ms,
         u"tcp:KASA1\\SQL2,1500"_s,
         u"x"_s,
         {},
         u"Server=KASA1,1500;UID=sa;PWD=x;Database=MUV;"_s + open},
        {ms, u"KASA1"_s, u"a}b{c"_s, u" encrypt = yes;Foo=1"_s,
         u"Server=KASA1;UID=sa;PWD={a}}b{c};Database=MUV;TrustServerCertificate=yes; "
         "encrypt = yes;Foo=1"_s},
        {old, u"."_s, u"x"_s, {}, u"Server=localhost;UID=sa;PWD=x;Database=MUV;"_s},
        {old, u"KASA1"_s, u" x;y "_s, {}, u"Server=KASA1;UID=sa;PWD={ x;y };Database=MUV;"_s},
        {tds,
         u"KASA1"_s,
         u"a}b=c"_s,
         {},
         u"Server=KASA1;Port=1433;TDS_Version=7.4;ClientCharset=UTF-8;UID=sa;PWD=a}b=c;"
         "Database=MUV;"_s},
        {tds, u"KASA1,1500"_s, u"x"_s, u"TDS_Version=7.0"_s,
         u"Server=KASA1;Port=1500;ClientCharset=UTF-8;UID=sa;PWD=x;Database=MUV;TDS_Version=7.0"_s},
        {u"SQLite3"_s, u"KASA1"_s, QString(), u"Database=/tmp/x.db"_s,
         u"Server=KASA1;UID=sa;PWD=;Database=/tmp/x.db"_s},
    };
    for (const Case &c : cases)
        EXPECT_EQ(odbc_driver::connectionString(c.driver, parseServerName(c.server),
                                                {c.server, u"sa"_s, c.password, u"MUV"_s}, c.extra),
                  u"DRIVER={%1};"_s.arg(c.driver) + c.expected);
}

TEST(OdbcErrors, TheGravestMessageDecides)
{
    struct Case
    {
        std::vector<OdbcMessage> messages;
        int expected;
    };
    const std::vector<Case> cases = {
        {{{u"08S01"_s, 10054, {}}}, HostError::kConnectionLost},
        {{{u"08001"_s, 0, {}}}, HostError::kConnectionLost},
        {{{u"HYT00"_s, 0, {}}}, HostError::kConnectionLost},
        {{{u"HYT01"_s, 0, {}}}, HostError::kConnectionLost},
        {{{u"01000"_s, 20017, {}}}, HostError::kConnectionLost},
        {{{u"01000"_s, 20047, {}}, {u"42000"_s, 1, {}}}, HostError::kConnectionLost},
        {{{u"01000"_s, 3621, {}}, {u"23000"_s, 2627, {}}}, HostError::kDuplicate},
        {{{u"42000"_s, 105, {}}}, HostError::kStatement},
        {{{u"22001"_s, 8152, {}}}, HostError::kStatement},
        {{}, HostError::kStatement},
    };
    for (const Case &c : cases)
        EXPECT_EQ(odbcErrorNumber(c.messages), c.expected)
            << (c.messages.empty() ? "" : c.messages.front().state.toStdString());
}

TEST(SqlBrowser, ReadsThePortOfAnInstance)
{
    const auto answer = [](const QByteArray &text) { return QByteArray("\x05\x40\x00", 3) + text; };
    struct Case
    {
        QByteArray answer;
        int expected; // 0: none
    };
    const std::vector<Case> cases = {
        {answer("ServerName;KASA1;InstanceName;SQL2;IsClustered;No;Version;9.0;tcp;49170;;"),
         49170},
        {answer("ServerName;tcp;InstanceName;1433;np;\\\\KASA1\\pipe;TCP;50000;;"), 50000},
        {answer("ServerName;KASA1;InstanceName;SQL2;np;\\\\KASA1\\pipe;;"), 0},
        {answer("tcp;99999;;"), 0},
        {answer("tcp;"), 0},
        {"\x04tcp;1433;;", 0},
        {QByteArray(), 0},
    };
    for (const Case &c : cases)
        EXPECT_EQ(sql_browser::portInAnswer(c.answer).value_or(0), c.expected)
            << c.answer.toStdString();
}

} // namespace
