#include "platform/fake_sql_server.h"
#include "platform/host/bounded_calls.h"
#include "platform/host/odbc_engine.h"
#include "platform/host/odbc_session.h"
#include "platform/host/sql_browser.h"
#include "platform/host/sql_server.h"
#include "platform/scratch.h"
#include "support/print_qt.h"

#include <QNetworkDatagram>
#include <QUdpSocket>

#include <gtest/gtest.h>
using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds kShort{400};  ///< for servers that never answer
constexpr std::chrono::milliseconds kUsual{2500}; ///< two seconds of the driver's own
constexpr std::chrono::seconds kAboutFive{9};

class OdbcFaults : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!OdbcSession::installedDrivers().contains(u"FreeTDS"_s))
            GTEST_SKIP() << "FreeTDS is not installed";
    }

    void TearDown() override { EXPECT_LT(std::chrono::steady_clock::now() - m_start, kAboutFive); }

    std::unique_ptr<OdbcEngine> connect(const QString &server, const QString &password = u"gizli"_s,
                                        std::chrono::milliseconds patience = kUsual)
    {
        const ConnectionSettings settings{server, u"sa"_s, password, u"DEMOSIRKET"_s};
        return std::make_unique<OdbcEngine>(
            calls,
            [=] {
                return sql_server::whereIs(settings, {u"FreeTDS"_s, {}});
            },
            patience);
    }

    std::shared_ptr<BoundedCalls> calls = std::make_shared<BoundedCalls>();

private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

TEST_F(OdbcFaults, ConnectionsThatNeverCome)
{
    const FakeSqlServer refusing(FakeSqlServer::Fault::refusesLogin);
    for (const QString &server :
         {u"127.0.0.1,1"_s, u"yok.invalid"_s, u"127.0.0.1,x"_s, QString(), refusing.name()})
        EXPECT_EQ(errorOf([&] { connect(server); }), HostError::kConnectionLost)
            << server.toStdString();
}

TEST_F(OdbcFaults, AServerThatNeverAnswers)
{
    const FakeSqlServer server(FakeSqlServer::Fault::silent);
    EXPECT_EQ(errorOf([&] { connect(server.name(), {}, kShort); }), HostError::kConnectionLost);
}

TEST_F(OdbcFaults, ASoundServerIsReadInEveryType)
{
    const FakeSqlServer server(FakeSqlServer::Fault::none);
    const auto host = connect(server.name());
    const QString statement = u"select * from STKKART where STKCINSI LIKE '%Çığ%'"_s;
    RecordSet rows = host->execute(statement);
    EXPECT_EQ(server.statement(), statement);
    EXPECT_EQ(server.password(), u"gizli"_s);
    ASSERT_EQ(rows.rowCount(), 2);
    EXPECT_EQ(rows.value(u"TAM"), QVariant(qlonglong{-7}));
    EXPECT_EQ(rows.value(u"BUYUK"), QVariant(qlonglong{8690000000012}));
    EXPECT_EQ(rows.value(u"PARA"), QVariant(149.9));
    EXPECT_EQ(rows.value(u"SAYI"), QVariant(12.5));
    EXPECT_EQ(rows.value(u"ONDALIK"), QVariant(18.99));
    EXPECT_EQ(rows.value(u"ZAMAN"), QVariant(QDateTime(QDate(2026, 11, 20), QTime(0, 1))));
    EXPECT_EQ(rows.value(u"TARIH"), QVariant(QDate(2026, 11, 20)));
    EXPECT_EQ(rows.value(u"SABIT"), QVariant(u"ab   "_s));
    EXPECT_EQ(rows.value(u"METIN"), QVariant(u"İnçcı"_s));
    EXPECT_EQ(rows.value(u"UZUN"), QVariant(FakeSqlServer::longText()));
    rows.moveNext();
    for (const QString &column : rows.columns())
        EXPECT_TRUE(rows.value(column).isNull()) << column.toStdString();
    EXPECT_EQ(host->execute(u"select 2"_s).rowCount(), 2); // nothing of the first is in the way
}

TEST_F(OdbcFaults, PasswordsArriveAsTheyWereTyped)
{
    const FakeSqlServer server(FakeSqlServer::Fault::none);
    for (const QString &password : {u"a=b"_s, u"{x"_s, u"a{b!@"_s, u"şifre İ"_s, u"a}b"_s, u"'\""_s,
                                    u"{ab}c"_s, u"{ab}"_s, u"{"_s}) {
        connect(server.name(), password);
        EXPECT_EQ(server.password(), password);
    }
}

struct FaultCase
{
    std::string name;
    FakeSqlServer::Fault fault;
    int expected;
    bool alive; ///< the connection, afterwards
};

class OdbcStatementFaults : public OdbcFaults, public testing::WithParamInterface<FaultCase>
{};

TEST_P(OdbcStatementFaults, AStatementFailsAndSaysSo)
{
    const FaultCase &param = GetParam();
    const FakeSqlServer server(param.fault);
    const bool silent = param.fault == FakeSqlServer::Fault::silentOnQuery ||
                        param.fault == FakeSqlServer::Fault::silentInResult;
    const auto host = connect(server.name(), u"gizli"_s, silent ? kShort : kUsual);
    ASSERT_EQ(host->state(), 1);
    EXPECT_EQ(errorOf([&] { host->execute(u"select * from STKKART"_s); }), param.expected);
    EXPECT_EQ(host->state(), param.alive ? 1 : 0);
    if (param.alive)
        return;
    EXPECT_EQ(errorOf([&] { host->execute(u"select 1"_s); }), HostError::kConnectionLost);
    // A driver that still hangs in the old connection does not keep the shop from a new one.
    const FakeSqlServer repaired(FakeSqlServer::Fault::none);
    EXPECT_EQ(connect(repaired.name())->execute(u"select 1"_s).rowCount(), 2);
}

constexpr int kLost = HostError::kConnectionLost;

INSTANTIATE_TEST_SUITE_P(
    , OdbcStatementFaults,
    testing::Values(FaultCase{"SilentOnQuery", FakeSqlServer::Fault::silentOnQuery, kLost, false},
                    FaultCase{"SlowQuery", FakeSqlServer::Fault::slowQuery, kLost, true},
                    FaultCase{"SilentInResult", FakeSqlServer::Fault::silentInResult, kLost, false},
                    FaultCase{"ClosesInResult", FakeSqlServer::Fault::closesInResult, kLost, false},
                    FaultCase{"ClosesWhenIdle", FakeSqlServer::Fault::closesWhenIdle, kLost, false},
                    FaultCase{"ClosesOnQuery", FakeSqlServer::Fault::closesOnQuery, kLost, false},
                    FaultCase{"ViolatesKey", FakeSqlServer::Fault::violatesKey,
                              HostError::kDuplicate, true}),
    [](const auto &one) { return one.param.name; });

TEST_F(OdbcFaults, AnInstanceIsFoundThroughTheBrowserService)
{
    QUdpSocket browser;
    if (!browser.bind(QHostAddress::LocalHost, sql_browser::kPort))
        GTEST_SKIP() << "the port of the browser service is taken";
    const FakeSqlServer server(FakeSqlServer::Fault::none);
    std::atomic<qsizetype> rows = 0;
    std::thread client([&] {
        errorOf([&] { rows = connect(u"127.0.0.1\\SQL2"_s)->execute(u"select 1"_s).rowCount(); });
    });
    if (browser.waitForReadyRead(5000)) {
        const QByteArray port = server.name().section(u',', 1).toLatin1();
        browser.writeDatagram(browser.receiveDatagram().makeReply(
            QByteArray("\x05\x20\x00", 3) + "InstanceName;SQL2;tcp;" + port + ";;"));
    }
    client.join();
    EXPECT_EQ(rows, 2);
}

} // namespace
