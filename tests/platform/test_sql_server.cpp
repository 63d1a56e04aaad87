#include "common/host_error.h"
#include "platform/host/odbc_errors.h"
#include "platform/host/sql_browser.h"
#include "platform/host/sql_server.h"
#include "support/cases.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(SqlServer, TheFirstKnownOneIsTaken)
{
    QStringList installed = {u"SQLite3"_s, u"SQL Server Native Client 11.0"_s};
    EXPECT_EQ(sql_server::choose(installed), QString());
    for (const QString &better :
         {u"FreeTDS"_s, u"SQL Server"_s, u"ODBC Driver 13 for SQL Server"_s,
          u"ODBC Driver 17 for SQL Server"_s, u"ODBC Driver 18 for SQL Server"_s}) {
        installed += better;
        EXPECT_EQ(sql_server::choose(installed), better);
    }
}

TEST(SqlServer, EachIsToldInItsOwnWay)
{
    for (const Case &c : cases(u"odbc_strings"_s)) {
        const QString told =
            sql_server::connectionString(c.value(0), parseServerName(c.value(1)),
                                         {{}, u"sa"_s, c.value(2), u"MUV"_s}, c.value(3));
        EXPECT_EQ(told, u"DRIVER={%1};"_s.arg(c.value(0)) +
                            QString(c.value(4))
                                .replace(u"<open>"_s, u"Encrypt=no;TrustServerCertificate=yes;"_s))
            << c;
    }
}

TEST(OdbcErrors, TheGravestMessageDecidesAndItsReasonIsToldInTurkish)
{
    const QStringList causes = {u"unknown"_s,  u"noDriver"_s, u"encryption"_s, u"login"_s,
                                u"database"_s, u"right"_s,    u"noTable"_s,    u"silent"_s};
    const QHash<QString, int> numbers = {{u"lost"_s, HostError::kConnectionLost},
                                         {u"duplicate"_s, HostError::kDuplicate},
                                         {u"statement"_s, HostError::kStatement}};
    for (const Case &c : cases(u"odbc_errors"_s)) {
        std::vector<OdbcMessage> messages;
        for (const QString &one : c[0].split(u" + "_s, Qt::SkipEmptyParts))
            messages.push_back(
                {one.section(u' ', 0, 0), one.section(u' ', 1, 1).toInt(), one.section(u' ', 2)});
        EXPECT_EQ(odbcErrorNumber(messages), numbers.value(c[1])) << c;
        EXPECT_TRUE(odbcReason(messages).contains(c.value(2))) << c;
        EXPECT_EQ(odbcCause(messages), static_cast<HostError::Cause>(causes.indexOf(c[3]))) << c;
    }
}

TEST(SqlBrowser, ReadsThePortOfAnInstance)
{
    const auto answer = [](const QByteArray &text) { return QByteArray("\x05\x40\x00", 3) + text; };
    for (const auto &[port, text] : std::vector<std::pair<int, QByteArray>>{
             {49170, "ServerName;KASA1;InstanceName;SQL2;IsClustered;No;tcp;49170;;"},
             {50000, "ServerName;tcp;InstanceName;1433;np;\\\\KASA1\\pipe;TCP;50000;;"},
             {0, "ServerName;KASA1;InstanceName;SQL2;np;\\\\KASA1\\pipe;;"},
             {0, "tcp;99999;;"},
             {0, "tcp;"}})
        EXPECT_EQ(sql_browser::portInAnswer(answer(text)).value_or(0), port) << text.toStdString();
    EXPECT_FALSE(sql_browser::portInAnswer("\x04tcp;1433;;"));
    EXPECT_FALSE(sql_browser::portInAnswer({}));
}

} // namespace
