#include "common/host_connection.h"
#include "platform/demo/demo_shop.h"
#include "platform/demo/demo_text.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t kRowsPerInsert = 500; // the server takes 1000 at most

QString typeName(const demo::Column &column)
{
    switch (column.type) {
    case demo::Type::integer:
        return u"int"_s;
    case demo::Type::number:
        return u"float"_s;
    case demo::Type::money:
        return u"money"_s;
    case demo::Type::date:
        return u"datetime"_s;
    default:
        return u"varchar(%1) COLLATE Turkish_CI_AS"_s.arg(column.length);
    }
}

QString createTable(const demo::Table &table)
{
    QStringList lines;
    QStringList keys;
    for (const demo::Column &column : table.columns) {
        lines += u"    "_s + column.name + u' ' + typeName(column) +
                 (column.key ? u" NOT NULL"_s : u" NULL"_s);
        if (column.key)
            keys += column.name;
    }
    if (!keys.isEmpty())
        lines += u"    CONSTRAINT PK_%1 PRIMARY KEY NONCLUSTERED (%2)"_s.arg(table.name,
                                                                             keys.join(u", "_s));
    QString text = u"CREATE TABLE %1 (\n%2\n);\n"_s.arg(table.name, lines.join(u",\n"_s));
    for (const QString &column : table.indexes)
        text += u"CREATE INDEX IX_%1_%2 ON %1 (%2);\n"_s.arg(table.name, column);
    return text + u"GO\n"_s;
}

/// One field as a literal that reads the same under any language of the login.
struct Literal
{
    QString operator()(std::monostate) const { return u"NULL"_s; }
    QString operator()(qlonglong number) const { return QString::number(number); }
    QString operator()(double number) const
    {
        return QString::number(number, 'f', QLocale::FloatingPointShortest);
    }
    QString operator()(QDate date) const { return date.toString(u"''yyyyMMdd''"_s); }
    QString operator()(demo::DaysAgo ago) const
    {
        return u"DATEADD(day,DATEDIFF(day,0,GETDATE())-%1,0)"_s.arg(ago.days);
    }
    QString operator()(const QString &text) const
    {
        QString quoted = text;
        return u"N'"_s + quoted.replace(u'\'', u"''"_s) + u'\'';
    }
};

QString insertRows(const demo::Table &table)
{
    QStringList columns;
    for (const demo::Column &column : table.columns)
        columns += column.name;
    QString text;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        QStringList fields;
        for (const demo::Field &field : table.rows[i].fields)
            fields += std::visit(Literal(), field);
        if (i % kRowsPerInsert == 0)
            text += u"INSERT INTO %1 (%2) VALUES\n"_s.arg(table.name, columns.join(u", "_s));
        const bool last = (i + 1) % kRowsPerInsert == 0 || i + 1 == table.rows.size();
        text += u'(' + fields.join(u", "_s) + (last ? u");\nGO\n"_s : u"),\n"_s);
    }
    return text;
}

QString databaseScript(QStringView name, const std::vector<demo::Table> &tables)
{
    QString text = u"IF DB_ID(N'%1') IS NOT NULL\n"
                   "BEGIN\n"
                   "    RAISERROR(N'%1 veritabanı zaten var.', 16, 1);\n"
                   "    SET NOEXEC ON;\n"
                   "END\n"
                   "GO\n"
                   "CREATE DATABASE %1 COLLATE Turkish_CI_AS;\n"
                   "GO\n"
                   "USE %1;\n"
                   "GO\n"_s.arg(name);
    for (const demo::Table &table : tables)
        text += createTable(table) + insertRows(table);
    return text + u"USE master;\nGO\n"_s;
}

} // namespace

QString demoSqlServerScript(const QString &text)
{
    return u"-- Örnek dükkân. Yüklemek için:  sqlcmd -S SUNUCU -f 65001 -i demo.sql\n"
           "-- demo/ klasöründeki metinlerden üretilir; elle değiştirmeyin.\n"
           "SET NOCOUNT ON;\n"
           "GO\n"_s +
           databaseScript(kDemoMaster, demo::readFolder(text + u"/ana"_s)) +
           databaseScript(kDemoCompany, demo::readFolder(text + u"/sirket"_s)) +
           u"SET NOEXEC OFF;\nGO\n"_s;
}
