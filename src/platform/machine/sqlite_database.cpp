#include "platform/machine/sqlite_database.h"

#include "common/host_error.h"
#include "platform/host/sqlite_file.h"
#include "platform/machine/private_file.h"

#include <QFile>

using namespace Qt::StringLiterals;

SqliteDatabase::SqliteDatabase(std::chrono::milliseconds patience) : m_patience(patience)
{}
SqliteDatabase::~SqliteDatabase() = default;

void SqliteDatabase::open(const QString &path)
{
    m_file.reset();
    if (!QFile::exists(path))
        makePrivate(path);
    m_file = std::make_unique<SqliteFile>(path, SqliteFile::Mode::createWhenMissing, m_patience);
    if (keepsPrivateJournal(path))
        m_file->execute(u"PRAGMA journal_mode=TRUNCATE"_s);
}

SqliteFile &SqliteDatabase::opened(const QString &statement) const
{
    if (!m_file)
        throw HostError(HostError::kConnectionLost, u"Veritabanı dosyası açık değil."_s, statement);
    return *m_file;
}

RecordSet SqliteDatabase::execute(const QString &statement)
{
    return opened(statement).execute(statement);
}

RecordSet SqliteDatabase::executeWith(const QString &statement, const QVariantList &values)
{
    return opened(statement).executeWith(statement, values);
}

void SqliteDatabase::close()
{
    m_file.reset();
}
