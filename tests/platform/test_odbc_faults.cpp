#include "platform/bounded_calls.h"
#include "platform/fake_sql_server.h"
#include "platform/odbc_engine.h"
#include "platform/odbc_session.h"
#include "platform/scratch.h"

#include <gtest/gtest.h>
using namespace Qt::StringLiterals;

namespace {

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

    std::unique_ptr<OdbcEngine> connect(const QString &server)
    {
        const ConnectionSettings settings{server, u"sa"_s, u"gizli"_s, u"DEMOSIRKET"_s};
        return std::make_unique<OdbcEngine>(calls, settings, OdbcOverride{u"FreeTDS"_s, {}});
    }

    std::shared_ptr<BoundedCalls> calls = std::make_shared<BoundedCalls>();

private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

TEST_F(OdbcFaults, NoServerAtAll)
{
    EXPECT_EQ(errorOf([&] { connect(u"127.0.0.1,1"_s); }), HostError::kConnectionLost);
    EXPECT_EQ(errorOf([&] { connect(u"yok.invalid"_s); }), HostError::kConnectionLost);
    EXPECT_EQ(errorOf([&] { connect(u"127.0.0.1,x"_s); }), HostError::kConnectionLost);
    EXPECT_EQ(errorOf([&] { connect(QString()); }), HostError::kConnectionLost);
}

TEST_F(OdbcFaults, AServerThatRefusesTheLogin)
{
    const FakeSqlServer server(FakeSqlServer::Fault::refusesLogin);
    EXPECT_EQ(errorOf([&] { connect(server.name()); }), HostError::kConnectionLost);
}

TEST_F(OdbcFaults, AServerThatNeverAnswers)
{
    const FakeSqlServer server(FakeSqlServer::Fault::silent);
    EXPECT_EQ(errorOf([&] { connect(server.name()); }), HostError::kConnectionLost);
}

class OdbcStatementFaults : public OdbcFaults,
                            public testing::WithParamInterface<std::pair<FakeSqlServer::Fault, int>>
{};

TEST_P(OdbcStatementFaults, AStatementFailsAndSaysSo)
{
    using Fault = FakeSqlServer::Fault;
    const auto [fault, expected] = GetParam();
    const FakeSqlServer server(fault);
    const auto host = connect(server.name());
    ASSERT_EQ(host->state(), 1);
    EXPECT_EQ(errorOf([&] { host->execute(u"select * from STKKART"_s); }), expected);
    const bool alive = fault == Fault::slowQuery || fault == Fault::violatesKey;
    EXPECT_EQ(host->state(), alive ? 1 : 0);
    if (!alive) {
        EXPECT_EQ(errorOf([&] { host->execute(u"select 1"_s); }), HostError::kConnectionLost);
        // A driver that still hangs in the old connection does not keep the shop from a new one.
        const FakeSqlServer repaired(Fault::violatesKey);
        EXPECT_EQ(connect(repaired.name())->state(), 1);
    }
}

INSTANTIATE_TEST_SUITE_P(
    , OdbcStatementFaults,
    testing::Values(std::pair(FakeSqlServer::Fault::silentOnQuery, HostError::kConnectionLost),
                    std::pair(FakeSqlServer::Fault::slowQuery, HostError::kConnectionLost),
                    std::pair(FakeSqlServer::Fault::silentInResult, HostError::kConnectionLost),
                    std::pair(FakeSqlServer::Fault::closesInResult, HostError::kConnectionLost),
                    std::pair(FakeSqlServer::Fault::closesOnQuery, HostError::kConnectionLost),
                    std::pair(FakeSqlServer::Fault::violatesKey, HostError::kDuplicate)));

} // namespace
