#pragma once

#include "common/settings.h"

#include <span>

/// The local files of the working folder, one-row tables whose row has the id '1'.
enum class LocalFile
{
    settings, ///< data.dbs
    receipt,  ///< Fis.dbs
};

/// Who writes a setting.
enum class SettingWriter
{
    dialog, ///< the settings dialog, or the receipt's
    setup,  ///< what a sale is booked on: written by the set-up alone
    till,   ///< the sale form while it works
};

/// One column of a local file. A file is made, completed, read and written by these rows: a new
/// setting is one row here, one member of Settings and one control.
struct SettingRow
{
    LocalFile file;
    QStringView table;
    QStringView column;
    QStringView first;                           ///< in a new shop
    QStringView design;                          ///< where a shop's file lacks it
    SettingPlace (*place)(Settings &) = nullptr; ///< none: not read back
    SettingWriter writer = SettingWriter::dialog;
    QStringView after = u","; ///< between this pair and the next of an update
};

/// In the order in which the tables and their columns are made and written.
std::span<const SettingRow> settingRows();

/// The rows of one file and table.
std::span<const SettingRow> settingRows(LocalFile file, QStringView table);

/// The tables of a file, in their order.
QList<QStringView> settingTables(LocalFile file);
