#include "common/settings_database.h"

#include "common/host_error.h"
#include "common/resume_next.h"
#include "common/turkish.h"

#include <QStringBuilder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace settings {

namespace {

QString valueOf(const SettingRow &row, Fill fill)
{
    return (fill == Fill::first ? row.first : row.design).toString();
}

bool hasTable(OpenDatabase &db, QStringView table)
{
    const QString count = u"select count(*) as N from sqlite_master where name='%1'"_s;
    return db.execute(count.arg(table)).number(u"N") != 0;
}

QStringList columnsOf(OpenDatabase &db, QStringView table)
{
    QStringList columns;
    for (RecordSet info = db.execute(u"PRAGMA table_info(%1)"_s.arg(table)); !info.eof();
         info.moveNext())
        columns += info.text(u"name").toLower();
    return columns;
}

/// The columns of a table with their values, the key first.
std::vector<std::pair<QString, QString>> wanted(LocalFile file, QStringView table, Fill fill)
{
    std::vector<std::pair<QString, QString>> columns{{u"id"_s, u"1"_s}};
    for (const SettingRow &row : settingRows(file, table))
        columns.emplace_back(row.column.toString(), valueOf(row, fill));
    return columns;
}

bool completeTable(OpenDatabase &db, LocalFile file, QStringView table, Fill fill)
{
    const auto columns = wanted(file, table, fill);
    QStringList names;
    QStringList values;
    for (const auto &[name, value] : columns) {
        names += name;
        values += value;
    }
    bool added = false;
    if (!hasTable(db, table)) {
        db.execute(u"create table %1 (%2 text)"_s.arg(table, names.join(u" text,"_s)));
        added = true;
    }
    const QStringList there = columnsOf(db, table);
    for (const auto &[name, value] : columns)
        if (!there.contains(name)) {
            db.execute(u"alter table %1 add %2 text default '%3'"_s.arg(table, name, value));
            added = true;
        }
    if (db.execute(u"select id from %1 where id='1'"_s.arg(table)).eof()) {
        db.execute(u"insert into %1 (%2) values ('%3')"_s.arg(table, names.join(u','),
                                                              values.join(u"','"_s)));
        added = true;
    }
    return added;
}

} // namespace

bool complete(OpenDatabase &db, LocalFile file, Fill fill)
{
    db.execute(u"begin immediate"_s); // at once, or a power cut leaves the half of it
    bool added = false;
    try {
        for (const QStringView table : settingTables(file))
            added |= completeTable(db, file, table, fill);
    } catch (const HostError &) {
        resumeNext([&] { db.execute(u"rollback"_s); });
        throw;
    }
    db.execute(u"commit"_s);
    return added;
}

QString nameOf(const SettingRow &row)
{
    return row.table % u'.' % row.column;
}

SettingPlace placeOf(Settings &settings, QStringView name)
{
    const auto rows = settingRows();
    const auto row = std::ranges::find_if(
        rows, [&](const SettingRow &one) { return one.place && nameOf(one) == name; });
    Q_ASSERT(row != rows.end());
    return row->place(settings);
}

bool readTexts(OpenDatabase &db, LocalFile file, QStringView table, Texts &texts)
{
    RecordSet record;
    bool all =
        resumeNext([&] { record = db.execute(u"select * from %1 where id='1'"_s.arg(table)); });
    for (const SettingRow &row : settingRows(file, table))
        all &= resumeNext([&] { texts[nameOf(row)] = record.text(row.column); });
    return all;
}

Texts designTexts(LocalFile file)
{
    Texts texts;
    for (const QStringView table : settingTables(file))
        for (const SettingRow &row : settingRows(file, table))
            texts.insert(nameOf(row), row.design.toString());
    return texts;
}

void read(OpenDatabase &db, const Tables &tables, Settings &into)
{
    for (const QStringView table : tables) {
        Texts texts;
        readTexts(db, LocalFile::settings, table, texts);
        for (const SettingRow &row : settingRows(LocalFile::settings, table))
            if (row.place && texts.contains(nameOf(row)))
                takeStored(row.place(into), texts.value(nameOf(row)));
    }
}

void read(const LocalFiles &files, const Tables &tables, Settings &into)
{
    resumeNext([&] {
        OpenDatabase db(files, kFile);
        read(db, tables, into);
    });
}

Settings read(const LocalFiles &files, const Tables &tables)
{
    Settings settings;
    read(files, tables, settings);
    return settings;
}

QStringList updates(LocalFile file, SettingWriter writer,
                    const std::function<QString(const SettingRow &)> &text)
{
    QStringList statements;
    for (const QStringView table : settingTables(file)) {
        QString pairs;
        QStringView after;
        for (const SettingRow &row : settingRows(file, table)) {
            if (row.writer != writer)
                continue;
            pairs += after % row.column % u" = '" % text(row) % u'\'';
            after = row.after;
        }
        if (!pairs.isEmpty())
            statements += u"Update " % table % u" set " % pairs % u" Where id ='1'";
    }
    return statements;
}

QStringList updates(const Settings &from, SettingWriter writer)
{
    Settings values = from;
    return updates(LocalFile::settings, writer, [&](const SettingRow &row) {
        return row.place ? storedText(row.place(values)) : row.design.toString();
    });
}

bool isPassword(const QString &stored, const QString &typed)
{
    return turkish::upper(typed) == stored;
}

} // namespace settings
