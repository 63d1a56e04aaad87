#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include <stdexcept>
#include <variant>
#include <vector>

/// The demo shop as text that anyone can edit. A folder is one database: `sema.txt` lists its
/// tables, `TABLE.txt` holds the rows of one. Lines that start with "#" and empty lines do not
/// count.
///
///     tablo STKKART                     STKKOD|STKCINSI|STKFIYAT|STKTARIH
///         STKKOD metin(30) anahtar      0001|Süt 1 lt|32,50|bugün-3
///         STKCINSI metin(60)            0002|Ekmek||24.12.2025
///         STKFIYAT para
///         STKTARIH tarih
///         dizin STKCINSI
namespace demo {

enum class Type
{
    text,
    integer,
    number,
    money,
    date
};

struct Column
{
    QString name;
    Type type = Type::text;
    int length = 0; ///< characters, of text
    bool key = false;
};

/// A date counted back from the day the database is made.
struct DaysAgo
{
    int days = 0;
};

using Field = std::variant<std::monostate, QString, qlonglong, double, QDate, DaysAgo>;

struct Row
{
    int line = 0;
    std::vector<Field> fields; ///< one for each column of the table; no value: null
};

struct Table
{
    QString name;
    std::vector<Column> columns;
    QStringList indexes; ///< columns that are searched by
    QString file;        ///< where the rows came from
    std::vector<Row> rows;
};

/// A line that cannot be read; the text names file and line.
class TextError : public std::runtime_error
{
public:
    TextError(const QString &file, int line, const QString &what);
};

/// The tables of a `sema.txt`, without rows. `file`: the name for errors. Throws TextError.
std::vector<Table> readSchema(const QByteArray &text, const QString &file);

/// Adds the rows of a table's own file: the first line names columns of the table, the fields of
/// the others are joined by "|" and not trimmed. An empty field is an empty text, or null in the
/// other types; so is a column that is not named. Throws TextError.
void readRows(Table &table, const QByteArray &text, const QString &file);

/// A whole folder; tables without a file stay empty. Throws TextError.
std::vector<Table> readFolder(const QString &folder);

} // namespace demo
