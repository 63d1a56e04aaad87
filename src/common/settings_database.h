#pragma once

#include "common/local_database.h"
#include "common/settings_table.h"

#include <QHash>

#include <functional>

/// The local files `data.dbs` (settings) and `Fis.dbs` (receipt layout) of the working folder. All
/// that is made, completed, read and written of them goes by the rows of settings_table.h.
namespace settings {

inline constexpr QStringView kFile = u"data.dbs";
inline constexpr QStringView kReceiptFile = u"Fis.dbs";

/// Which values new rows get.
enum class Fill
{
    first, ///< of a new shop
    design ///< nothing is invented for a shop that had its own
};

/// Makes the tables, rows and columns that the file lacks; returns whether there were any. Throws
/// HostError.
bool complete(OpenDatabase &db, LocalFile file, Fill fill);

/// Reads tables of `data.dbs` in this order, each with "select * from TABLE where id='1'";
/// settingTables() names all there are. What cannot be read keeps its value.
using Tables = QList<QStringView>;
void read(OpenDatabase &db, const Tables &tables, Settings &into);

/// The same, opening and closing the file.
void read(const LocalFiles &files, const Tables &tables, Settings &into);

/// Freshly read; the design values where they cannot be.
Settings read(const LocalFiles &files, const Tables &tables);

/// "table.column" → stored text.
using Texts = QHash<QString, QString>;
QString nameOf(const SettingRow &row);

/// Where "table.column" of `data.dbs` stands; the name is one of the table's.
SettingPlace placeOf(Settings &settings, QStringView name);

/// Reads one table of a file. Texts of columns that cannot be read stay as they are; returns
/// whether there were none.
bool readTexts(OpenDatabase &db, LocalFile file, QStringView table, Texts &texts);

/// The texts of a file where it lacks them.
Texts designTexts(LocalFile file);

/// "Update TABLE set …" for each table in which `writer` writes, `text` being what is stored of a
/// row. The values go between single quotes as they are.
QStringList updates(LocalFile file, SettingWriter writer,
                    const std::function<QString(const SettingRow &)> &text);
QStringList updates(const Settings &from, SettingWriter writer);

/// Whether what was typed is the settings password; it is stored in capitals.
bool isPassword(const QString &stored, const QString &typed);

} // namespace settings
