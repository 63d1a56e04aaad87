#include "shell/settings_session.h"

#include "common/host_queries.h"
#include "common/resume_next.h"
#include "common/settings_database.h"
#include "common/turkish.h"

#include <QDir>
#include <QHash>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace {

/// A settings file needs far less; a disk that cannot take this much is as good as full.
constexpr qsizetype kLeastRoom = qsizetype{512} * 1024;

constexpr int kLastStyle = 3; ///< bold italic

/// How the dialog calls what it saves as text.
QString captionOf(const QString &setting)
{
    static const QHash<QString, QString> captions = {{u"kdv.kdv"_s, u"KDV oranı"_s},
                                                     {u"yazici.yazici1"_s, u"Fiş yazıcısı"_s},
                                                     {u"login.sifre"_s, u"Giriş parolası"_s},
                                                     {u"server.server"_s, u"Sunucu"_s},
                                                     {u"server.kuladi"_s, u"Kullanıcı"_s},
                                                     {u"server.sifre"_s, u"Parola"_s},
                                                     {u"server.sql"_s, u"Şirket veritabanı"_s},
                                                     {u"server.msql"_s, u"Ana veritabanı"_s},
                                                     {u"instan.insname"_s, u"Örnek adı"_s},
                                                     {u"stok.br1fytadi"_s, u"1. birim fiyatı"_s},
                                                     {u"stok.br2fytadi"_s, u"2. birim fiyatı"_s},
                                                     {u"liste.title"_s, u"Başlık"_s},
                                                     {u"liste.font"_s, u"Yazı tipi"_s},
                                                     {u"liste.size"_s, u"Boyut"_s}};
    return captions.value(setting, setting);
}

bool hasLowerCase(const QString &password)
{
    return turkish::upper(password) != password;
}

} // namespace

SettingsSession::SettingsSession(Program &program, QObject *parent)
    : QObject(parent), m_program(program)
{}

void SettingsSession::load()
{
    oku();
    sqloku();
}

/// By trying: on Windows neither rights nor a guarded folder can be told from a file's marks.
QString SettingsSession::obstacle() const
{
    const QString folder = QDir::toNativeSeparators(m_program.directory());
    const QString refused = u"Ayarlar kaydedilemez: %1"_s;
    QTemporaryFile probe(m_program.path(u"deneme.XXXXXX.yeni"));
    QFile file(m_program.path(settings::kFile));
    if (!probe.open() || (file.exists() && !file.open(QIODevice::ReadWrite)))
        return refused.arg(u"%1 klasörüne yazma izni yok."_s.arg(folder));
    file.close();
    if (probe.write(QByteArray(kLeastRoom, '\0')) != kLeastRoom || !probe.flush())
        return refused.arg(u"%1 klasörünün diski dolu."_s.arg(folder));
    try {
        OpenDatabase db(m_program.db, file.fileName());
        db.execute(u"begin immediate"_s);
        db.execute(u"rollback"_s);
    } catch (const HostError &error) {
        return refused.arg(error.text());
    }
    return {};
}

QStringList SettingsSession::warnings(const Settings &v)
{
    QStringList warnings;
    Settings values = v;
    for (const SettingRow &row : settingRows())
        if (row.place && row.writer == SettingWriter::dialog &&
            storedText(row.place(values)).contains(u'\''))
            warnings += u"%1: tek tırnak (') içeren bölüm kaydedilemez."_s.arg(
                captionOf(settings::nameOf(row)));
    const Settings::Server &server = v.server;
    for (const QString &part :
         {server.server, server.kuladi, server.sifre, server.sql, server.msql})
        if (part.contains(u';')) {
            warnings += u"Sunucu bilgilerinde noktalı virgül bağlantıyı bozar."_s;
            break;
        }
    if (hasLowerCase(v.login.sifre))
        warnings += u"Giriş parolasında küçük harf var: girişte bu parola kabul edilmez."_s;
    return warnings;
}

bool SettingsSession::settlePassword(Settings &values)
{
    QString &password = values.login.sifre;
    if (!hasLowerCase(password))
        return true;
    if (!m_program.ask(
            u"Giriş parolasında küçük harf var. Girişte yazılan harfler büyütülür; parola "
            "bu haliyle bir daha kabul edilmez.\n\nBüyük harflerle kaydedilsin mi?"_s))
        return false;
    password = turkish::upper(password);
    return true;
}

bool SettingsSession::mayDrop(const Settings &entered)
{
    const auto texts = [](const Settings &values) {
        return settings::updates(values, SettingWriter::dialog);
    };
    return texts(entered) == texts(m_values) ||
           m_program.ask(u"Değişiklikler kaydedilmedi. Kaydetmeden sürdürülsün mü?"_s);
}

void SettingsSession::oku()
{
    settings::read(m_program.files(),
                   {u"login", u"instan", u"ses", u"yazici", u"per", u"server", u"liste", u"kasa"},
                   m_values);
    if (m_values.liste.bold < 0 || m_values.liste.bold > kLastStyle)
        m_values.liste.bold = 0;
}

void SettingsSession::sqloku()
{
    const struct
    {
        CodeList &list;
        QStringView table;
        QStringView display;
        QStringView key;
    } queries[] = {
        {m_lists.depots, u"DEPO", u"DEPADI", u"DEPKOD"},
        {m_lists.priceTypes, u"STKFIYTIP", u"STKFTFIYADI", u"STKFTFIYNO"},
        {m_lists.stockSlips, u"STKFISTIP", u"STKFTKOD", u"STKFTNO"},
        {m_lists.customers, u"CARKART", u"CARUNVAN", u"CARKOD"},
        {m_lists.accountSlips, u"CARFISTIP", u"CARFTKOD", u"CARFTNO"},
        {m_lists.invoiceTypes, u"FATFISTIP", u"FATFTKOD", u"FATFTNO"},
    };
    for (const auto &query : queries)
        resumeNext([&] {
            query.list =
                CodeList::read(m_program.company().execute(host_queries::allOf(query.table)),
                               query.display, query.key);
        });
    oku1();
}

void SettingsSession::oku1()
{
    settings::read(m_program.files(), {u"stok"}, m_values);
}

void SettingsSession::serverkaydet(const Settings &values)
{
    resumeNext([&] {
        OpenDatabase db(m_program.files(), settings::kFile);
        for (const QString &statement : settings::updates(values, SettingWriter::dialog))
            resumeNext([&] { db.execute(statement); });
    });
    m_values = values;
    Q_EMIT saved();
}
