#include "shell/diagnosis_finding.h"

#include "common/connection_string.h"
#include "common/host_connection.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using host_tables::Database;
using host_tables::Right;

namespace {

const QString kForAdministrator =
    QStringLiteral("Aşağıdaki satırları sunucuya bakan kişi çalıştırsın.");

QString joined(const QStringList &names)
{
    return names.join(u", "_s);
}

/// The statements, to be run in a database.
QStringList inDatabase(const QString &database, const QStringList &statements)
{
    return QStringList{u"USE %1;"_s.arg(host_tables::quotedName(database))} + statements;
}

} // namespace

bool DiagnosisTarget::isEmbedded() const
{
    return server.trimmed().compare(kEmbeddedServer, Qt::CaseInsensitive) == 0;
}

QString DiagnosisTarget::connectionTo(const QString &database) const
{
    return connectionString({server, user, password, database});
}

QString DiagnosisTarget::withoutPassword(QString text) const
{
    return password.isEmpty() ? text : text.replace(password, u"•••"_s);
}

namespace diagnosis_finding {

DiagnosisFinding good(const QString &found)
{
    return {true, found, {}, {}};
}

DiagnosisFinding bad(const QString &found, const QString &advice, const QStringList &grant)
{
    return {false, found, advice, grant};
}

DiagnosisFinding ofPort(PortState state, int port)
{
    switch (state) {
    case PortState::open:
        return good(u"TCP %1 açık."_s.arg(port));
    case PortState::refused:
        return bad(
            u"Bilgisayar açık ama TCP %1 kapalı."_s.arg(port),
            u"Sunucuda SQL Server hizmeti çalışıyor mu, Configuration Manager'da TCP/IP açık "
            "mı bakın. Sunucu bir örnekse (instance) KASA1\\SQLEXPRESS, numarası başkaysa "
            "KASA1,14330 diye yazın."_s);
    default:
        return bad(u"TCP %1 yanıt vermiyor."_s.arg(port),
                   u"Sunucu bilgisayarı kapalı ya da güvenlik duvarı engelliyor: sunucuda TCP %1 "
                   "için izin verin."_s.arg(port));
    }
}

DiagnosisFinding ofUnknownInstance(const QString &host, const QString &instance)
{
    return bad(
        u"%1 örneğinin bağlantı noktası öğrenilemedi: SQL Server Browser yanıt vermiyor."_s.arg(
            instance),
        u"Örneğin adına bakın. Sunucuda SQL Server Browser hizmetini başlatın, güvenlik "
        "duvarında UDP 1434 için izin verin. Ya da örneğin adı yerine numarasını yazın: "
        "%1,14330."_s.arg(host));
}

DiagnosisFinding ofGreeting(const PortGreeting &greeting, int port)
{
    const QString other = u"Numarayı denetleyin: TCP %1 başka bir programın olabilir."_s.arg(port);
    const QString restart = u"Sunucuda SQL Server hizmetini yeniden başlatın."_s;
    switch (greeting.kind) {
    case PortGreeting::Kind::foreign:
        return bad(u"Yanıt veren bir SQL Server değil."_s, other);
    case PortGreeting::Kind::closed:
        return bad(u"Sunucu bağlantıyı hemen kapattı."_s, other);
    case PortGreeting::Kind::half:
        return bad(u"Sunucu yanıta başladı ama bitirmedi."_s, restart);
    case PortGreeting::Kind::silent:
        return bad(u"Bağlantı noktası açık ama yanıt gelmedi."_s, restart + u' ' + other);
    default:
        break;
    }
    switch (greeting.encryption) {
    case PortGreeting::Encryption::required:
        return good(u"Sunucu şifreleme istiyor."_s);
    case PortGreeting::Encryption::possible:
        return good(u"Sunucu şifreli de şifresiz de bağlanır."_s);
    default:
        return good(u"Sunucu şifrelemiyor; program da istemiyor."_s);
    }
}

DiagnosisFinding ofEncryption(const QString &words)
{
    return bad(u"Sürücü ile sunucu şifrelemede anlaşamadı.\n"_s + words,
               u"Microsoft'un \"ODBC Driver 18 for SQL Server\" sürücüsünü kurun. Kuruluysa "
               "baglanti.zev dosyasının ek satırına Encrypt=yes; ya da Encrypt=no; yazıp "
               "deneyin."_s);
}

DiagnosisFinding ofLogin(HostError::Cause cause, const QString &words)
{
    switch (cause) {
    case HostError::Cause::noDriver:
        return bad(u"Bu bilgisayarda SQL Server için ODBC sürücüsü yok."_s,
                   u"Windows'ta Microsoft'un \"ODBC Driver 18 for SQL Server\" sürücüsünü, "
                   "Debian'da tdsodbc paketini kurun."_s);
    case HostError::Cause::login:
        return bad(u"Sunucu kullanıcıyı ya da parolayı kabul etmedi.\n"_s + words,
                   u"Kullanıcı adını ve parolayı yeniden yazın; parolada büyük ve küçük harf "
                   "ayrıdır. Sunucuda parolalı giriş (SQL Server and Windows Authentication mode) "
                   "açık, kullanıcı kilitsiz olmalıdır."_s);
    case HostError::Cause::silent:
        return bad(u"Sunucu girişe yanıt vermedi."_s,
                   u"Sunucuda SQL Server hizmetini yeniden başlatın."_s);
    default:
        return ofWords(u"Giriş yapılamadı."_s, words);
    }
}

DiagnosisFinding ofWords(const QString &what, const QString &words)
{
    return bad(what + u'\n' + words,
               u"Sürücünün yukarıdaki sözlerini sunucuya bakan kişiye gösterin."_s);
}

DiagnosisFinding ofNoDatabase(const QString &database, const QString &openable)
{
    return bad(u"Sunucuda %1 adında bir veritabanı yok."_s.arg(database),
               u"Veritabanının adını düzeltin."_s + openable);
}

DiagnosisFinding ofClosedDatabase(Database kind, const QString &database,
                                  const DiagnosisTarget &target, const QString &words,
                                  const QString &openable)
{
    return bad(u"%1 kullanıcısı %2 veritabanını açamıyor.\n%3"_s.arg(target.user, database, words),
               kForAdministrator + openable,
               host_tables::databaseScript(kind, database, target.user));
}

DiagnosisFinding ofVatRight(const DiagnosisTarget &target)
{
    return bad(u"%1 kullanıcısının KDV tablosunu (KDVKISIM) okuma hakkı yok."_s.arg(target.user),
               kForAdministrator,
               inDatabase(target.master,
                          host_tables::grantStatements(host_tables::rightsOn(Database::master),
                                                       target.user)));
}

DiagnosisFinding ofTables(const host_check::Missing &missing, const QString &company,
                          const QString &openable)
{
    const auto tables = static_cast<qsizetype>(host_tables::tablesOf(Database::company).size());
    QStringList found;
    if (missing.tables.size() == tables)
        found += u"%1 içinde muhasebe tablolarının hiçbiri yok."_s.arg(company);
    else if (!missing.tables.isEmpty())
        found += u"Eksik tablolar: %1."_s.arg(joined(missing.tables));
    if (!missing.columns.isEmpty())
        found += u"Eksik sütunlar: %1."_s.arg(joined(missing.columns));
    if (!missing.otherCase.isEmpty())
        found += u"Bu veritabanı büyük ve küçük harfi ayırıyor; başka harflerle yazılı tablolar: "
                 "%1."_s.arg(joined(missing.otherCase));
    if (!missing.views.isEmpty())
        found += u"Tablo değil, görünüm (view): %1."_s.arg(joined(missing.views));
    if (found.isEmpty())
        return good(u"%1 tablo, sütunlarıyla yerinde."_s.arg(tables - missing.hidden.size()));
    return bad(found.join(u'\n'),
               u"Şirket veritabanının adına bakın: satışlar buraya yazılamaz. Ad "
               "doğruysa muhasebe programını kuran kişiye gösterin."_s +
                   openable);
}

DiagnosisFinding ofRights(const host_check::Rights &rights, const DiagnosisTarget &target)
{
    if (rights.missing.empty())
        return good(u"%1 kullanıcısının bütün hakları var."_s.arg(target.user));
    const std::pair<Right, QString> kinds[] = {{Right::select, u"Okuma hakkı yok: %1."_s},
                                               {Right::insert, u"Ekleme hakkı yok: %1."_s},
                                               {Right::update, u"Değiştirme hakkı yok: %1."_s}};
    QStringList found;
    for (const auto &[right, text] : kinds) {
        QStringList tables;
        for (const host_tables::TableRight &missing : rights.missing)
            if (missing.right == right)
                tables += missing.table->name;
        if (!tables.isEmpty())
            found += text.arg(joined(tables));
    }
    const bool salesOnly = std::all_of(
        rights.missing.begin(), rights.missing.end(),
        [](const host_tables::TableRight &one) { return one.use == host_tables::Use::sales; });
    const QString advice =
        salesOnly ? kForAdministrator + u" Bu bilgisayarda yalnız etiket basılacaksa gerekmez."_s
                  : kForAdministrator;
    return bad(
        found.join(u'\n'), advice,
        inDatabase(target.company, host_tables::grantStatements(rights.missing, rights.user)));
}

DiagnosisFinding ofDateOrder(bool dayFirst, const DiagnosisTarget &target)
{
    if (dayFirst)
        return good(u"Gün, ay, yıl."_s);
    return bad(
        u"Sunucu 02.01.2026 tarihini 1 Şubat diye okuyor."_s,
        u"Böyle kalırsa satışlar yanlış güne yazılır, ayın 12'sinden sonra hiç yazılamaz. "_s +
            kForAdministrator,
        {u"ALTER LOGIN %1 WITH DEFAULT_LANGUAGE = [Türkçe];"_s.arg(
            host_tables::quotedName(target.user))});
}

DiagnosisFinding ofCollation(const QString &collation)
{
    const QString fault = host_check::collationFault(collation);
    if (fault.isEmpty())
        return good(collation);
    return bad(collation + u'\n' + fault,
               u"Program çalışır. Türkçe bir dükkânda düzen Turkish_CI_AS olmalıdır; değiştirmek "
               "muhasebe programını da etkiler, onu kuran kişiye danışın."_s);
}

} // namespace diagnosis_finding
