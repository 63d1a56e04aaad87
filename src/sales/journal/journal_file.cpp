#include "sales/journal/journal_file.h"

#include "common/amount.h"
#include "sales/journal/journal_words.h"

#include <QFile>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr int kVersion = 1;

/// Lines of a sale are kept while its receipt may be asked for again, the sale itself until its
/// month can be compared with that of the year before.
constexpr int kLineDays = 100;
constexpr int kSaleDays = 400;
/// Of one opening: a shop that opens every day never has more, and no opening is felt.
constexpr int kMostPruned = 5000;

/// Tables first, then what indexes them: a batch is read whole before its first statement runs.
const QStringList &tableStatements()
{
    static const QStringList statements = {
        u"CREATE TABLE IF NOT EXISTS olay (no INTEGER PRIMARY KEY AUTOINCREMENT, an TEXT, liste "
        "INTEGER, tur TEXT, satir INTEGER, icerik TEXT, kasiyer TEXT, tutar INTEGER)"_s,
        u"CREATE TABLE IF NOT EXISTS satis (no INTEGER PRIMARY KEY, an TEXT, acilis TEXT, liste "
        "INTEGER, kasiyerkod TEXT, kasiyer TEXT, brut INTEGER, indirim INTEGER, kdv INTEGER, genel "
        "INTEGER, toplamlar TEXT, nakit TEXT, paraustu TEXT, odeme TEXT, musterikod TEXT, musteri "
        "TEXT, fis TEXT, fatura TEXT, "
        "defter TEXT, durum TEXT)"_s,
        u"CREATE TABLE IF NOT EXISTS kalem (satis INTEGER, sira INTEGER, barkod TEXT, stok TEXT, "
        "ad TEXT, kdv TEXT, birim TEXT, fiyat TEXT, miktar TEXT, tutar TEXT, indirim TEXT, net "
        "TEXT, iskonto TEXT, aranan TEXT, PRIMARY KEY (satis, sira)) WITHOUT ROWID"_s,
        u"CREATE TABLE IF NOT EXISTS oran (satis INTEGER, oran TEXT, matrah INTEGER, kdv INTEGER, "
        "PRIMARY KEY (satis, oran)) WITHOUT ROWID"_s,
        u"CREATE TABLE IF NOT EXISTS gonderi (satis INTEGER, no INTEGER, an TEXT, kayit TEXT, "
        u"durum "
        "TEXT, ifade TEXT, eski REAL, soz TEXT, PRIMARY KEY (satis, no)) WITHOUT ROWID"_s,
    };
    return statements;
}

const QStringList &indexStatements()
{
    static const QStringList statements = {
        u"CREATE INDEX IF NOT EXISTS olay_liste ON olay (liste, tur, no)"_s,
        u"CREATE INDEX IF NOT EXISTS olay_an ON olay (an)"_s,
        u"CREATE INDEX IF NOT EXISTS satis_an ON satis (an)"_s,
        u"CREATE INDEX IF NOT EXISTS satis_acik ON satis (no) WHERE %1"_s.arg(
            journal::kOpenCondition),
    };
    return statements;
}

} // namespace

JournalFile::JournalFile(LocalDatabase &db, const Clock &clock, const QString &path)
    : m_db(db), m_clock(clock), m_path(path)
{}

JournalFile::~JournalFile()
{
    sync();
    if (m_open)
        m_db.close();
}

void JournalFile::open()
{
    if (m_open)
        return;
    m_news.clear();
    try {
        try {
            openFile();
        } catch (const HostError &error) {
            m_db.close();
            if (error.cause() != HostError::Cause::damaged || !setAside())
                throw;
            openFile();
        }
        m_open = true;
        m_fault.clear();
    } catch (const HostError &error) {
        fail(error);
        return;
    }
    if (healthChanged)
        healthChanged();
}

void JournalFile::openFile()
{
    m_db.open(m_path);
    // One program keeps it: nobody can lock it away from a till that sells.
    m_db.execute(u"PRAGMA locking_mode=EXCLUSIVE"_s);
    m_db.execute(u"PRAGMA journal_mode=WAL"_s);
    m_db.execute(u"PRAGMA synchronous=NORMAL"_s);
    makeTables();
    prune();
}

void JournalFile::makeTables()
{
    const double version = m_db.execute(u"PRAGMA user_version"_s).number(u"user_version");
    if (version > kVersion)
        throw HostError(HostError::kStatement,
                        u"Dosya programın daha yeni bir sürümünündür; dokunulmadı."_s);
    for (const QString &statement : tableStatements() + indexStatements())
        m_db.execute(statement);
    m_db.execute(u"PRAGMA user_version=%1"_s.arg(kVersion));
    // A file whose pages are damaged opens; reading what the till begins with shows it.
    m_db.execute(u"SELECT max(no) FROM olay"_s);
    m_db.execute(u"SELECT max(no) FROM satis"_s);
}

/// Keys of lists that were cleared are of no use any more, sales age; incomplete ones never do.
void JournalFile::prune()
{
    const auto before = [this](int days) { return momentText(m_clock.now().addDays(-days)); };
    m_db.execute(
        u"DELETE FROM olay WHERE tur<>'sil' AND liste>=0 AND no<=(SELECT max(b.no) FROM olay b "
        "WHERE b.liste=olay.liste AND b.tur='bosalt')"_s);
    m_db.execute(
        u"DELETE FROM olay WHERE liste<0 AND no<(SELECT max(no) FROM olay WHERE liste<0)"_s);
    m_db.execute(u"DELETE FROM olay WHERE tur='sil' AND an<'%1'"_s.arg(before(kSaleDays)));
    const QString aged = u"SELECT no FROM satis WHERE an<'%1' AND NOT (%2) ORDER BY no LIMIT %3"_s;
    const auto agedBy = [&](int days) {
        return aged.arg(before(days), journal::kOpenCondition, QString::number(kMostPruned));
    };
    const QString old = agedBy(kSaleDays);
    const qsizetype count = m_db.execute(old).rowCount();
    if (count > 0) {
        for (const QStringView table : {u"oran", u"kalem", u"gonderi"})
            m_db.execute(u"DELETE FROM %1 WHERE satis IN (%2)"_s.arg(table, old));
        m_db.execute(u"DELETE FROM satis WHERE no IN (%1)"_s.arg(old));
        m_news = u"Kasa günlüğünden %1 günden eski %2 satış silindi."_s.arg(
            QString::number(kSaleDays), amount::whole(count));
    }
    // Lines are numbered with their sales: the lowest that is left is the oldest.
    m_db.execute(u"DELETE FROM kalem WHERE satis IN (SELECT no FROM satis WHERE an<'%1' AND no>="
                 "(SELECT min(satis) FROM kalem) AND NOT (%2) ORDER BY no LIMIT %3)"_s.arg(
                     before(kLineDays), journal::kOpenCondition, QString::number(kMostPruned)));
}

bool JournalFile::setAside()
{
    const QString name =
        m_path.chopped(4) + u"-bozuk-"_s + m_clock.now().toString(u"yyyyMMdd-HHmmss"_s) + u".dbs"_s;
    if (!QFile::rename(m_path, name))
        return false;
    for (const QString &part : {u"-wal"_s, u"-shm"_s})
        QFile::rename(m_path + part, name + part);
    m_news = u"Kasa günlüğü bozuktu; %1 adıyla saklandı ve yenisi açıldı. Açık listeler ve eksik "
             "satışlar bilinmiyor."_s.arg(name.sliced(name.lastIndexOf(u'/') + 1));
    return true;
}

void JournalFile::fail(const HostError &error)
{
    m_fault = error.text().section(u'\n', 0, 0);
    m_db.close();
    m_open = false;
    if (healthChanged)
        healthChanged();
}

bool JournalFile::write(const QStringList &statements, Lasting lasting)
{
    if (!m_open)
        return false;
    const bool atOnce = lasting == Lasting::atOnce;
    try {
        if (atOnce)
            m_db.execute(u"PRAGMA synchronous=FULL"_s);
        if (statements.size() == 1)
            m_db.execute(statements.first());
        else
            m_db.execute(u"BEGIN;"_s + statements.join(u';') + u";COMMIT"_s);
        if (atOnce)
            m_db.execute(u"PRAGMA synchronous=NORMAL"_s);
        m_written = true;
        return true;
    } catch (const HostError &error) {
        fail(error); // an unfinished transaction ends with the connection
        return false;
    }
}

RecordSet JournalFile::read(const QString &statement)
{
    if (!m_open)
        return {};
    try {
        return m_db.execute(statement);
    } catch (const HostError &error) {
        if (error.cause() == HostError::Cause::unknown)
            return {}; // out of time, for one; the file is well
        fail(error);
        return {};
    }
}

void JournalFile::sync()
{
    if (!m_open || !m_written)
        return;
    m_written = false;
    read(u"PRAGMA wal_checkpoint(PASSIVE)"_s);
}

QString JournalFile::insertion(QStringView table, Values values)
{
    QString columns;
    QString literals;
    for (const auto &[column, value] : values) {
        const QStringView mark = columns.isEmpty() ? u"" : u",";
        columns.append(mark).append(column);
        literals.append(mark).append(quoted(value));
    }
    return u"INSERT INTO %1 (%2) VALUES ("_s.arg(table, columns) + literals + u')';
}

QString JournalFile::quoted(QString text)
{
    return u'\'' + text.remove(QChar(u'\0')).replace(u'\'', u"''"_s) + u'\'';
}

QString JournalFile::momentText(const QDateTime &moment)
{
    return moment.toString(u"yyyy-MM-ddTHH:mm:ss.zzz"_s);
}
