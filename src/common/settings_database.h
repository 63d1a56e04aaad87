#pragma once

#include "common/local_database.h"

class Program;

/// The settings database `data.dbs` of the working folder: one-row tables whose row has the id '1'.
/// Values are text; readers turn them into numbers, flags or colours.
namespace settings {

inline constexpr QStringView kFile = u"data.dbs";

/// "select * from TABLE where id='1'". At eof when the row is missing. Throws HostError.
RecordSet row(OpenDatabase &db, QStringView table);

/// One settings value, "" when the table, row or column cannot be read. Opens and closes the file.
QString value(Program &program, QStringView table, QStringView column);

} // namespace settings
