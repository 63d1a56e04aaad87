#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// What the program reads and writes in the host's two databases. The diagnosis of a connection and
/// the guide's list of database rights are made from this table, and a test holds it against the
/// statements: who sends a new one adds what it needs here.
namespace host_tables {

enum class Database
{
    master, ///< shared by the companies of the accounting system
    company
};

enum class Right
{
    select,
    insert,
    update
};

/// Who needs a right. A machine that only prints labels does with those of the labels.
enum class Use
{
    labels,
    numbers, ///< new barcode numbers
    sales
};

struct Grant
{
    Right right;
    Use use;
};

struct Table
{
    Database database;
    QString name;
    std::vector<Grant> grants;
    QStringList columns;

    bool needs(Right right) const;
    bool isWritten() const { return needs(Right::insert) || needs(Right::update); }
};

const std::vector<Table> &all();
std::vector<const Table *> tablesOf(Database database);

/// "SELECT", "INSERT" or "UPDATE".
QString word(Right right);

/// One right on one table.
struct TableRight
{
    const Table *table = nullptr;
    Right right = Right::select;
    Use use = Use::labels;
};

/// Every right on the tables of a database.
std::vector<TableRight> rightsOn(Database database);

/// "GRANT SELECT, INSERT ON STKBARKOD TO [user];", one line per table.
QStringList grantStatements(const std::vector<TableRight> &rights, const QString &user);

/// The statements that let a login into a database and grant it every right there, by who needs it.
QStringList databaseScript(Database database, const QString &name, const QString &user);

/// A name between brackets, as statements take any.
QString quotedName(QString name);

} // namespace host_tables
