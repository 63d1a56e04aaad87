#include "platform/host/embedded_engine.h"

#include "common/host_error.h"
#include "common/turkish.h"
#include "platform/host/engine_errors.h"
#include "platform/host/host_values.h"

#include <QDir>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// The file of a database; a name that would leave the folder is none of its files.
QString databaseFile(const QString &directory, const QString &database)
{
    const QString wanted = turkish::upper(database + u".yerel"_s);
    for (const QString &name : QDir(directory).entryList({u"*.yerel"_s}, QDir::Files))
        if (turkish::upper(name) == wanted)
            return directory + u'/' + name;
    throw engineError(HostError::kConnectionLost, u"Veritabanı bulunamadı: %1"_s.arg(database), {},
                      HostError::Cause::database);
}

/// Dates are day.month.year here from the start.
bool isDateFormat(const QString &statement)
{
    static const QRegularExpression pattern(u"^\\s*set\\s+dateformat\\s+dmy\\s*;?\\s*$"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    return statement.size() < 100 && pattern.match(statement).hasMatch();
}

} // namespace

EmbeddedEngine::EmbeddedEngine(const QString &directory, const QString &database,
                               std::chrono::milliseconds limit)
    : m_file(databaseFile(directory, database), SqliteFile::Mode::mustExist, limit)
{
    host_values::install(m_file.handle());
}

QString EmbeddedEngine::driver() const
{
    return SqliteFile::version();
}

RecordSet EmbeddedEngine::execute(const QString &statement)
{
    if (isDateFormat(statement))
        return {};
    return m_file.execute(statement);
}
