#include "sales/journal/journal_file.h"

#include "common/amount.h"
#include "sales/journal/journal_words.h"

#include <QFile>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr int kVersion = 2; ///< 1 knew one ledger

/// Lines of a sale are kept while its receipt may be asked for again, the sale itself until its
/// month can be compared with that of the year before.
constexpr int kLineDays = 100;
constexpr int kSaleDays = 400;
constexpr int kPruned = 200; ///< sales at once

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
        "defter TEXT, durum TEXT, muhasebe TEXT)"_s,
        u"CREATE TABLE IF NOT EXISTS kalem (satis INTEGER, sira INTEGER, barkod TEXT, stok TEXT, "
        "ad TEXT, kdv TEXT, birim TEXT, fiyat TEXT, miktar TEXT, tutar TEXT, indirim TEXT, net "
        "TEXT, iskonto TEXT, aranan TEXT, PRIMARY KEY (satis, sira)) WITHOUT ROWID"_s,
        u"CREATE TABLE IF NOT EXISTS oran (satis INTEGER, oran TEXT, matrah INTEGER, kdv INTEGER, "
        "PRIMARY KEY (satis, oran)) WITHOUT ROWID"_s,
        u"CREATE TABLE IF NOT EXISTS gonderi (satis INTEGER, no INTEGER, kayit TEXT, durum TEXT, "
        "ifade TEXT, eski REAL, soz TEXT, PRIMARY KEY (satis, no)) WITHOUT ROWID"_s,
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

JournalFile::JournalFile(LocalDatabase &db, const Clock &clock, const QString &path,
                         const QString &ledger)
    : m_db(db), m_clock(clock), m_path(path), m_ledger(ledger)
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
    tellAged();
}

void JournalFile::makeTables()
{
    const double version = m_db.execute(u"PRAGMA user_version"_s).number(u"user_version");
    if (version > kVersion)
        throw HostError(HostError::kStatement,
                        u"Dosya programın daha yeni bir sürümünündür; dokunulmadı."_s);
    for (const QString &statement : tableStatements() + indexStatements())
        m_db.execute(statement);
    if (version == 1.0) // what was sold until now went to the ledger that is connected
        m_db.execute(u"ALTER TABLE satis ADD COLUMN muhasebe TEXT DEFAULT "_s + quoted(m_ledger));
    if (version != kVersion) // nothing is written else: lists come back from a full disk too
        m_db.execute(u"PRAGMA user_version=%1"_s.arg(kVersion));
    // A file whose pages are damaged opens; reading what the till begins with shows it.
    m_db.execute(u"SELECT max(no) FROM olay"_s);
    m_db.execute(u"SELECT max(no) FROM satis"_s);
}

/// Says what goes; incomplete sales never do.
void JournalFile::tellAged()
{
    const RecordSet aged =
        m_db.execute(u"SELECT count(*) AS adet FROM satis WHERE "_s + agedBy(kSaleDays));
    if (const qint64 count = qRound64(aged.number(u"adet")); count > 0)
        m_news = u"Kasa günlüğünden %1 günden eski %2 satış siliniyor."_s.arg(
            QString::number(kSaleDays), amount::whole(count));
}

QString JournalFile::agedBy(int days) const
{
    return u"an<'%1' AND NOT (%2)"_s.arg(momentText(m_clock.now().addDays(-days)),
                                         journal::kOpenCondition);
}

bool JournalFile::prune()
{
    const auto numbers = [this](const QString &select) {
        QStringList found;
        for (RecordSet row = read(select + u" LIMIT %1"_s.arg(kPruned)); !row.eof(); row.moveNext())
            found += QString::number(qRound64(row.number(u"no")));
        return found.join(u',');
    };
    const QString sales =
        numbers(u"SELECT no FROM satis WHERE %1 ORDER BY an"_s.arg(agedBy(kSaleDays)));
    const QString withLines = numbers(
        u"SELECT DISTINCT satis AS no FROM kalem WHERE satis<coalesce((SELECT no FROM satis WHERE "
        "an>='%1' ORDER BY an LIMIT 1),9e18) AND satis NOT IN (SELECT no FROM satis WHERE %2) "
        "ORDER "
        "BY satis"_s.arg(momentText(m_clock.now().addDays(-kLineDays)), journal::kOpenCondition));
    const QString deleted = numbers(u"SELECT no FROM olay WHERE tur='sil' AND an<'%1'"_s.arg(
        momentText(m_clock.now().addDays(-kSaleDays))));
    const QString cashiers = numbers(
        u"SELECT no FROM olay WHERE liste<0 AND no<(SELECT max(no) FROM olay WHERE liste<0)"_s);
    Changes changes;
    const auto remove = [&](QStringView table, QStringView column, const QString &aged) {
        if (!aged.isEmpty())
            changes.push_back({u"DELETE FROM %1 WHERE %2 IN (%3)"_s.arg(table, column, aged), {}});
    };
    remove(u"olay", u"no", deleted);
    remove(u"olay", u"no", cashiers); // the last one counts
    remove(u"kalem", u"satis", withLines);
    for (const QStringView table : {u"kalem", u"oran", u"gonderi"})
        remove(table, u"satis", sales);
    remove(u"satis", u"no", sales);
    return !changes.empty() && write(changes);
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

bool JournalFile::write(const Changes &changes, Lasting lasting)
{
    if (!m_open)
        return false;
    const bool atOnce = lasting == Lasting::atOnce;
    try {
        if (atOnce)
            m_db.execute(u"PRAGMA synchronous=FULL"_s);
        if (changes.size() != 1)
            m_db.executeWith(u"BEGIN"_s, {});
        for (const Change &change : changes)
            change.values.isEmpty() ? m_db.execute(change.statement)
                                    : m_db.executeWith(change.statement, change.values);
        if (changes.size() != 1)
            m_db.executeWith(u"COMMIT"_s, {});
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
    try {
        return readWhole(statement);
    } catch (const HostError &) {
        return {};
    }
}

RecordSet JournalFile::readWhole(const QString &statement)
{
    if (!m_open)
        return {};
    try {
        return m_db.execute(statement);
    } catch (const HostError &error) {
        if (error.cause() != HostError::Cause::unknown) // out of time, for one: the file is well
            fail(error);
        throw;
    }
}

void JournalFile::sync()
{
    if (!m_open || !m_written)
        return;
    m_written = false;
    read(u"PRAGMA wal_checkpoint(PASSIVE)"_s);
}

JournalFile::Change JournalFile::insertion(QStringView table, const Cells &cells)
{
    QString columns;
    QString places;
    QVariantList values;
    for (const auto &[column, value] : cells) {
        const QStringView between = columns.isEmpty() ? u"" : u",";
        columns.append(between).append(column);
        places.append(between).append(u'?');
        values += value;
    }
    return {u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(table, columns, places), values};
}

QString JournalFile::quoted(QString text)
{
    return u'\'' + text.remove(QChar(u'\0')).replace(u'\'', u"''"_s) + u'\'';
}

QString JournalFile::soldHere() const
{
    return u"%1 AND muhasebe=%2"_s.arg(journal::kSold, quoted(m_ledger));
}

QString JournalFile::momentText(const QDateTime &moment)
{
    return moment.toString(u"yyyy-MM-ddTHH:mm:ss.zzz"_s);
}
