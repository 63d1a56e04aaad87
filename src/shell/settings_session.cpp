#include "shell/settings_session.h"

#include "common/host_queries.h"
#include "common/resume_next.h"
#include "common/settings_database.h"
#include "common/turkish.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

using namespace Qt::StringLiterals;

namespace {

/// Copies the fields of one settings row into values; a missing field leaves its value alone.
class RowReader
{
public:
    RowReader(OpenDatabase &db, QStringView table)
    {
        resumeNext([&] { m_row = settings::row(db, table); });
    }

    void into(QString &target, QStringView column) const
    {
        resumeNext([&] { target = m_row.text(column); });
    }
    void into(bool &target, QStringView column) const
    {
        resumeNext([&] { target = m_row.text(column).toInt() != 0; });
    }
    void into(int &target, QStringView column) const
    {
        QString text;
        into(text, column);
        readNumber(target, text);
    }

    static void readNumber(int &target, const QString &text)
    {
        bool ok = false;
        const int number = text.toInt(&ok);
        if (ok)
            target = number;
    }

private:
    RecordSet m_row;
};

QString flag(bool on)
{
    return on ? u"1"_s : u"0"_s;
}

constexpr int kLastStyle = 3; ///< bold italic

/// A full disk shows up as a failed save long before the last byte; a settings file needs far less.
constexpr qint64 kLeastFreeBytes = qint64{512} * 1024;

} // namespace

SettingsSession::SettingsSession(Program &program, QObject *parent)
    : QObject(parent), m_program(program)
{}

void SettingsSession::load()
{
    oku();
    sqloku();
}

QString SettingsSession::obstacle() const
{
    const QFileInfo file(m_program.path(settings::kFile));
    const QString folder = QDir::toNativeSeparators(m_program.directory());
    if (!QFileInfo(m_program.directory()).isWritable() || (file.exists() && !file.isWritable()))
        return u"Ayarlar kaydedilemez: %1 klasörüne yazma izni yok."_s.arg(folder);
    const QStorageInfo disk(m_program.directory());
    if (disk.isValid() && disk.bytesAvailable() < kLeastFreeBytes)
        return u"Ayarlar kaydedilemez: %1 klasörünün diski dolu."_s.arg(folder);
    return {};
}

QStringList SettingsSession::warnings(const ParameterValues &v)
{
    const struct
    {
        QStringView name;
        const QString &value;
    } texts[] = {{u"KDV oranı", v.kdv},
                 {u"Fiş yazıcısı", v.yazici},
                 {u"Giriş parolası", v.lgpass},
                 {u"Sunucu", v.srvadi},
                 {u"Kullanıcı", v.kladi},
                 {u"Parola", v.pass},
                 {u"Şirket veritabanı", v.sqladi},
                 {u"Ana veritabanı", v.mastersql},
                 {u"Örnek adı", v.instance},
                 {u"1. birim fiyatı", v.br1fyt},
                 {u"2. birim fiyatı", v.br2fyt},
                 {u"Başlık", v.bsl},
                 {u"Yazı tipi", v.fnt},
                 {u"Boyut", v.sz}};
    QStringList warnings;
    for (const auto &text : texts)
        if (text.value.contains(u'\''))
            warnings += u"%1: tek tırnak (') içeren bölüm kaydedilemez."_s.arg(text.name);
    for (const QString &part : {v.srvadi, v.kladi, v.pass, v.sqladi, v.mastersql})
        if (part.contains(u';')) {
            warnings += u"Sunucu bilgilerinde noktalı virgül bağlantıyı bozar."_s;
            break;
        }
    if (turkish::upper(v.lgpass) != v.lgpass)
        warnings += u"Giriş parolasında küçük harf var: girişte bu parola kabul edilmez."_s;
    return warnings;
}

void SettingsSession::oku()
{
    resumeNext([this] {
        OpenDatabase db(m_program.db, m_program.path(settings::kFile));
        RowReader(db, u"login").into(m_values.lgpass, u"sifre");

        const RowReader instan(db, u"instan");
        instan.into(m_values.instance, u"insname");
        instan.into(m_values.Check1, u"inskullan");

        const RowReader ses(db, u"ses");
        ses.into(m_values.uses1, u"bulses");
        ses.into(m_values.uses2, u"bulmases");

        const RowReader yazici(db, u"yazici");
        yazici.into(m_values.yazici, u"yazici1");
        yazici.into(m_values.fisyazdir, u"yazdirma");

        RowReader(db, u"per").into(m_values.pers, u"per");

        const RowReader server(db, u"server");
        server.into(m_values.kladi, u"kuladi");
        server.into(m_values.pass, u"sifre");
        server.into(m_values.srvadi, u"server");
        server.into(m_values.sqladi, u"sql");
        server.into(m_values.mastersql, u"msql");

        const RowReader liste(db, u"liste");
        liste.into(m_values.c3, u"enust");
        liste.into(m_values.c2, u"tmekran");
        liste.into(m_values.c1, u"winac");
        liste.into(m_values.yzrnk, u"yzrenk");
        liste.into(m_values.bsl, u"title");
        liste.into(m_values.stl, u"bold");
        liste.into(m_values.fnt, u"font");
        liste.into(m_values.sz, u"size");
        if (m_values.stl < 0 || m_values.stl > kLastStyle)
            m_values.stl = 0;
        QString colours;
        liste.into(colours, u"listrenk");
        const QStringList both = colours.split(kCodeMark.toString());
        RowReader::readNumber(m_values.renkl, both.value(0));
        RowReader::readNumber(m_values.renkl1, both.value(1));
    });
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
    resumeNext([this] {
        OpenDatabase db(m_program.db, m_program.path(settings::kFile));
        const RowReader stok(db, u"stok");
        stok.into(m_values.dep, u"depoadi");
        stok.into(m_values.fytp, u"fytadi");
        stok.into(m_values.br1fyt, u"br1fytadi");
        stok.into(m_values.br2fyt, u"br2fytadi");
        stok.into(m_values.cr, u"cari");
        stok.into(m_values.stkfistip, u"stkfistipadi");
        stok.into(m_values.crfistip, u"crfistipadi");
        stok.into(m_values.ftfistip, u"ftfistipadi");
        stok.into(m_br1code, u"br1fyt");
        stok.into(m_br2code, u"br2fyt");
    });
    m_values.br1fytIndex = m_lists.priceTypes.find(m_values.br1fyt, m_br1code);
    m_values.br2fytIndex = m_lists.priceTypes.find(m_values.br2fyt, m_br2code);
}

void SettingsSession::serverkaydet(const ParameterValues &values)
{
    resumeNext([&] {
        OpenDatabase db(m_program.db, m_program.path(settings::kFile));
        for (const QString &statement : statements(values))
            resumeNext([&] { db.execute(statement); });
    });
    m_values = values;
    Q_EMIT saved();
}

/// The values go between single quotes as typed, nothing is escaped: the settings file is shared
/// with programs that read and write it the same way.
QStringList SettingsSession::statements(const ParameterValues &v) const
{
    // With no price type chosen there is no code to take; the stored one stays, so that saving a
    // corrected server name while the host is away does not lose the shop's prices.
    const QString br1 = v.br1fytIndex < 0 ? m_br1code : m_lists.priceTypes.code(v.br1fytIndex);
    const QString br2 = v.br2fytIndex < 0 ? m_br2code : m_lists.priceTypes.code(v.br2fytIndex);
    const QString colours =
        QString::number(v.renkl) + kCodeMark.toString() + QString::number(v.renkl1);
    return {
        u"Update kdv set kdv = '"_s + v.kdv + u"' Where id ='1'"_s,
        u"Update ses set bulses = '"_s + flag(v.uses1) + u"',bulmases = '"_s + flag(v.uses2) +
            u"' Where id ='1'"_s,
        u"Update yazici set yazici1 = '"_s + v.yazici + u"',yazici2 = '' ,yazdirma = '"_s +
            flag(v.fisyazdir) + u"' Where id ='1'"_s,
        u"Update login set sifre = '"_s + v.lgpass + u"' Where id ='1'"_s,
        u"Update server set kuladi = '"_s + v.kladi + u"',sifre = '"_s + v.pass +
            u"',server = '"_s + v.srvadi + u"',sql = '"_s + v.sqladi + u"',msql = '"_s +
            v.mastersql + u"' Where id ='1'"_s,
        u"Update instan set insname = '"_s + v.instance + u"',inskullan = '"_s + flag(v.Check1) +
            u"' Where id ='1'"_s,
        u"Update stok set br2fytadi = '"_s + v.br2fyt + u"',br1fytadi = '"_s + v.br1fyt +
            u"',br2fyt = '"_s + br2 + u"',br1fyt = '"_s + br1 + u"' Where id ='1'"_s,
        u"Update liste set enust = '"_s + flag(v.c3) + u"',tmekran = '"_s + flag(v.c2) +
            u"',winac = '"_s + flag(v.c1) + u"',yzrenk = '"_s + QString::number(v.yzrnk) +
            u"',listrenk = '"_s + colours + u"',title = '"_s + v.bsl + u"',bold = '"_s +
            QString::number(v.stl) + u"',font = '"_s + v.fnt + u"',size = '"_s + v.sz +
            u"' Where id ='1'"_s,
        u"Update per set per = '"_s + flag(v.pers) + u"' Where id ='1'"_s,
    };
}
