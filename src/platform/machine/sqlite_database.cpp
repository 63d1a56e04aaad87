#include "platform/machine/sqlite_database.h"

#include "common/host_error.h"
#include "platform/host/sqlite_file.h"

using namespace Qt::StringLiterals;

SqliteDatabase::SqliteDatabase() = default;
SqliteDatabase::~SqliteDatabase() = default;

void SqliteDatabase::open(const QString &path)
{
    m_file.reset();
    m_file = std::make_unique<SqliteFile>(path, SqliteFile::Mode::createWhenMissing,
                                          std::chrono::seconds(2));
}

RecordSet SqliteDatabase::execute(const QString &statement)
{
    if (!m_file)
        throw HostError(HostError::kConnectionLost, u"Veritabanı dosyası açık değil."_s, statement);
    return m_file->execute(statement);
}

void SqliteDatabase::close()
{
    m_file.reset();
}
