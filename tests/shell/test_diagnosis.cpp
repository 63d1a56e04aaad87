#include "common/host_probe.h"
#include "shell/diagnosis.h"
#include "shell/diagnosis_steps.h"
#include "shell/setup_ledger.h"
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

/// The steps by their places.
enum : int
{
    kName,
    kPort,
    kEncryption,
    kLogin,
    kMaster,
    kCompany,
    kTables,
    kRights,
    kDates,
    kLetters,
    kVersions
};

struct Fault
{
    std::string name;
    std::function<void(ScriptedTools &, DiagnosisTarget &)> make;
    int step;        ///< where it is told
    QString found;   ///< words of it
    QString advice;  ///< words of what to do next
    int last;        ///< the last step that could be looked at
    QString grant{}; ///< a line that mends it
};

class DiagnosisFaults : public testing::TestWithParam<Fault>
{};

std::vector<Fault> faults()
{
    using Kind = PortGreeting::Kind;
    const auto closed = [](const QString &database, const HostError &error) {
        return [=](ScriptedTools &tools, DiagnosisTarget &) {
            tools.closed.emplace_back(database, error);
        };
    };
    const auto greeting = [](Kind kind) {
        return [=](ScriptedTools &tools, DiagnosisTarget &) { tools.greeting.kind = kind; };
    };
    const auto answer = [](const QString &words, const RecordSet &rows) {
        return [=](ScriptedTools &tools, DiagnosisTarget &) { tools.answer(words, rows); };
    };
    const auto fails = [](const QString &words, const HostError &error) {
        return [=](ScriptedTools &tools, DiagnosisTarget &) { tools.fail(words, error); };
    };
    const int lost = HostError::kConnectionLost;
    return {
        {"EmptyName", [](auto &, auto &target) { target.server = u" "_s; }, kName, u"adı boş"_s,
         u"KASA1\\SQLEXPRESS"_s, kName},
        {"UnknownName", [](auto &tools, auto &) { tools.places.clear(); }, kName,
         u"KASA1 adında bir bilgisayar bulunamadı"_s, u"192.168.1.10"_s, kName},
        {"BrowserSilent", [](auto &tools, auto &) { tools.browser.reset(); }, kPort,
         u"SQL2 örneğinin"_s, u"UDP 1434"_s, kPort},
        {"PortRefused", [](auto &tools, auto &) { tools.state = PortState::refused; }, kPort,
         u"TCP 49170 kapalı"_s, u"TCP/IP açık"_s, kPort},
        {"PortSilent", [](auto &tools, auto &) { tools.state = PortState::silent; }, kPort,
         u"TCP 49170 yanıt vermiyor"_s, u"güvenlik duvarı"_s, kPort},
        {"OtherProtocol", greeting(Kind::foreign), kEncryption, u"SQL Server değil"_s,
         u"başka bir programın"_s, kEncryption},
        {"HalfAnswer", greeting(Kind::half), kEncryption, u"bitirmedi"_s, u"yeniden başlatın"_s,
         kEncryption},
        {"HangsUp", greeting(Kind::closed), kEncryption, u"hemen kapattı"_s,
         u"başka bir programın"_s, kEncryption},
        {"SilentServer", greeting(Kind::silent), kEncryption, u"yanıt gelmedi"_s,
         u"yeniden başlatın"_s, kEncryption},
        {"NoDriver", closed(u"master"_s, refused(Cause::noDriver, u"yok"_s, lost)), kLogin,
         u"ODBC sürücüsü yok"_s, u"tdsodbc"_s, kLogin},
        {"NoEncryption",
         closed(u"master"_s, refused(Cause::encryption, u"SSL Güvenlik hatası"_s, lost)),
         kEncryption, u"SSL Güvenlik hatası"_s, u"ODBC Driver 18"_s, kEncryption},
        {"WrongPassword", closed(u"master"_s, refused(Cause::login, u"18456"_s, lost)), kLogin,
         u"kabul etmedi"_s, u"büyük ve küçük harf"_s, kLogin},
        {"SilentLogin", closed(u"master"_s, refused(Cause::silent, u"HYT00"_s, lost)), kLogin,
         u"girişe yanıt vermedi"_s, u"yeniden başlatın"_s, kLogin},
        {"DriverRepeatsThePassword",
         closed(u"master"_s, refused(Cause::unknown, u"PWD=Gizli4 reddedildi"_s, lost)), kLogin,
         u"PWD=••• reddedildi"_s, u"sunucuya bakan"_s, kLogin},
        {"Semicolon", [](auto &, auto &target) { target.password = u"a;b"_s; }, kLogin,
         u"noktalı virgül"_s, u"kullanmayın"_s, kLogin},
        {"NoMaster",
         [=](auto &tools, auto &target) {
             closed(u"ANA"_s, refused(Cause::database, u"4060"_s, lost))(tools, target);
             tools.answer(u"HAS_DBACCESS(N'ANA')"_s, one(u"ERISIM"_s, {}));
         },
         kMaster, u"ANA adında bir veritabanı yok"_s, u"veritabanları: ANA, SIRKET26."_s,
         kVersions},
        {"ClosedMaster", closed(u"ANA"_s, refused(Cause::database, u"4060"_s, lost)), kMaster,
         u"tezgah kullanıcısı ANA veritabanını açamıyor"_s, u"Aşağıdaki satırları"_s, kVersions,
         u"CREATE USER [tezgah] FOR LOGIN [tezgah];"_s},
        {"OtherMaster", fails(u"KDVKISIM"_s, refused(Cause::noTable, u"208"_s)), kMaster,
         u"ANA içinde KDV tablosu (KDVKISIM) yok"_s, u"ortak veritabanı"_s, kVersions},
        {"VatTableClosed", fails(u"KDVKISIM"_s, refused(Cause::right, u"229"_s)), kMaster,
         u"okuma hakkı yok"_s, u"Aşağıdaki"_s, kVersions,
         u"GRANT SELECT ON KDVKISIM TO [tezgah];"_s},
        {"VatTableEmpty", answer(u"KDVKISIM"_s, rowsOf({u"kdvkisno"_s, u"kdvkisoran"_s}, {})),
         kMaster, u"boş"_s, u"KDV oranı boş olur"_s, kVersions},
        {"VatTableOld", answer(u"KDVKISIM"_s, one(u"KDVKISNO"_s, 1)), kMaster,
         u"KDVKISIM.KDVKISORAN"_s, u"denetleyin"_s, kVersions},
        {"ClosedCompany", closed(u"SIRKET"_s, refused(Cause::database, u"4060"_s, lost)), kCompany,
         u"SIRKET veritabanını açamıyor"_s, u"Aşağıdaki"_s, kVersions,
         u"GRANT INSERT ON STKHAR TO [tezgah];"_s},
        {"NoCompanyName", [](auto &, auto &target) { target.company.clear(); }, kCompany,
         u"adı boş"_s, u"SIRKET26"_s, kVersions},
        {"ServerGone", fails(u"W.TABLO"_s, refused(Cause::unknown, u"20017"_s, lost)), kTables,
         u"20017"_s, u"meşgul"_s, kVersions},
        {"ColumnGone",
         answer(u"W.TABLO"_s, rowsOf({u"TABLO"_s, u"SUTUN"_s}, {{u"STKKART"_s, u"STKBIRIM2"_s}})),
         kTables, u"Eksik sütunlar: STKKART.STKBIRIM2."_s, u"adına bakın"_s, kVersions},
        {"TableGone",
         [](auto &tools, auto &) {
             tools.answer(u"W.TABLO"_s,
                          rowsOf({u"TABLO"_s, u"SUTUN"_s},
                                 {{u"DEPO"_s, u"DEPKOD"_s}, {u"DEPO"_s, u"DEPADI"_s}}));
             tools.fail(u"from DEPO"_s, refused(Cause::noTable, u"208"_s));
             tools.answer(u"INFORMATION_SCHEMA.TABLES"_s, one(u"AD"_s, u"depo"_s));
         },
         kTables, u"Eksik tablolar: DEPO.\nBu veritabanı büyük ve küçük harfi ayırıyor"_s,
         u"SIRKET26"_s, kVersions},
        {"Views", answer(u".VIEWS"_s, rowsOf({u"AD"_s}, {{u"stkhar"_s}, {u"DEPO"_s}})), kTables,
         u"görünüm (view): STKHAR."_s, u"yazılamaz"_s, kVersions},
        {"SalesClosed",
         answer(u"HAS_PERMS"_s,
                rowsOf({u"TABLO"_s, u"KULLANICI"_s, u"R_SELECT"_s, u"R_INSERT"_s, u"R_UPDATE"_s},
                       {{u"STKKART"_s, u"kasa"_s, 1, 0, 0},
                        {u"STKFIS"_s, u"kasa"_s, 1, 0, 1},
                        {u"CARHAR"_s, u"kasa"_s, {}, {}, {}}})),
         kRights, u"Ekleme hakkı yok: STKFIS, CARHAR.\nDeğiştirme hakkı yok: STKKART."_s,
         u"yalnız etiket basılacaksa gerekmez"_s, kVersions,
         u"GRANT UPDATE ON STKKART TO [kasa];"_s},
        {"MonthFirst", answer(u"DATEPART"_s, one(u"AY"_s, 2)), kDates, u"1 Şubat"_s,
         u"yanlış güne yazılır"_s, kVersions,
         u"ALTER LOGIN [tezgah] WITH DEFAULT_LANGUAGE = [Türkçe];"_s},
        {"CaseCounts", answer(u"COLLATION"_s, one(u"DUZEN"_s, u"Turkish_CS_AS"_s)), kLetters,
         u"\"SÜT\"ü bulmaz"_s, u"Turkish_CI_AS"_s, kVersions},
        {"NotTurkish", answer(u"COLLATION"_s, one(u"DUZEN"_s, u"SQL_Latin1_General_CP1_CI_AS"_s)),
         kLetters, u"i ile İ"_s, u"danışın"_s, kVersions},
    };
}

} // namespace

TEST_P(DiagnosisFaults, IsToldAtItsStepWithWhatToDoNext)
{
    const Fault &fault = GetParam();
    ScriptedTools tools;
    DiagnosisTarget target = kTarget;
    fault.make(tools, target);
    const auto findings = lookAt(tools, target);
    for (int step = 0; step <= kVersions; ++step) {
        const auto &finding = findings.at(static_cast<std::size_t>(step));
        const std::string name = DiagnosisSteps::of(target)[static_cast<std::size_t>(step)]
                                     .name.toString()
                                     .toStdString();
        if (step == fault.step) {
            ASSERT_TRUE(finding && !finding->good) << name;
            EXPECT_TRUE(finding->found.contains(fault.found)) << finding->found.toStdString();
            EXPECT_TRUE(finding->advice.contains(fault.advice)) << finding->advice.toStdString();
            EXPECT_EQ(finding->grant.contains(fault.grant), !fault.grant.isEmpty())
                << finding->grant.join(u'\n').toStdString();
        } else if (step > fault.last) {
            EXPECT_FALSE(finding) << name;
        } else if (finding) {
            EXPECT_TRUE(finding->good) << name << ": " << finding->found.toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, DiagnosisFaults, testing::ValuesIn(faults()),
                         [](const auto &one) { return one.param.name; });

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
        EXPECT_EQ(diagnosis.steps().at(kLogin).found, u"1 saniyede yanıt gelmedi."_s);
        EXPECT_FALSE(diagnosis.steps().at(kLogin).advice.isEmpty());

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
    EXPECT_EQ(ledger.codes().value(u"DEPO"_s), (std::vector<HostCode>{{u"01"_s, u"İÇ"_s}}));
    EXPECT_EQ(ledger.fault(), u"Okunamayan listeler: CARKART."_s);

    probe.tools.closed.emplace_back(u"SIRKET"_s, refused(Cause::login, u"Gizli4 18456"_s));
    read(&SetupLedger::readCodes);
    EXPECT_TRUE(ledger.codes().isEmpty());
    EXPECT_TRUE(ledger.fault().contains(u"••• 18456"_s)) << ledger.fault().toStdString();
}
