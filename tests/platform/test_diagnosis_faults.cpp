#include "platform/fake_sql_server.h"
#include "platform/host/odbc_session.h"
#include "platform/host/system_probe.h"
#include "platform/scratch.h"
#include "shell/diagnosis.h"
#include "support/print_qt.h"

#include <QEventLoop>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kPassword = u"Gizli4Parola"_s;

struct ServerFault
{
    std::string name;
    FakeSqlServer::Fault fault;
    QString marks; ///< of the first six steps
    QString found; ///< at the first step that is not well
};

class DiagnosedServer : public testing::TestWithParam<ServerFault>
{
protected:
    void SetUp() override
    {
        if (!OdbcSession::installedDrivers().contains(u"FreeTDS"_s))
            GTEST_SKIP() << "FreeTDS is not installed";
        folder.write(u"baglanti.zev"_s, "[odbc]\r\nsurucu=FreeTDS\r\n");
    }

    Scratch folder;
};

/// What the program and its libraries write on the side while it lives.
class Log
{
public:
    Log() { m_before = qInstallMessageHandler(keep); }
    ~Log() { qInstallMessageHandler(m_before); }
    Log(const Log &) = delete;
    Log &operator=(const Log &) = delete;

    static QString &text()
    {
        static QString lines;
        return lines;
    }

private:
    static void keep(QtMsgType, const QMessageLogContext &, const QString &line) { text() += line; }

    QtMessageHandler m_before;
};

} // namespace

/// Time-outs are those of the test: a step is given up long before the driver's own five seconds.
TEST_P(DiagnosedServer, IsToldWithoutItsPassword)
{
    const Log log;
    const FakeSqlServer server(GetParam().fault);
    SystemProbe probe(folder.path(), std::chrono::milliseconds(300));
    Diagnosis diagnosis(probe, nullptr, std::chrono::milliseconds(700));
    QEventLoop loop;
    QObject::connect(&diagnosis, &Diagnosis::finished, &loop, &QEventLoop::quit);
    diagnosis.start({server.name(), u"sa"_s, kPassword, u"ANA"_s, u"SIRKET"_s});
    loop.exec();

    QString marks;
    QString found;
    for (const DiagnosisStep &step : diagnosis.steps().first(6)) {
        marks += Diagnosis::mark(step.state);
        if (step.state == DiagnosisStep::State::bad && found.isEmpty())
            found = step.found;
    }
    EXPECT_EQ(marks, GetParam().marks) << diagnosis.text().toStdString();
    EXPECT_TRUE(found.contains(GetParam().found)) << found.toStdString();
    EXPECT_FALSE((diagnosis.text() + Log::text()).contains(kPassword));
}

INSTANTIATE_TEST_SUITE_P(
    , DiagnosedServer,
    testing::Values(
        ServerFault{"Silent", FakeSqlServer::Fault::silent, u"✓✓✗–––"_s, u"yanıt gelmedi"_s},
        ServerFault{"HalfHello", FakeSqlServer::Fault::halfHello, u"✓✓✗–––"_s, u"bitirmedi"_s},
        ServerFault{"Foreign", FakeSqlServer::Fault::foreign, u"✓✓✗–––"_s, u"SQL Server değil"_s},
        ServerFault{"RefusesLogin", FakeSqlServer::Fault::refusesLogin, u"✓✓✓✗––"_s,
                    u"Giriş yapılamadı"_s},
        ServerFault{"WrongPassword", FakeSqlServer::Fault::wrongPassword, u"✓✓✓✗––"_s,
                    u"kabul etmedi"_s},
        ServerFault{"SilentOnQuery", FakeSqlServer::Fault::silentOnQuery, u"✓✓✓✓✗–"_s,
                    u"1 saniyede yanıt"_s},
        ServerFault{"ClosesInResult", FakeSqlServer::Fault::closesInResult, u"✓✓✓✓✗✓"_s,
                    u"20017"_s},
        ServerFault{"AnotherDatabase", FakeSqlServer::Fault::none, u"✓✓✓✓✗✓"_s,
                    u"KDVKISIM.KDVKISNO"_s},
        ServerFault{"RefusesStatements", FakeSqlServer::Fault::violatesKey, u"✓✓✓✓✗✓"_s,
                    u"KDVKISIM"_s}),
    [](const auto &one) { return one.param.name; });
