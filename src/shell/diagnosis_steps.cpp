#include "shell/diagnosis_steps.h"

#include "common/host_queries.h"
#include "common/resume_next.h"

#include <QSysInfo>

#include <array>

using namespace Qt::StringLiterals;
using host_tables::Database;

namespace {

constexpr int kDefaultPort = 1433;

QString literal(QString text)
{
    return u"N'"_s + text.replace(u'\'', u"''"_s) + u'\'';
}

bool isThisMachine(const QString &host)
{
    return host.compare(u"localhost"_s, Qt::CaseInsensitive) == 0 || host.startsWith(u"127."_s) ||
           host == u"::1"_s || host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
}

} // namespace

std::span<const DiagnosisSteps::Step> DiagnosisSteps::of(const DiagnosisTarget &target)
{
    using S = DiagnosisSteps;
    static constexpr QStringView again =
        u"Sunucu çok yavaş ya da meşgul: biraz sonra yeniden deneyin.";
    static constexpr QStringView restart = u"Sunucuda SQL Server hizmetini yeniden başlatın.";
    static constexpr std::array<Step, 11> server = {{
        {u"Sunucu adı",
         u"Ağ bağlantısını denetleyin ya da sunucunun adını değil adresini yazın (örneğin "
         u"192.168.1.10).",
         &S::findName},
        {u"Bağlantı noktası", u"Sunucu bilgisayarı açık mı, güvenlik duvarı izin veriyor mu bakın.",
         &S::reachPort},
        {u"Şifreleme", restart, &S::greet},
        {u"Kullanıcı ve parola", restart, &S::logIn},
        {u"Ana veritabanı", again, &S::readMaster},
        {u"Şirket veritabanı", again, &S::openCompany},
        {u"Tablolar ve sütunlar", again, &S::findTables},
        {u"Haklar", again, &S::findRights},
        {u"Tarih sırası", again, &S::readDateOrder},
        {u"Harf düzeni", again, &S::readCollation},
        {u"Sürümler", again, &S::readVersions},
    }};
    static constexpr std::array<Step, 5> embedded = {{
        {u"Sunucu adı", again, &S::findName},
        {u"Ana veritabanı", again, &S::readMaster},
        {u"Şirket veritabanı", again, &S::openCompany},
        {u"Tablolar ve sütunlar", again, &S::findTables},
        {u"Sürümler", again, &S::readVersions},
    }};
    return target.isEmbedded() ? std::span<const Step>(embedded) : std::span<const Step>(server);
}

DiagnosisSteps::DiagnosisSteps(HostTools &tools, DiagnosisTarget target, Report report)
    : m_tools(tools), m_target(std::move(target)), m_report(std::move(report))
{}

void DiagnosisSteps::run(int step)
{
    m_step = step;
    const Step &current = of(m_target)[static_cast<std::size_t>(step)];
    try {
        (this->*current.look)();
    } catch (const HostError &error) {
        tell(words(error), current.silence.toString());
    }
}

void DiagnosisSteps::tell(const DiagnosisFinding &finding)
{
    m_report(m_step, finding);
}

void DiagnosisSteps::tell(const QString &fault, const QString &advice)
{
    tell(diagnosis_finding::bad(fault, advice));
}

/// What the engine said, without the sentence before it.
QString DiagnosisSteps::words(const HostError &error) const
{
    QString text = error.text();
    if (const qsizetype end = text.indexOf(u'\n'); end >= 0)
        text = text.sliced(end + 1);
    return m_target.withoutPassword(text);
}

std::unique_ptr<HostConnection> DiagnosisSteps::open(const QString &database)
{
    return m_tools.open(m_target.connectionTo(database));
}

// ---- the way to the server

void DiagnosisSteps::findName()
{
    if (m_target.isEmbedded()) {
        m_loggedIn = true;
        tell(diagnosis_finding::good(
            u"Örnek dükkân: bu bilgisayardaki dosyalar; ağ ve parola gerekmez."_s));
        return;
    }
    try {
        m_address = parseServerName(m_target.server);
    } catch (const HostError &error) {
        tell(error.text(), u"Sunucu bilgisayarının adını yazın: KASA1, KASA1\\SQLEXPRESS ya da "
                           "KASA1,1433."_s);
        return;
    }
    m_near = isThisMachine(m_address.host);
    m_places = m_tools.addresses(m_address.host);
    if (m_places.isEmpty())
        tell(u"Ağda %1 adında bir bilgisayar bulunamadı."_s.arg(m_address.host),
             u"Adın yazılışına ve iki bilgisayarın aynı ağda olduğuna bakın. Yine bulunmazsa "
             "sunucunun adı yerine adresini yazın (örneğin 192.168.1.10)."_s);
    else
        tell(diagnosis_finding::good(
            u"%1, adresi %2"_s.arg(m_address.host, m_places.join(u", "_s))));
}

void DiagnosisSteps::reachPort()
{
    if (m_places.isEmpty())
        return;
    m_port = m_address.port != 0 ? m_address.port : kDefaultPort;
    if (m_address.port == 0 && !m_address.instance.isEmpty()) {
        const auto told = m_tools.instancePort(m_address.host, m_address.instance);
        if (!told) {
            tell(diagnosis_finding::ofUnknownInstance(m_address.host, m_address.instance));
            return;
        }
        m_port = *told;
    }
    PortState state = PortState::silent;
    for (const QString &place : m_places) {
        m_place = place;
        state = m_tools.port(place, m_port);
        if (state == PortState::open)
            break;
    }
    m_reached = state == PortState::open;
    tell(diagnosis_finding::ofPort(state, m_port));
}

void DiagnosisSteps::greet()
{
    if (!m_reached)
        return;
    const PortGreeting greeting = m_tools.greet(m_place, m_port);
    m_greeted = greeting.kind == PortGreeting::Kind::server;
    tell(diagnosis_finding::ofGreeting(greeting, m_port));
}

void DiagnosisSteps::logIn()
{
    // On the server's own machine the driver has ways beside the network.
    if (!m_greeted && (m_reached || !m_near || m_address.port != 0))
        return;
    for (const QString &part :
         {m_target.user, m_target.password, m_target.master, m_target.company})
        if (part.contains(u';')) {
            tell(u"Sunucu bilgilerinden birinde noktalı virgül (;) var."_s,
                 u"Noktalı virgül bağlantıyı bozar: kullanıcı, parola ve veritabanı adlarında "
                 "kullanmayın."_s);
            return;
        }
    try {
        m_server = open(kServerDatabase.toString());
    } catch (const HostError &error) {
        if (error.cause() == HostError::Cause::encryption) {
            m_report(Number::encryption, diagnosis_finding::ofEncryption(words(error)));
            return;
        }
        // A login that may not open the server's own database was let in all the same.
        if (error.cause() != HostError::Cause::database) {
            tell(diagnosis_finding::ofLogin(error.cause(), words(error)));
            return;
        }
    }
    m_loggedIn = true;
    tell(diagnosis_finding::good(u"Sunucu %1 kullanıcısını kabul etti."_s.arg(m_target.user)));
    if (m_greeted)
        return;
    const DiagnosisFinding notNeeded =
        diagnosis_finding::good(u"Sunucu bu bilgisayarda: ağ yolu kapalı, gerekmiyor."_s);
    m_report(Number::port, notNeeded);
    m_report(Number::encryption, notNeeded);
}

// ---- the databases

/// A sentence with the databases that the user may choose from; "" when the server does not say.
QString DiagnosisSteps::openable()
{
    QStringList names;
    if (m_server)
        resumeNext([&] { names = host_check::openableDatabases(*m_server); });
    return names.isEmpty()
               ? QString()
               : u" Bu kullanıcının açabildiği veritabanları: %1."_s.arg(names.join(u", "_s));
}

/// Null when the server knows no such database, 0 when it is closed to the user, 1 when it is open;
/// −1: the server does not say.
QVariant DiagnosisSteps::accessTo(const QString &database)
{
    QVariant access = -1;
    if (m_server)
        resumeNext([&] {
            access =
                m_server->execute(u"select HAS_DBACCESS(%1) as ERISIM"_s.arg(literal(database)))
                    .value(u"ERISIM");
        });
    return access;
}

/// Opens a database, or tells why not.
std::unique_ptr<HostConnection> DiagnosisSteps::openDatabase(const QString &database, Database kind)
{
    if (database.trimmed().isEmpty()) {
        tell(u"Veritabanının adı boş."_s, u"Veritabanının adını yazın."_s + openable());
        return nullptr;
    }
    try {
        return open(database);
    } catch (const HostError &error) {
        if (m_target.isEmbedded())
            tell(words(error), u"Örnek dükkânın veritabanları %1 ve %2 adlıdır."_s.arg(
                                   kDemoMaster, kDemoCompany));
        else
            tellClosed(database, kind, error);
        return nullptr;
    }
}

/// What the server says of a database counts before the number of the driver's error.
void DiagnosisSteps::tellClosed(const QString &database, Database kind, const HostError &error)
{
    const QVariant access = accessTo(database);
    if (access.isNull())
        tell(diagnosis_finding::ofNoDatabase(database, openable()));
    else if (access.toInt() == 0 || error.cause() == HostError::Cause::database)
        tell(diagnosis_finding::ofClosedDatabase(kind, database, m_target, words(error),
                                                 openable()));
    else
        tell(diagnosis_finding::ofWords(u"%1 veritabanı açılamadı."_s.arg(database), words(error)));
}

void DiagnosisSteps::readMaster()
{
    if (!m_loggedIn)
        return;
    m_master = openDatabase(m_target.master, Database::master);
    if (!m_master)
        return;
    try {
        readVatClasses();
    } catch (const HostError &error) {
        if (error.connectionLost())
            throw;
        if (error.cause() == HostError::Cause::right)
            tell(diagnosis_finding::ofVatRight(m_target));
        else
            tell(
                u"%1 içinde KDV tablosu (KDVKISIM) yok."_s.arg(m_target.master),
                u"Veritabanının adını düzeltin: muhasebe programının ortak veritabanı olmalıdır."_s +
                    openable());
    }
}

void DiagnosisSteps::readVatClasses()
{
    const RecordSet classes = m_master->execute(u"select * from KDVKISIM"_s);
    const QStringList missing = host_check::missingColumns(
        *host_tables::tablesOf(Database::master).front(), classes.columns());
    if (!missing.isEmpty())
        tell(u"%1 içinde eksik sütun: %2."_s.arg(m_target.master, missing.join(u", "_s)),
             u"Veritabanının adını denetleyin: muhasebe programının ortak veritabanı olmalıdır."_s);
    else if (classes.rowCount() == 0)
        tell(u"%1 içinde KDV tablosu (KDVKISIM) boş."_s.arg(m_target.master),
             u"Böyle kalırsa satılan malların KDV oranı boş olur: muhasebe programında KDV "
             "oranlarını tanımlayın."_s);
    else
        tell(diagnosis_finding::good(
            u"%1: %2 KDV oranı."_s.arg(m_target.master).arg(classes.rowCount())));
}

void DiagnosisSteps::openCompany()
{
    if (!m_loggedIn)
        return;
    m_company = openDatabase(m_target.company, Database::company);
    if (m_company)
        tell(diagnosis_finding::good(u"%1 açıldı."_s.arg(m_target.company)));
}

void DiagnosisSteps::findTables()
{
    if (!m_company)
        return;
    const host_check::Missing missing = m_target.isEmbedded()
                                            ? host_check::missingEmbedded(*m_company)
                                            : host_check::missing(*m_company);
    m_absent = missing.tables;
    tell(diagnosis_finding::ofTables(missing, m_target.company,
                                     missing.tables.isEmpty() ? QString() : openable()));
}

void DiagnosisSteps::findRights()
{
    if (m_company)
        tell(diagnosis_finding::ofRights(host_check::rights(*m_company, m_absent), m_target));
}

/// Every date of the program is written day-month-year, after it has asked for that order.
void DiagnosisSteps::readDateOrder()
{
    if (!m_company)
        return;
    resumeNext([this] { m_company->execute(host_queries::dayMonthYear()); });
    const RecordSet answer =
        m_company->execute(u"select DATEPART(month,CAST('02.01.2026' AS datetime)) as AY"_s);
    tell(diagnosis_finding::ofDateOrder(answer.number(u"AY") == 1.0, m_target));
}

/// The names of goods are compared in the order of their own column.
void DiagnosisSteps::readCollation()
{
    if (!m_company)
        return;
    const RecordSet rows =
        m_company->execute(u"select COLLATION_NAME as DUZEN from INFORMATION_SCHEMA.COLUMNS where "
                           "TABLE_NAME='STKKART' and COLUMN_NAME='STKCINSI'"_s);
    if (!rows.eof()) // else there is no such column: told where the columns are
        tell(diagnosis_finding::ofCollation(rows.text(u"DUZEN")));
}

void DiagnosisSteps::readVersions()
{
    HostConnection *connection = m_company  ? m_company.get()
                                 : m_master ? m_master.get()
                                            : m_server.get();
    if (!connection)
        return;
    QString found = u"Sürücü: %1"_s.arg(connection->driver());
    if (!m_target.isEmbedded())
        found += u"\nSunucu: "_s + connection->execute(u"select @@VERSION as SURUM"_s)
                                       .text(u"SURUM")
                                       .section(u'\n', 0, 0)
                                       .trimmed();
    tell(diagnosis_finding::good(found));
}
