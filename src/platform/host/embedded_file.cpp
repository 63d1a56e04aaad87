#include "platform/host/embedded_file.h"

#include "platform/host/host_values.h"
#include "platform/host/sqlite_file.h"

#include <chrono>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

struct TypeWords
{
    std::string_view declared;
    std::string_view converter; ///< empty: takes what is written
};

TypeWords wordsOf(demo::Type type)
{
    switch (type) {
    case demo::Type::integer:
        return {host_values::kInteger, host_values::kToInteger};
    case demo::Type::number:
        return {host_values::kFloat, host_values::kToFloat};
    case demo::Type::money:
        return {host_values::kMoney, host_values::kToMoney};
    case demo::Type::date:
        return {host_values::kDate, host_values::kToDate};
    default:
        return {host_values::kText, {}};
    }
}

QString word(std::string_view text)
{
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

QString columnClause(const demo::Column &column)
{
    QString clause = column.name + u' ' + word(wordsOf(column.type).declared);
    if (column.type == demo::Type::text)
        clause += u"(%2) COLLATE %3 CONSTRAINT \"%1 en çok %2 karakter\" "
                  "CHECK(length(rtrim(%1)) <= %2)"_s.arg(column.name)
                      .arg(column.length)
                      .arg(word(host_values::kTextOrder));
    if (column.type == demo::Type::date)
        clause += u" COLLATE "_s + word(host_values::kDateOrder);
    return column.key ? clause + u" NOT NULL"_s : clause;
}

QStringList createStatements(const demo::Table &table)
{
    QStringList clauses;
    QStringList keys;
    for (const demo::Column &column : table.columns) {
        clauses += columnClause(column);
        if (column.key)
            keys += column.name;
    }
    if (!keys.isEmpty())
        clauses += u"PRIMARY KEY ("_s + keys.join(u',') + u')';
    QStringList statements = {u"CREATE TABLE %1 (%2)"_s.arg(table.name, clauses.join(u", "_s))};
    for (const QString &column : table.indexes)
        statements += u"CREATE INDEX %1_%2 ON %1 (%2)"_s.arg(table.name, column);
    return statements;
}

/// What a program writes into number and date columns is brought into their type, or refused, as
/// the last step of its own statement.
QString triggerStatements(const demo::Table &table)
{
    QStringList columns;
    QStringList conversions;
    for (const demo::Column &column : table.columns) {
        const QString converter = word(wordsOf(column.type).converter);
        if (converter.isEmpty())
            continue;
        columns += column.name;
        conversions += u"%1=%2(NEW.%1)"_s.arg(column.name, converter);
    }
    if (columns.isEmpty())
        return {};
    return u"CREATE TRIGGER %1_ekle AFTER INSERT ON %1 BEGIN "
           "UPDATE %1 SET %3 WHERE rowid=NEW.rowid; END;"
           "CREATE TRIGGER %1_degis AFTER UPDATE OF %2 ON %1 BEGIN "
           "UPDATE %1 SET %3 WHERE rowid=NEW.rowid; END;"_s.arg(table.name, columns.join(u','),
                                                                conversions.join(u','));
}

/// Puts one field into a parameter of the insert statement.
class Binder
{
public:
    Binder(sqlite3_stmt *statement, int parameter, QDate today)
        : m_statement(statement), m_parameter(parameter), m_today(today)
    {}

    void operator()(std::monostate) const { sqlite3_bind_null(m_statement, m_parameter); }
    void operator()(qlonglong number) const
    {
        sqlite3_bind_int64(m_statement, m_parameter, number);
    }
    void operator()(double number) const { sqlite3_bind_double(m_statement, m_parameter, number); }
    void operator()(QDate date) const { (*this)(date.toString(Qt::ISODate)); }
    void operator()(demo::DaysAgo ago) const { (*this)(m_today.addDays(-ago.days)); }
    void operator()(const QString &text) const
    {
        const QByteArray bytes = text.toUtf8();
        sqlite3_bind_text(m_statement, m_parameter, bytes.constData(),
                          static_cast<int>(bytes.size()),
                          SQLITE_TRANSIENT); // NOLINT: the macro casts an integer
    }

private:
    sqlite3_stmt *m_statement;
    int m_parameter;
    QDate m_today;
};

void insertRows(sqlite3 *database, const demo::Table &table, QDate today)
{
    if (table.rows.empty())
        return;
    const QStringList marks(static_cast<qsizetype>(table.columns.size()), u"?"_s);
    const QString text = u"INSERT INTO %1 VALUES (%2)"_s.arg(table.name, marks.join(u','));
    sqlite3_stmt *prepared = nullptr;
    sqlite3_prepare_v2(database, text.toUtf8().constData(), -1, &prepared, nullptr);
    const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(prepared,
                                                                               sqlite3_finalize);
    for (const demo::Row &row : table.rows) {
        for (std::size_t i = 0; i < row.fields.size(); ++i)
            std::visit(Binder(prepared, static_cast<int>(i) + 1, today), row.fields[i]);
        if (sqlite3_step(prepared) != SQLITE_DONE)
            throw demo::TextError(table.file, row.line,
                                  QString::fromUtf8(sqlite3_errmsg(database)));
        sqlite3_reset(prepared);
    }
}

} // namespace

void writeEmbeddedFile(const QString &path, const std::vector<demo::Table> &tables, QDate today)
{
    SqliteFile file(path, SqliteFile::Mode::createWhenMissing, std::chrono::minutes(10));
    host_values::install(file.handle());
    file.execute(u"PRAGMA journal_mode=MEMORY; BEGIN"_s);
    for (const demo::Table &table : tables)
        for (const QString &statement : createStatements(table))
            file.execute(statement);
    for (const demo::Table &table : tables)
        insertRows(file.handle(), table, today);
    for (const demo::Table &table : tables)
        file.execute(triggerStatements(table));
    // From now on several programs share the file: readers do not wait for a writer.
    file.execute(u"COMMIT"_s);
    file.execute(u"PRAGMA journal_mode=WAL"_s);
}
