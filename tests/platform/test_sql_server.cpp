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

TEST(OdbcErrors, TheGravestMessageDecides)
{
    using Messages = std::vector<OdbcMessage>;
    for (const auto &[expected, messages] : std::vector<std::pair<int, Messages>>{
             {HostError::kConnectionLost, {{u"08S01"_s, 10054, {}}}},
             {HostError::kConnectionLost, {{u"08001"_s, 0, {}}}},
             {HostError::kConnectionLost, {{u"HYT00"_s, 0, {}}}},
             {HostError::kConnectionLost, {{u"HYT01"_s, 0, {}}}},
             {HostError::kConnectionLost, {{u"01000"_s, 20017, {}}}},
             {HostError::kConnectionLost, {{u"01000"_s, 20047, {}}, {u"42000"_s, 1, {}}}},
             {HostError::kDuplicate, {{u"01000"_s, 3621, {}}, {u"23000"_s, 2627, {}}}},
             {HostError::kStatement, {{u"42000"_s, 105, {}}}},
             {HostError::kStatement, {}}})
        EXPECT_EQ(odbcErrorNumber(messages), expected)
            << (messages.empty() ? "" : messages.front().state.toStdString());
}

TEST(OdbcErrors, TheReasonIsToldInTurkish)
{
    using Cause = HostError::Cause;
    struct Case
    {
        std::vector<OdbcMessage> messages;
        QString word;
        Cause cause;
    };
    const std::vector<Case> cases = {
        {{{u"28000"_s, 18456, {}}, {u"42000"_s, 4060, {}}},
         u"Veritabanı açılamadı"_s,
         Cause::database},
        {{{u"28000"_s, 18456, {}}}, u"parola kabul edilmedi"_s, Cause::login},
        {{{u"IM002"_s, 0, {}}}, u"sürücüsü"_s, Cause::noDriver},
        {{{u"08001"_s, 18, u"[DBNETLIB]SSL Güvenlik hatası"_s}},
         u"şifrelemede"_s,
         Cause::encryption},
        {{{u"08S01"_s, 10054, u"SSL Provider: bağlantı kapatıldı"_s}}, u"koptu"_s, Cause::unknown},
        {{{u"42000"_s, 229, {}}}, u"hakkı yok"_s, Cause::right},
        {{{u"42S02"_s, 208, {}}}, u"Tablo bulunamadı"_s, Cause::noTable},
        {{{u"08001"_s, 0, {}}}, u"ulaşılamıyor"_s, Cause::unknown},
        {{{u"HYT00"_s, 0, {}}}, u"süresinde"_s, Cause::silent},
        {{{u"42000"_s, 50000, {}}}, QString(), Cause::unknown},
    };
    for (const Case &c : cases) {
        EXPECT_TRUE(odbcReason(c.messages).contains(c.word)) << c.word.toStdString();
        EXPECT_EQ(odbcCause(c.messages), c.cause) << c.word.toStdString();
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
