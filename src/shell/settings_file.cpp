#include "shell/settings_file.h"

#include "common/host_error.h"
#include "common/program.h"
#include "common/settings_database.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

struct Column
{
    QStringView name;
    QStringView value;
};

struct Table
{
    QStringView name;
    std::vector<Column> columns;
};

/// The rows of a new shop. Every value is text; readers turn it into what they need.
const std::vector<Table> &firstRows()
{
    static const std::vector<Table> tables = {
        {u"kdv", {{u"kdv", u"20"}}},
        {u"ses", {{u"bulses", u"1"}, {u"bulmases", u"1"}}},
        {u"yazici", {{u"yazici1", u"PDF"}, {u"yazici2", u""}, {u"yazdirma", u"1"}}},
        {u"login", {{u"sifre", u""}}},
        {u"server",
         {{u"kuladi", u""},
          {u"sifre", u""},
          {u"server", kEmbeddedServer},
          {u"sql", u"DEMOSIRKET"},
          {u"msql", u"DEMOANA"}}},
        {u"instan", {{u"insname", u""}, {u"inskullan", u"0"}}},
        {u"stok",
         {{u"br1fytadi", u"PERAKENDE"},
          {u"br2fytadi", u"KOLİ"},
          {u"br1fyt", u"1"},
          {u"br2fyt", u"2"},
          {u"depoadi", u"MAĞAZA"},
          {u"depo", u"01"},
          {u"fytadi", u"PERAKENDE"},
          {u"fiyatip", u"1"},
          {u"cari", u"PERAKENDE MÜŞTERİ"},
          {u"carikod", u"120.00.001"},
          {u"stkfistipadi", u"PERAKENDE SATIŞ ÇIKIŞI"},
          {u"stkfistip", u"3"},
          {u"crfistipadi", u"SATIŞ FATURASI"},
          {u"crfistip", u"4"},
          {u"ftfistipadi", u"PERAKENDE SATIŞ"},
          {u"ftfistip", u"3"}}},
        {u"liste",
         {{u"enust", u"0"},
          {u"tmekran", u"0"},
          {u"winac", u"0"},
          {u"yzrenk", u"0"},
          {u"listrenk", u"16777215<1234>16447985"},
          {u"title", u"TEZGÂH"},
          {u"bold", u"0"},
          {u"font", u"Arial"},
          {u"size", u"14"}}},
        {u"per", {{u"per", u"0"}}},
        {u"olcu", {{u"olcu", u""}}},
    };
    return tables;
}

void createTable(LocalDatabase &db, const Table &table)
{
    QStringList names{u"id"_s};
    QStringList values{u"'1'"_s};
    for (const Column &column : table.columns) {
        names += column.name.toString();
        values += u"'%1'"_s.arg(column.value);
    }
    db.execute(u"create table %1 (%2)"_s.arg(table.name, names.join(u" text,"_s) + u" text"_s));
    db.execute(
        u"insert into %1 (%2) values (%3)"_s.arg(table.name, names.join(u','), values.join(u',')));
}

} // namespace

void createSettingsFile(Program &program)
{
    const QString file = program.path(settings::kFile);
    if (QFile::exists(file))
        return;
    const QString unfinished = file + u".yeni"_s;
    QFile::remove(unfinished);
    {
        OpenDatabase db(program.db, unfinished);
        for (const Table &table : firstRows())
            createTable(program.db, table);
    }
    if (!QFile::rename(unfinished, file))
        throw HostError(HostError::kStatement,
                        u"Ayar dosyası oluşturulamadı: %1"_s.arg(QDir::toNativeSeparators(file)));
}
