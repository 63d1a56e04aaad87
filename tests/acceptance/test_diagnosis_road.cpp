#include "acceptance/rooms_shop.h"
#include "platform/host/system_probe.h"
#include "shell/diagnosis.h"
#include "shell/forms/baglan.h"
#include "shell/forms/diagnosis_dialog.h"
#include "shell/forms/login.h"
#include "shell/forms/parametre.h"

#include <QClipboard>
#include <QEventLoop>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

/// Looks to the end.
void diagnose(Diagnosis &diagnosis, const DiagnosisTarget &target)
{
    QEventLoop loop;
    QObject::connect(&diagnosis, &Diagnosis::finished, &loop, &QEventLoop::quit);
    diagnosis.start(target);
    loop.exec();
}

class DiagnosedShop : public testing::TestWithParam<Engine>
{
protected:
    void SetUp() override
    {
        if (GetParam() == Engine::server)
            SKIP_WITHOUT_SERVER();
    }

    DiagnosisTarget target()
    {
        HostLink link(shop.program);
        link.ayaroku();
        const Settings::Server &s = link.server();
        return {s.server, s.kuladi, s.sifre, s.msql, s.sql};
    }

    RealShop shop{GetParam()};
    SystemProbe probe{shop.folder.path()};
};

} // namespace

TEST_P(DiagnosedShop, IsWell)
{
    Diagnosis diagnosis(probe);
    diagnose(diagnosis, target());
    EXPECT_TRUE(diagnosis.passed()) << diagnosis.text().toStdString();
}

INSTANTIATE_TEST_SUITE_P(, DiagnosedShop, testing::Values(Engine::embedded, Engine::server),
                         engineName);

namespace {

/// The demo shop on the test server, and a login of the test that nobody has let in.
class RightlessLogin : public DiagnosedShop
{
protected:
    void SetUp() override
    {
        DiagnosedShop::SetUp();
        if (IsSkipped())
            return;
        user = shop.server->newName();
        server(u"CREATE LOGIN [%1] WITH PASSWORD = '%2'"_s.arg(user, kPassword));
    }
    void TearDown() override
    {
        if (!user.isEmpty())
            resumeNext([this] { server(u"DROP LOGIN [%1]"_s.arg(user)); });
    }

    void server(const QString &statement) const
    {
        shop.server->connect(u"master"_s)->execute(statement);
    }
    DiagnosisTarget asUser()
    {
        DiagnosisTarget target = this->target();
        target.user = user;
        target.password = kPassword;
        return target;
    }
    /// What the person who looks after the server does with the lines that are shown.
    void runShown(const QString &script) const
    {
        std::unique_ptr<HostConnection> host;
        for (const QString &line : script.split(u'\n', Qt::SkipEmptyParts)) {
            if (line.startsWith(u"USE ["_s))
                host = shop.server->connect(line.sliced(5).section(u']', 0, 0));
            else if (!line.startsWith(u"--"_s))
                host->execute(line);
        }
    }

    const QString kPassword = u"Gizli4Parola!"_s;
    QString user;
};

} // namespace

/// Once from nothing; then from half: a table whose every right is gone is no missing table.
TEST_P(RightlessLogin, IsLetInByTheLinesThatAreShown)
{
    Diagnosis diagnosis(probe);
    const auto company = shop.connect();
    for (const QString &lost : {QString(), u"SELECT, UPDATE ON CARKART"_s}) {
        if (!lost.isEmpty())
            company->execute(u"REVOKE %1 FROM [%2]"_s.arg(lost, user));
        diagnose(diagnosis, asUser());
        EXPECT_EQ(diagnosis.steps().at(3).state, DiagnosisStep::State::good);
        EXPECT_FALSE(diagnosis.text().contains(kPassword));
        runShown(diagnosis.grants());
        diagnose(diagnosis, asUser());
        EXPECT_TRUE(diagnosis.passed()) << diagnosis.text().toStdString();
    }
}

/// One table of each kind of fault in a database that is else as it should be.
TEST_P(RightlessLogin, ChangedTablesAreTold)
{
    const struct
    {
        QStringList statements;
        int step;
        QString found;
    } cases[] = {
        {{u"DROP TABLE DEPO"_s}, 6, u"Eksik tablolar: DEPO."_s},
        {{u"ALTER TABLE STKKART DROP COLUMN STKBIRIM2"_s}, 6, u"STKKART.STKBIRIM2"_s},
        {{u"DROP TABLE CARHAR"_s, u"CREATE VIEW CARHAR AS SELECT CARKOD FROM CARKART"_s},
         6,
         u"görünüm (view): CARHAR."_s},
    };
    const auto company = shop.connect();
    Diagnosis diagnosis(probe);
    for (const auto &one : cases) {
        for (const QString &statement : one.statements)
            company->execute(statement);
        diagnose(diagnosis, target());
        EXPECT_TRUE(diagnosis.steps().at(one.step).found.contains(one.found))
            << diagnosis.text().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(, RightlessLogin, testing::Values(Engine::server), engineName);

namespace {

class DiagnosisForms : public RoomsTest
{
protected:
    DiagnosisForms() : RoomsTest(std::chrono::milliseconds(300)) {}

    void setServer(const QString &server)
    {
        OpenDatabase file(shop.program.files(), settings::kFile);
        file.execute(
            u"Update server set server='%1',kuladi='sa',sifre='Gizli4' Where id ='1'"_s.arg(
                server));
    }
    /// Waits until a text shows in the window; false when it never does.
    static bool shows(QWidget *window, const QString &text)
    {
        return QTest::qWaitFor(
            [&] {
                for (const QLabel *label : window->findChildren<QLabel *>())
                    if (label->isVisible() && label->text().contains(text))
                        return true;
                return false;
            },
            10'000);
    }
};

} // namespace

TEST_F(DiagnosisForms, ShowWhyTheServerIsAwayAndTryWhatWasTyped)
{
    setServer(u"127.0.0.1,1"_s);
    rooms.open();
    click(await<baglan>(), u"diagnose"_s);
    auto *dialog = await<DiagnosisDialog>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(shows(dialog, u"TCP 1 kapalı."_s));
    EXPECT_TRUE(shows(dialog, u"✗ ile işaretli"_s));
    click(dialog, u"copyAll"_s);
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(copied.contains(u"✗ Bağlantı noktası"_s)) << copied.toStdString();
    EXPECT_FALSE(copied.contains(u"Gizli4"_s));
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([] { return open<DiagnosisDialog>().isEmpty(); }));

    click(await<baglan>(), u"button2"_s);
    enter(await<login>(), u"lgpass"_s, {});
    parametre *const settings = await<parametre>();
    ASSERT_NE(settings, nullptr);
    settings->findChild<QLineEdit *>(u"srvadi"_s)->setText(u"(yerel)"_s);
    click(settings, u"diagnose"_s);
    dialog = await<DiagnosisDialog>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(shows(dialog, u"Her şey yolunda."_s));
}
