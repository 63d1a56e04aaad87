#include "platform/host/odbc_session.h"

#include "platform/host/engine_errors.h"
#include "platform/host/odbc_errors.h"

#include <QDateTime>

#include <algorithm>
#include <array>
#include <cstdint>

using namespace Qt::StringLiterals;

namespace {

/// A pointer that carries a number, as the interface wants its attributes.
SQLPOINTER asPointer(SQLULEN number)
{
    return reinterpret_cast<SQLPOINTER>(number); // NOLINT: the interface wants it so
}

SQLWCHAR *wide(const QString &text)
{
    return const_cast<SQLWCHAR *>(reinterpret_cast<const SQLWCHAR *>(text.utf16()));
}

QString fromWide(const SQLWCHAR *text, qsizetype length)
{
    return QString(reinterpret_cast<const QChar *>(text), length);
}

std::vector<OdbcMessage> messagesOf(SQLSMALLINT type, SQLHANDLE handle)
{
    std::vector<OdbcMessage> messages;
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 1024> text{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    for (SQLSMALLINT record = 1;
         SQL_SUCCEEDED(SQLGetDiagRecW(type, handle, record, state.data(), &native, text.data(),
                                      static_cast<SQLSMALLINT>(text.size()), &length));
         ++record) {
        const qsizetype size = std::min<qsizetype>(length, static_cast<qsizetype>(text.size()) - 1);
        messages.push_back({fromWide(state.data(), 5), static_cast<int>(native),
                            fromWide(text.data(), std::max<qsizetype>(size, 0))});
    }
    return messages;
}

QString joined(const std::vector<OdbcMessage> &messages)
{
    QStringList lines;
    for (const OdbcMessage &message : messages)
        lines += u"%1 (%2, %3)"_s.arg(message.text, message.state).arg(message.native);
    return lines.isEmpty() ? u"ODBC"_s : lines.join(u'\n');
}

/// Says in Turkish why it failed, with the driver's own words beneath.
HostError driverError(int number, const std::vector<OdbcMessage> &messages,
                      const QString &statement = {})
{
    const QString reason = odbcReason(messages);
    if (reason.isEmpty() || number == HostError::kDuplicate)
        return engineError(number, joined(messages), statement);
    return {number, reason + u'\n' + joined(messages), statement, odbcCause(messages)};
}

/// Reads one field of the row a statement stands on.
class FieldReader
{
public:
    FieldReader(SQLHSTMT statement, SQLUSMALLINT column) : m_statement(statement), m_column(column)
    {}

    SQLRETURN read(SQLSMALLINT sqlType, QVariant &value)
    {
        switch (sqlType) {
        case SQL_BIT:
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER:
        case SQL_BIGINT:
            return readFixed<std::int64_t>(
                SQL_C_SBIGINT, value, [](std::int64_t n) { return static_cast<qlonglong>(n); });
        case SQL_REAL: // its own digits, not those a wider number shows behind them
            return readFixed<float>(SQL_C_FLOAT, value,
                                    [](float n) { return QString::number(n).toDouble(); });
        case SQL_DECIMAL:
        case SQL_NUMERIC:
        case SQL_FLOAT:
        case SQL_DOUBLE:
            return readFixed<double>(SQL_C_DOUBLE, value, [](double n) { return n; });
        case SQL_TYPE_DATE:
            return readFixed<SQL_DATE_STRUCT>(SQL_C_TYPE_DATE, value, [](const auto &d) {
                return QDate(d.year, d.month, d.day);
            });
        case SQL_TYPE_TIMESTAMP:
            return readFixed<SQL_TIMESTAMP_STRUCT>(SQL_C_TYPE_TIMESTAMP, value, [](const auto &t) {
                const int ms = static_cast<int>(t.fraction / 1000000);
                return QDateTime(QDate(t.year, t.month, t.day),
                                 QTime(t.hour, t.minute, t.second, ms));
            });
        default:
            return readText(value);
        }
    }

private:
    template <typename Raw, typename Convert>
    SQLRETURN readFixed(SQLSMALLINT cType, QVariant &value, Convert convert)
    {
        Raw raw{};
        SQLLEN size = 0;
        const SQLRETURN code = SQLGetData(m_statement, m_column, cType, &raw, sizeof raw, &size);
        if (SQL_SUCCEEDED(code) && size != SQL_NULL_DATA)
            value = QVariant::fromValue(convert(raw));
        return code;
    }

    /// Long texts come in pieces.
    SQLRETURN readText(QVariant &value)
    {
        constexpr auto room = static_cast<qsizetype>(kPiece) - 1; // without the final zero
        std::array<SQLWCHAR, kPiece> piece{};
        QString text;
        while (true) {
            SQLLEN size = 0;
            const SQLRETURN code = SQLGetData(m_statement, m_column, SQL_C_WCHAR, piece.data(),
                                              static_cast<SQLLEN>(sizeof piece), &size);
            if (code == SQL_NO_DATA)
                break;
            if (!SQL_SUCCEEDED(code))
                return code;
            if (size == SQL_NULL_DATA)
                return code;
            const qsizetype rest = size / static_cast<SQLLEN>(sizeof(SQLWCHAR));
            const bool more = size == SQL_NO_TOTAL || rest > room;
            text += fromWide(piece.data(), more ? room : rest);
            if (!more)
                break;
        }
        value = text;
        return SQL_SUCCESS;
    }

    static constexpr std::size_t kPiece = 4096;

    SQLHSTMT m_statement;
    SQLUSMALLINT m_column;
};

struct ColumnShape
{
    QString name;
    SQLSMALLINT type = 0;
};

SQLRETURN describe(SQLHSTMT statement, SQLUSMALLINT column, ColumnShape &shape)
{
    std::array<SQLWCHAR, 256> name{};
    SQLSMALLINT length = 0;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    const SQLRETURN code =
        SQLDescribeColW(statement, column, name.data(), static_cast<SQLSMALLINT>(name.size()),
                        &length, &shape.type, &size, &digits, &nullable);
    if (SQL_SUCCEEDED(code))
        shape.name = fromWide(name.data(), std::min<qsizetype>(length, name.size() - 1));
    return code;
}

} // namespace

OdbcSession::Handle::Handle(SQLSMALLINT type, SQLHANDLE parent) : m_type(type)
{
    if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &m_handle)))
        throw engineError(HostError::kConnectionLost, u"ODBC kullanılamıyor."_s);
}

OdbcSession::Environment::Environment() : Handle(SQL_HANDLE_ENV, SQL_NULL_HANDLE)
{
    SQLSetEnvAttr(get(), SQL_ATTR_ODBC_VERSION, asPointer(SQL_OV_ODBC3), 0);
}

QStringList OdbcSession::installedDrivers()
{
    const Environment environment;
    QStringList names;
    std::array<SQLWCHAR, 256> name{};
    std::array<SQLWCHAR, 2> attributes{};
    SQLSMALLINT length = 0;
    SQLSMALLINT attributesLength = 0;
    SQLUSMALLINT direction = SQL_FETCH_FIRST;
    while (SQL_SUCCEEDED(SQLDriversW(
        environment.get(), direction, name.data(), static_cast<SQLSMALLINT>(name.size()), &length,
        attributes.data(), static_cast<SQLSMALLINT>(attributes.size()), &attributesLength))) {
        names += fromWide(name.data(), std::min<qsizetype>(length, name.size() - 1));
        direction = SQL_FETCH_NEXT;
    }
    return names;
}

OdbcSession::OdbcSession(const QString &driverConnectionString, std::chrono::milliseconds patience)
    : m_timeOut(std::max<SQLULEN>(static_cast<SQLULEN>(patience.count()) / 1000, 1)),
      m_connection(SQL_HANDLE_DBC, m_environment.get())
{
    const auto set = [&](SQLINTEGER attribute) {
        SQLSetConnectAttrW(m_connection.get(), attribute, asPointer(m_timeOut), SQL_IS_UINTEGER);
    };
    set(SQL_ATTR_LOGIN_TIMEOUT);
    set(SQL_ATTR_CONNECTION_TIMEOUT); // drivers that do not take it refuse it, no harm done
    const SQLRETURN code =
        SQLDriverConnectW(m_connection.get(), nullptr, wide(driverConnectionString),
                          static_cast<SQLSMALLINT>(driverConnectionString.size()), nullptr, 0,
                          nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(code))
        throw driverError(HostError::kConnectionLost,
                          messagesOf(SQL_HANDLE_DBC, m_connection.get()));
}

OdbcSession::~OdbcSession()
{
    SQLDisconnect(m_connection.get());
}

RecordSet OdbcSession::execute(const QString &statement, BoundedCalls::Life &life)
{
    RecordSet result;
    run(statement, life, [&](RecordSet rows) {
        if (result.columns().isEmpty())
            result = std::move(rows);
    });
    return result;
}

void OdbcSession::executeBatch(const QString &batch, std::vector<RecordSet> &answers,
                               BoundedCalls::Life &life)
{
    run(batch, life, [&](RecordSet rows) { answers.push_back(std::move(rows)); });
}

void OdbcSession::run(const QString &statement, BoundedCalls::Life &life,
                      const std::function<void(RecordSet)> &take)
{
    const Handle handle(SQL_HANDLE_STMT, m_connection.get());
    SQLSetStmtAttrW(handle.get(), SQL_ATTR_QUERY_TIMEOUT, asPointer(m_timeOut), SQL_IS_UINTEGER);
    SQLRETURN code =
        SQLExecDirectW(handle.get(), wide(statement), static_cast<SQLINTEGER>(statement.size()));
    if (code == SQL_NO_DATA) // an update that found no row
        code = SQL_SUCCESS;
    for (; code != SQL_NO_DATA; code = SQLMoreResults(handle.get())) {
        check(code, handle, statement);
        life.show();
        RecordSet rows = readRows(handle, statement, life);
        if (!rows.columns().isEmpty())
            take(std::move(rows));
    }
}

/// The rows of the result the statement stands on; empty when it is none.
RecordSet OdbcSession::readRows(const Handle &handle, const QString &statement,
                                BoundedCalls::Life &life)
{
    SQLSMALLINT count = 0;
    check(SQLNumResultCols(handle.get(), &count), handle, statement);
    if (count == 0)
        return {};
    std::vector<ColumnShape> shapes(static_cast<std::size_t>(count));
    QStringList names;
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        check(describe(handle.get(), static_cast<SQLUSMALLINT>(i + 1), shapes[i]), handle,
              statement);
        names += shapes[i].name;
    }
    std::vector<RecordSet::Row> rows;
    SQLRETURN code = SQLFetch(handle.get());
    for (; code != SQL_NO_DATA; code = SQLFetch(handle.get())) {
        check(code, handle, statement);
        life.show();
        RecordSet::Row row(shapes.size());
        for (std::size_t i = 0; i < shapes.size(); ++i) {
            FieldReader reader(handle.get(), static_cast<SQLUSMALLINT>(i + 1));
            check(reader.read(shapes[i].type, row[i]), handle, statement);
        }
        rows.push_back(std::move(row));
    }
    return RecordSet(names, std::move(rows));
}

void OdbcSession::check(SQLRETURN code, const Handle &handle, const QString &statement)
{
    if (SQL_SUCCEEDED(code))
        return;
    const std::vector<OdbcMessage> messages = messagesOf(handle.type(), handle.get());
    // A driver that finds the connection closed by the server need not name it as the reason.
    const std::optional<bool> dead = isDead();
    const int number =
        dead.value_or(false) ? HostError::kConnectionLost : odbcErrorNumber(messages);
    // A slow statement that the server has called off leaves the connection as good as before.
    if (number == HostError::kConnectionLost && (dead.value_or(true) || !odbcTimedOut(messages)))
        m_lost = true;
    throw driverError(number, messages, statement);
}

QString OdbcSession::driver() const
{
    QStringList words;
    for (const SQLUSMALLINT what : {SQL_DRIVER_NAME, SQL_DRIVER_VER}) {
        std::array<SQLWCHAR, 128> text{};
        SQLSMALLINT bytes = 0;
        if (SQL_SUCCEEDED(SQLGetInfoW(m_connection.get(), what, text.data(),
                                      static_cast<SQLSMALLINT>(sizeof text), &bytes)))
            words += fromWide(text.data(), bytes / static_cast<SQLSMALLINT>(sizeof(SQLWCHAR)));
    }
    return words.join(u' ');
}

std::optional<bool> OdbcSession::isDead() const
{
    SQLUINTEGER dead = SQL_CD_FALSE;
    const SQLRETURN code = SQLGetConnectAttrW(m_connection.get(), SQL_ATTR_CONNECTION_DEAD, &dead,
                                              SQL_IS_UINTEGER, nullptr);
    if (!SQL_SUCCEEDED(code))
        return std::nullopt;
    return dead != SQL_CD_FALSE;
}
