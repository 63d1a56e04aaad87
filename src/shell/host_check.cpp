#include "shell/host_check.h"

#include "common/host_connection.h"
#include "common/host_error.h"
#include "common/resume_next.h"

#include <QStringBuilder>

using namespace Qt::StringLiterals;
using host_tables::Database;
using host_tables::Right;
using host_tables::Table;

namespace host_check {

namespace {

QStringList texts(RecordSet rows, QStringView column)
{
    QStringList list;
    for (; !rows.eof(); rows.moveNext())
        list += rows.text(column);
    return list;
}

/// Servers of every age read a list of rows written like this.
QString rowsOf(const QStringList &selects)
{
    return u"select "_s + selects.join(u" union all select "_s);
}

/// The server compares the names itself: whether letters' case counts is a matter of the database.
QString columnsStatement()
{
    QStringList wanted;
    for (const Table *table : host_tables::tablesOf(Database::company))
        for (const QString &column : table->columns)
            wanted += u"'%1' as TABLO,'%2' as SUTUN"_s.arg(table->name, column);
    return u"select W.TABLO,W.SUTUN from (%1) W left join INFORMATION_SCHEMA.COLUMNS C on "
           "C.TABLE_NAME=W.TABLO and C.COLUMN_NAME=W.SUTUN where C.COLUMN_NAME is null"_s.arg(
               rowsOf(wanted));
}

QString rightsStatement(const QStringList &without)
{
    QStringList asked;
    for (const Table *table : host_tables::tablesOf(Database::company))
        if (!without.contains(table->name)) {
            QStringList fields = {u"'%1' as TABLO"_s.arg(table->name),
                                  u"USER_NAME() as KULLANICI"_s};
            for (const Right right : {Right::select, Right::insert, Right::update})
                fields += u"HAS_PERMS_BY_NAME(OBJECT_SCHEMA_NAME(OBJECT_ID('%1'))+'.%1',"
                          "'OBJECT','%2') as R_%2"_s.arg(table->name, host_tables::word(right));
            asked += fields.join(u',');
        }
    return asked.isEmpty() ? QString() : rowsOf(asked);
}

/// A table that the catalogue does not show: looked at as the program does.
void lookDirectly(HostConnection &company, const Table &table, Missing &missing)
{
    try {
        const RecordSet rows = company.execute(u"select * from %1 where 1=0"_s.arg(table.name));
        missing.columns += missingColumns(table, rows.columns());
    } catch (const HostError &error) {
        if (error.connectionLost())
            throw;
        (error.cause() == HostError::Cause::right ? missing.hidden : missing.tables) += table.name;
    }
}

bool containsName(const QStringList &names, const QString &name)
{
    return names.contains(name, Qt::CaseInsensitive);
}

} // namespace

QStringList missingColumns(const Table &table, const QStringList &columns)
{
    QStringList missing;
    for (const QString &column : table.columns)
        if (!containsName(columns, column))
            missing += table.name + u'.' + column;
    return missing;
}

Missing missing(HostConnection &company)
{
    QMap<QString, QStringList> unseen;
    RecordSet rows = company.execute(columnsStatement());
    for (; !rows.eof(); rows.moveNext())
        unseen[rows.text(u"TABLO")] += rows.text(u"SUTUN");

    Missing missing;
    for (const Table *table : host_tables::tablesOf(Database::company)) {
        const QStringList columns = unseen.value(table->name);
        if (columns.size() == table->columns.size())
            lookDirectly(company, *table, missing);
        else
            for (const QString &column : columns)
                missing.columns += table->name + u'.' + column;
    }
    resumeNext([&] {
        const QStringList views = texts(
            company.execute(u"select TABLE_NAME as AD from INFORMATION_SCHEMA.VIEWS"_s), u"AD");
        for (const Table *table : host_tables::tablesOf(Database::company))
            if (table->isWritten() && containsName(views, table->name))
                missing.views += table->name;
    });
    if (!missing.tables.isEmpty())
        resumeNext([&] {
            const QStringList there =
                texts(company.execute(u"select TABLE_NAME as AD from INFORMATION_SCHEMA.TABLES"_s),
                      u"AD");
            for (const QString &table : missing.tables)
                if (containsName(there, table))
                    missing.otherCase += table;
        });
    return missing;
}

Missing missingEmbedded(HostConnection &company)
{
    Missing missing;
    for (const Table *table : host_tables::tablesOf(Database::company))
        lookDirectly(company, *table, missing);
    return missing;
}

Rights rights(HostConnection &company, const QStringList &without)
{
    Rights result;
    const QString statement = rightsStatement(without);
    if (statement.isEmpty())
        return result;
    RecordSet rows = company.execute(statement);
    for (; !rows.eof(); rows.moveNext()) {
        result.user = rows.text(u"KULLANICI");
        const QString table = rows.text(u"TABLO");
        for (const host_tables::TableRight &needed : host_tables::rightsOn(Database::company))
            if (needed.table->name == table &&
                rows.number(u"R_"_s + host_tables::word(needed.right)) != 1.0)
                result.missing.push_back(needed);
    }
    return result;
}

QStringList openableDatabases(HostConnection &server, const QString &table)
{
    const QString holding = u"and OBJECT_ID(QUOTENAME(name)+'..%1') is not null "_s.arg(table);
    return texts(server.execute(u"select name as AD from sys.databases where database_id>4 and "
                                "HAS_DBACCESS(name)=1 " %
                                (table.isEmpty() ? QString() : holding) % u"order by name"),
                 u"AD");
}

QString collationFault(const QString &collation)
{
    const auto has = [&](QStringView part) {
        return collation.contains(part, Qt::CaseInsensitive);
    };
    QStringList faults;
    if (!has(u"_CI"))
        faults += u"Büyük ve küçük harf ayrı sayılıyor: \"süt\" araması \"SÜT\"ü bulmaz."_s;
    if (!has(u"Turkish") && !has(u"CP1254"))
        faults += u"Türkçe değil: i ile İ, ı ile I aynı harf sayılmaz, aramalar eksik bulur; "
                  "yazılan ğ, ş, ı, İ harfleri bozulabilir."_s;
    return faults.join(u'\n');
}

} // namespace host_check
