#include "platform/host/sqlite_file.h"

#include "platform/host/engine_errors.h"
#include "platform/host/host_values.h"

#include <QScopeGuard>

#include <sqlite3.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

/// How many steps of a statement pass between two looks at the clock.
constexpr int kStepsPerLook = 10000;

enum class ColumnType
{
    asStored,
    number,
    date
};

ColumnType typeOf(sqlite3_stmt *statement, int column)
{
    const char *text = sqlite3_column_decltype(statement, column);
    const std::string_view declared = text ? text : "";
    if (declared == host_values::kMoney || declared == host_values::kFloat)
        return ColumnType::number;
    return declared == host_values::kDate ? ColumnType::date : ColumnType::asStored;
}

std::string_view columnText(sqlite3_stmt *statement, int column)
{
    const void *text = sqlite3_column_text(statement, column);
    const int size = sqlite3_column_bytes(statement, column);
    return text ? std::string_view(static_cast<const char *>(text), static_cast<std::size_t>(size))
                : std::string_view();
}

QVariant field(sqlite3_stmt *statement, int column, ColumnType type)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        if (type == ColumnType::number)
            return sqlite3_column_double(statement, column);
        return QVariant::fromValue<qlonglong>(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
    default:
        break;
    }
    const std::string_view text = columnText(statement, column);
    if (type == ColumnType::date)
        if (const auto date = host_values::parseDate(text))
            return *date;
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Gives the place of a statement (from 1) its value.
void bind(sqlite3_stmt *statement, int place, const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        sqlite3_bind_null(statement, place);
        break;
    case QMetaType::Int:
    case QMetaType::LongLong:
        sqlite3_bind_int64(statement, place, value.toLongLong());
        break;
    case QMetaType::Double:
        sqlite3_bind_double(statement, place, value.toDouble());
        break;
    default: {
        const QByteArray text = value.toString().toUtf8();
        sqlite3_bind_text(statement, place, text.constData(), static_cast<int>(text.size()),
                          SQLITE_TRANSIENT); // NOLINT: the macro casts an integer
    }
    }
}

QStringList columnNames(sqlite3_stmt *statement)
{
    const int count = sqlite3_column_count(statement);
    QStringList names;
    names.reserve(count);
    for (int i = 0; i < count; ++i)
        names += QString::fromUtf8(sqlite3_column_name(statement, i));
    return names;
}

/// Runs to the end. Returns the last result code: SQLITE_DONE when all went well.
int readRows(sqlite3_stmt *statement, std::vector<RecordSet::Row> &rows)
{
    const int count = sqlite3_column_count(statement);
    std::vector<ColumnType> types(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        types[static_cast<std::size_t>(i)] = typeOf(statement, i);
    int code = sqlite3_step(statement);
    for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
        RecordSet::Row &row = rows.emplace_back();
        row.reserve(types.size());
        for (int i = 0; i < count; ++i)
            row.push_back(field(statement, i, types[static_cast<std::size_t>(i)]));
    }
    return code;
}

/// The error number a program sees for a result code of the engine.
int errorNumber(int code)
{
    switch (code & 0xFF) {
    case SQLITE_CONSTRAINT:
        return code == SQLITE_CONSTRAINT_CHECK ? HostError::kStatement : HostError::kDuplicate;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_INTERRUPT:
    case SQLITE_CANTOPEN:
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_IOERR:
    case SQLITE_PROTOCOL:
        return HostError::kConnectionLost;
    default:
        return HostError::kStatement;
    }
}

HostError::Cause causeOf(int code)
{
    switch (code & 0xFF) {
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return HostError::Cause::damaged;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_CANTOPEN:
    case SQLITE_FULL:
    case SQLITE_IOERR:
    case SQLITE_PERM:
    case SQLITE_READONLY:
        return HostError::Cause::file;
    default:
        return HostError::Cause::unknown;
    }
}

bool diskFull(int code, sqlite3 *database)
{
    constexpr int noSpace = 28;      // of Unix
    constexpr int windowsFull = 112; // of Windows
    const int system = sqlite3_system_errno(database);
    return (code & 0xFF) == SQLITE_FULL || system == noSpace || system == windowsFull;
}

QString codeText(int code, sqlite3 *database)
{
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return u"Dosya başka bir program tarafından kullanılıyor."_s;
    case SQLITE_INTERRUPT:
        return u"İşlem zamanında bitmedi."_s;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return u"Veritabanı dosyası bozuk."_s;
    case SQLITE_CANTOPEN:
        return u"Veritabanı dosyası açılamıyor."_s;
    case SQLITE_FULL:
    case SQLITE_IOERR:
        return diskFull(code, database)
                   ? u"Disk dolu."_s
                   : u"Diskten okunamadı ya da diske yazılamadı; disk arızalı ya da yerinden "
                     "çıkmış olabilir."_s;
    case SQLITE_PERM:
    case SQLITE_READONLY:
        return u"Veritabanı dosyasına yazılamıyor."_s;
    default:
        return QString::fromUtf8(sqlite3_errmsg(database));
    }
}

} // namespace

void SqliteFile::Finalize::operator()(sqlite3_stmt *statement) const
{
    sqlite3_finalize(statement);
}

SqliteFile::SqliteFile(const QString &path, Mode mode, std::chrono::milliseconds limit)
    : m_limit(limit)
{
    try {
        openFile(path, mode);
    } catch (const HostError &error) {
        sqlite3_close_v2(m_database);
        throw HostError(HostError::kConnectionLost, error.text() + u'\n' + path, {}, error.cause());
    }
}

SqliteFile::~SqliteFile()
{
    m_kept.clear();
    sqlite3_close_v2(m_database);
}

void SqliteFile::openFile(const QString &path, Mode mode)
{
    const int create = mode == Mode::createWhenMissing ? SQLITE_OPEN_CREATE : 0;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE | create;
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &m_database, flags, nullptr);
    if (code != SQLITE_OK)
        fail(code, {});
    // "text" is a column and never a string, and a file from elsewhere may not run what it likes.
    const auto option = [&](int name, int value) {
        sqlite3_db_config(m_database, name, value, nullptr);
    };
    option(SQLITE_DBCONFIG_DQS_DML, 0);
    option(SQLITE_DBCONFIG_DQS_DDL, 0);
    option(SQLITE_DBCONFIG_DEFENSIVE, 1);
    option(SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0);
    sqlite3_limit(m_database, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_progress_handler(
        m_database, kStepsPerLook,
        [](void *self) { return static_cast<SqliteFile *>(self)->overdue() ? 1 : 0; }, this);
    sqlite3_busy_handler(
        m_database,
        [](void *self, int) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            return static_cast<SqliteFile *>(self)->overdue() ? 0 : 1;
        },
        this);
    execute(u"PRAGMA cell_size_check=ON; select count(*) from sqlite_schema"_s);
}

QString SqliteFile::version()
{
    return u"SQLite "_s + QString::fromLatin1(sqlite3_libversion());
}

void SqliteFile::startWatch()
{
    m_deadline = std::chrono::steady_clock::now() + m_limit;
}

bool SqliteFile::overdue() const
{
    return std::chrono::steady_clock::now() > m_deadline;
}

RecordSet SqliteFile::execute(const QString &statement)
{
    if (statement.contains(QChar(u'\0')))
        throw engineError(HostError::kStatement, u"Sorguda geçersiz karakter var."_s, statement);
    startWatch();
    RecordSet result;
    for (const Statement &one : prepare(statement)) {
        RecordSet rows = run(one.get(), statement);
        if (result.columns().isEmpty())
            result = std::move(rows);
    }
    return result;
}

RecordSet SqliteFile::executeWith(const QString &statement, const QVariantList &values)
{
    startWatch();
    auto kept = m_kept.find(statement);
    if (kept == m_kept.end())
        kept = m_kept.emplace(statement, std::move(prepare(statement).front())).first;
    sqlite3_stmt *const prepared = kept->second.get();
    for (qsizetype i = 0; i < values.size(); ++i)
        bind(prepared, static_cast<int>(i) + 1, values.at(i));
    const auto reset = qScopeGuard([prepared] { sqlite3_reset(prepared); });
    return run(prepared, statement);
}

/// Runs to the end.
RecordSet SqliteFile::run(sqlite3_stmt *prepared, const QString &statement)
{
    std::vector<RecordSet::Row> rows;
    const int code = readRows(prepared, rows);
    if (code != SQLITE_DONE)
        fail(code, statement);
    return {columnNames(prepared), std::move(rows)};
}

std::vector<SqliteFile::Statement> SqliteFile::prepare(const QString &statement)
{
    const QByteArray text = statement.toUtf8();
    std::vector<Statement> batch;
    const char *rest = text.constData();
    while (*rest != '\0') {
        sqlite3_stmt *prepared = nullptr;
        const int code = sqlite3_prepare_v2(m_database, rest, -1, &prepared, &rest);
        if (code != SQLITE_OK)
            fail(code, statement);
        if (prepared)
            batch.emplace_back(prepared);
    }
    return batch;
}

void SqliteFile::fail(int code, const QString &statement)
{
    const QString text = codeText(code, m_database);
    const HostError::Cause cause = causeOf(code);
    if (cause == HostError::Cause::unknown)
        throw engineError(errorNumber(code), text, statement);
    throw HostError(errorNumber(code), text, statement, cause);
}
