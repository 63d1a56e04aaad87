#include "common/host_probe.h"
#include "common/host_tables.h"
#include "shell/diagnosis.h"
#include "shell/diagnosis_finding.h"
#include "shell/diagnosis_steps.h"
#include "shell/host_check.h"
#include "shell/setup_ledger.h"
#include "support/cases.h"
#include "support/print_qt.h"

#include <QEventLoop>
#include <QSysInfo>
#include <QTimer>

#include <gtest/gtest.h>
#include <semaphore>
#include <thread>

using namespace Qt::StringLiterals;
using Cause = HostError::Cause;

namespace {

const DiagnosisTarget kTarget{u"KASA1\\SQL2"_s, u"tezgah"_s, u"Gizli4"_s, u"ANA"_s, u"SIRKET"_s};

HostError refused(Cause cause, const QString &words, int number = HostError::kStatement)
{
    return {number, u"İşlem yapılamadı.\n"_s + words, {}, cause};
}

RecordSet rowsOf(const QStringList &columns, const std::vector<RecordSet::Row> &rows)
{
    return RecordSet(columns, rows);
}

RecordSet one(const QString &column, const QVariant &value)
{
    return rowsOf({column}, {{value}});
}

/// A host that answers each statement by the first of its words that is in it.
class ScriptedHost final : public HostConnection
{
public:
    using Answers = std::vector<std::pair<QString, std::function<RecordSet()>>>;

    explicit ScriptedHost(Answers answers) : m_answers(std::move(answers)) {}
    int state() const override { return 1; }
    QString driver() const override { return u"sürücü.so 1.2"_s; }
    RecordSet execute(const QString &statement) override
    {
        for (const auto &[words, answer] : m_answers)
            if (statement.contains(words))
                return answer();
        return {};
    }

private:
    Answers m_answers;
};

RecordSet allRights()
{
    std::vector<RecordSet::Row> rows;
    for (const auto *table : host_tables::tablesOf(host_tables::Database::company))
        rows.push_back({table->name, u"tezgah"_s, 1, 1, 1});
    return rowsOf({u"TABLO"_s, u"KULLANICI"_s, u"R_SELECT"_s, u"R_INSERT"_s, u"R_UPDATE"_s}, rows);
}

/// A server with nothing wrong until a test says so.
class ScriptedTools final : public HostTools
{
public:
    ScriptedTools()
    {
        answer(u"KDVKISIM"_s,
               rowsOf({u"KDVKISNO"_s, u"KDVKISORAN"_s}, {{1, 1.0}, {2, 10.0}, {3, 20.0}}));
        answer(u"HAS_PERMS"_s, allRights());
        answer(u"DATEPART"_s, one(u"AY"_s, 1));
        answer(u"COLLATION_NAME"_s, one(u"DUZEN"_s, u"Turkish_CI_AS"_s));
        answer(u"@@VERSION"_s, one(u"SURUM"_s, u"SQL Server 2019\nEk"_s));
        answer(u"sys.databases"_s, rowsOf({u"AD"_s}, {{u"ANA"_s}, {u"SIRKET26"_s}}));
        answer(u"HAS_DBACCESS(N'"_s, one(u"ERISIM"_s, 0));
    }

    void answer(const QString &words, const RecordSet &rows)
    {
        script.insert(script.begin(), {words, [rows] { return rows; }});
    }
    void fail(const QString &words, const HostError &error)
    {
        script.insert(script.begin(), {words, [error]() -> RecordSet { throw error; }});
    }

    QStringList addresses(const QString &) override { return places; }
    std::optional<int> instancePort(const QString &, const QString &) override { return browser; }
    PortState port(const QString &, int) override { return state; }
    PortGreeting greet(const QString &, int) override { return greeting; }
    std::unique_ptr<HostConnection> open(const QString &connectionString) override
    {
        if (hold)
            hold->acquire();
        for (const auto &[database, error] : closed)
            if (connectionString.contains(u"database="_s + database + u';'))
                throw error;
        return std::make_unique<ScriptedHost>(script);
    }

    QStringList places{u"192.168.1.10"_s};
    std::optional<int> browser = 49170;
    PortState state = PortState::open;
    PortGreeting greeting{PortGreeting::Kind::server, PortGreeting::Encryption::possible};
    std::vector<std::pair<QString, HostError>> closed;
    ScriptedHost::Answers script;
    std::shared_ptr<std::binary_semaphore> hold; ///< connections wait for it
};

std::vector<std::optional<DiagnosisFinding>> lookAt(HostTools &tools,
                                                    const DiagnosisTarget &target = kTarget)
{
    const auto count = DiagnosisSteps::of(target).size();
    std::vector<std::optional<DiagnosisFinding>> findings(count);
    DiagnosisSteps steps(tools, target, [&](int step, const DiagnosisFinding &finding) {
        findings.at(static_cast<std::size_t>(step)) = finding;
    });
    for (int step = 0; step < static_cast<int>(count); ++step)
        steps.run(step);
    return findings;
}

/// "COLUMN COLUMN: field field, field field"; "-" is no value.
RecordSet table(const QString &columns, const QString &text)
{
    std::vector<RecordSet::Row> rows;
    for (const QString &row : text.split(u", "_s, Qt::SkipEmptyParts)) {
        rows.emplace_back();
        for (const QString &field : row.split(u' '))
            rows.back().push_back(field == u"-" ? QVariant() : QVariant(field));
    }
    return rowsOf(columns.split(u' '), rows);
}

/// Makes what a line of the table tells, "what: its words".
void makeFault(const QString &told, ScriptedTools &tools, DiagnosisTarget &target)
{
    static const QStringList causes = {u"unknown"_s,  u"noDriver"_s, u"encryption"_s, u"login"_s,
                                       u"database"_s, u"right"_s,    u"noTable"_s,    u"silent"_s};
    static const QStringList kinds = {u"server"_s, u"foreign"_s, u"closed"_s, u"half"_s,
                                      u"silent"_s};
    const QStringList words = told.split(u": "_s);
    const QString what = words.value(1);
    const auto error = [&](int number) {
        const auto cause = static_cast<Cause>(causes.indexOf(words.value(2)));
        return refused(cause, words.value(3), number);
    };
    if (words[0] == u"server")
        target.server = what;
    else if (words[0] == u"password")
        target.password = what;
    else if (words[0] == u"company")
        target.company = what;
    else if (words[0] == u"no address")
        tools.places.clear();
    else if (words[0] == u"no browser")
        tools.browser.reset();
    else if (words[0] == u"port")
        tools.state = what == u"silent" ? PortState::silent : PortState::refused;
    else if (words[0] == u"greeting")
        tools.greeting.kind = static_cast<PortGreeting::Kind>(kinds.indexOf(what));
    else if (words[0] == u"closed")
        tools.closed.emplace_back(what, error(HostError::kConnectionLost));
    else if (words[0] == u"fails" || words[0] == u"loses")
        tools.fail(
            what, error(words[0] == u"fails" ? HostError::kStatement : HostError::kConnectionLost));
    else
        tools.answer(what, table(words.value(2), words.value(3)));
}

} // namespace

TEST(DiagnosisStepsTest, EachFaultIsToldAtItsStepWithWhatToDoNext)
{
    for (const Case &c : cases(u"diagnosis"_s)) {
        ScriptedTools tools;
        DiagnosisTarget target = kTarget;
        for (const QString &told : c.value(0).split(u" + "_s))
            makeFault(told, tools, target);
        const auto findings = lookAt(tools, target);
        QStringList names;
        for (const auto &step : DiagnosisSteps::of(target))
            names += step.name.toString();
        const qsizetype toldAt = names.indexOf(c.value(1));
        const qsizetype last = c.value(4).isEmpty() ? names.size() : names.indexOf(c.value(4));
        ASSERT_GE(toldAt, 0) << c;
        for (qsizetype step = 0; step < names.size(); ++step) {
            const auto &finding = findings.at(static_cast<std::size_t>(step));
            if (step == toldAt) {
                ASSERT_TRUE(finding && !finding->good) << c;
                EXPECT_TRUE(finding->found.contains(c.value(2)))
                    << c << finding->found.toStdString();
                EXPECT_TRUE(finding->advice.contains(c.value(3)))
                    << c << finding->advice.toStdString();
                EXPECT_EQ(finding->grant.contains(c.value(5)), !c.value(5).isEmpty()) << c;
            } else if (step > last) {
                EXPECT_FALSE(finding) << c;
            } else if (finding) {
                EXPECT_TRUE(finding->good) << c << finding->found.toStdString();
            }
        }
    }
}

TEST(DiagnosisFindings, ADatabaseWithoutAnyOfTheTablesIsNotListed)
{
    host_check::Missing missing;
    for (const auto *table : host_tables::tablesOf(host_tables::Database::company))
        missing.tables += table->name;
    const QString found = diagnosis_finding::ofTables(missing, u"SIRKET"_s, {}).found;
    EXPECT_TRUE(found.contains(u"SIRKET içinde muhasebe tablolarının hiçbiri yok."_s));
    EXPECT_FALSE(found.contains(missing.tables.first()));
}

/// A server on the same machine needs no open port: its driver has ways beside the network.
TEST(DiagnosisStepsTest, AServerOnThisMachineNeedsNoNetwork)
{
    ScriptedTools tools;
    tools.state = PortState::refused;
    DiagnosisTarget target = kTarget;
    target.server = QSysInfo::machineHostName() + u"\\SQLEXPRESS"_s;
    for (const auto &finding : lookAt(tools, target))
        EXPECT_TRUE(finding && finding->good);
}

namespace {

/// Works on a real thread that is waited for at the end.
class ThreadProbe final : public HostProbe
{
public:
    ~ThreadProbe() override
    {
        for (std::thread &thread : m_threads)
            thread.join();
    }
    void start(std::function<void(HostTools &)> work) override
    {
        m_threads.emplace_back([tools = tools, work = std::move(work)]() mutable { work(tools); });
    }

    ScriptedTools tools;

private:
    std::vector<std::thread> m_threads;
};

bool waitForEnd(Diagnosis &diagnosis)
{
    QEventLoop loop;
    QObject::connect(&diagnosis, &Diagnosis::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(10'000, &loop, [&] { loop.exit(1); });
    return !diagnosis.isRunning() || loop.exec() == 0;
}

QString marks(const Diagnosis &diagnosis)
{
    QString marks;
    for (const DiagnosisStep &step : diagnosis.steps())
        marks += Diagnosis::mark(step.state);
    return marks;
}

} // namespace

TEST(DiagnosisTest, TellsEachStepAndCopiesAllButThePassword)
{
    ThreadProbe probe;
    probe.tools.closed.emplace_back(u"SIRKET"_s, refused(Cause::database, u"4060"_s));
    probe.tools.fail(u"KDVKISIM"_s, refused(Cause::right, u"229 Gizli4"_s));
    Diagnosis diagnosis(probe);
    diagnosis.start(kTarget);
    EXPECT_EQ(marks(diagnosis), QString(11, u'…'));
    ASSERT_TRUE(waitForEnd(diagnosis));
    EXPECT_EQ(marks(diagnosis), u"✓✓✓✓✗✗––––✓"_s);
    EXPECT_EQ(diagnosis.faults(), 2);
    EXPECT_TRUE(
        diagnosis.grants().startsWith(u"USE [ANA];\nGRANT SELECT ON KDVKISIM TO [tezgah];\n\n"
                                      "USE [SIRKET];\nCREATE USER [tezgah]"_s));
    const QString text = diagnosis.text();
    for (const QString &word : {u"KASA1\\SQL2"_s, u"tezgah"_s, u"✗ Ana veritabanı"_s,
                                u"sürücü.so 1.2"_s, u"SQL Server 2019"_s, u"GRANT"_s})
        EXPECT_TRUE(text.contains(word)) << text.toStdString();
    EXPECT_FALSE(text.contains(u"Gizli4"_s)) << text.toStdString();
}

/// A driver that hangs keeps neither the window nor the next try from going on.
TEST(DiagnosisTest, AStepThatHangsIsGivenUpAndTheNextTryIsAlone)
{
    ThreadProbe probe;
    const auto hanging = std::make_shared<std::binary_semaphore>(0);
    probe.tools.hold = hanging;
    {
        Diagnosis diagnosis(probe, nullptr, std::chrono::milliseconds(50));
        diagnosis.start(kTarget);
        ASSERT_TRUE(waitForEnd(diagnosis));
        EXPECT_EQ(marks(diagnosis), u"✓✓✓✗–––––––"_s);
        EXPECT_EQ(diagnosis.steps().at(3).found, u"1 saniyede yanıt gelmedi."_s);
        EXPECT_FALSE(diagnosis.steps().at(3).advice.isEmpty());

        probe.tools.hold.reset();
        diagnosis.restart();
        ASSERT_TRUE(waitForEnd(diagnosis));
        EXPECT_TRUE(diagnosis.passed());
        diagnosis.restart();
        diagnosis.stop();
        EXPECT_FALSE(diagnosis.isRunning());
        diagnosis.restart(); // and it may go while it runs
    }
    hanging->release();
}

/// A list that is closed keeps the others not away; what a driver says of a password is not shown.
TEST(SetupLedgerTest, ReadsWhatMayBeReadAndTellsTheRest)
{
    ThreadProbe probe;
    probe.tools.answer(u"from DEPO"_s, rowsOf({u"DEPKOD"_s, u"DEPADI"_s}, {{u"01 "_s, u"İÇ"_s}}));
    probe.tools.fail(u"from CARKART"_s, refused(Cause::right, u"229"_s));
    const std::vector<RecordSet::Row> piece(5000, {u"A'"_s, u"İLK"_s});
    probe.tools.answer(u"from STKFISTIP order"_s, rowsOf({u"STKFTNO"_s, u"STKFTKOD"_s}, piece));
    probe.tools.answer(u"STKFTNO>'A''' order"_s,
                       rowsOf({u"STKFTNO"_s, u"STKFTKOD"_s}, {{u"B"_s, u"SON"_s}}));
    SetupLedger ledger(probe);
    const auto read = [&](void (SetupLedger::*what)(const DiagnosisTarget &)) {
        (ledger.*what)(kTarget);
        QEventLoop loop;
        QObject::connect(&ledger, &SetupLedger::changed, &loop, &QEventLoop::quit);
        loop.exec();
        EXPECT_FALSE(ledger.isReading());
    };
    read(&SetupLedger::readDatabases);
    EXPECT_EQ(ledger.databases().names, (QStringList{u"ANA"_s, u"SIRKET26"_s}));
    read(&SetupLedger::readCodes);
    EXPECT_EQ(ledger.lists().codes.value(u"DEPO"_s), (std::vector<HostCode>{{u"01"_s, u"İÇ"_s}}));
    EXPECT_EQ(ledger.lists().codes.value(u"STKFISTIP"_s).size(), 5001U) << "read in pieces";
    EXPECT_EQ(ledger.lists().closed, QStringList(u"CARKART"_s));
    EXPECT_EQ(ledger.fault(), QString());

    probe.tools.closed.emplace_back(u"SIRKET"_s, refused(Cause::login, u"Gizli4 18456"_s));
    read(&SetupLedger::readCodes);
    EXPECT_TRUE(ledger.lists().codes.isEmpty());
    EXPECT_TRUE(ledger.fault().contains(u"••• 18456"_s)) << ledger.fault().toStdString();
}
