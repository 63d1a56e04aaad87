#include "shell/settings_file.h"

#include "common/host_error.h"
#include "common/program.h"
#include "common/settings_database.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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
          {u"sql", kDemoCompany},
          {u"msql", kDemoMaster}}},
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

/// Whether new rows hold the demo shop's values or empty ones.
enum class Values
{
    demo,
    empty
};

QStringList columnNames(const Table &table)
{
    QStringList names{u"id"_s};
    for (const Column &column : table.columns)
        names += column.name.toString();
    return names;
}

void createTable(LocalDatabase &db, const Table &table)
{
    db.execute(u"create table %1 (%2)"_s.arg(table.name,
                                             columnNames(table).join(u" text,"_s) + u" text"_s));
}

void insertRow(LocalDatabase &db, const Table &table, Values values)
{
    QStringList quoted{u"'1'"_s};
    for (const Column &column : table.columns)
        quoted += values == Values::demo ? u"'%1'"_s.arg(column.value) : u"''"_s;
    db.execute(u"insert into %1 (%2) values (%3)"_s.arg(table.name, columnNames(table).join(u','),
                                                        quoted.join(u',')));
}

/// Adds what is missing; returns whether anything was.
bool complete(LocalDatabase &db, Values values)
{
    bool added = false;
    for (const Table &table : firstRows()) {
        const QString count = u"select count(*) as N from sqlite_master where name='%1'"_s;
        if (db.execute(count.arg(table.name)).number(u"N") == 0) {
            createTable(db, table);
            added = true;
        }
        if (db.execute(u"select id from %1 where id='1'"_s.arg(table.name)).eof()) {
            insertRow(db, table, values);
            added = true;
        }
    }
    return added;
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
        const OpenDatabase open(program.db, unfinished);
        complete(program.db, Values::demo);
    }
    if (!QFile::rename(unfinished, file))
        throw HostError(HostError::kStatement,
                        u"Ayar dosyası oluşturulamadı: %1"_s.arg(QDir::toNativeSeparators(file)));
}

QString repairSettingsFile(Program &program)
{
    const QString file = program.path(settings::kFile);
    const auto repair = [&] {
        const OpenDatabase open(program.db, file);
        return complete(program.db, Values::empty);
    };
    try {
        return repair() ? u"Ayar dosyasında (data.dbs) eksik bölümler vardı; boş olarak eklendi. "
                          "Ayarları denetleyin."_s
                        : QString();
    } catch (const HostError &) {
        if (!QFileInfo(file).isWritable())
            throw;
    }
    const QString kept = file + u".bozuk"_s;
    QFile::remove(kept);
    QFile::rename(file, kept);
    repair();
    return u"Ayar dosyası (data.dbs) okunamadı; data.dbs.bozuk adıyla saklandı ve boş olarak "
           u"yeniden "
           "oluşturuldu. Ayarları yeniden girin."_s;
}
