#pragma once

#include <QStringList>

#include <vector>

/// Tables as text, one row a line, as spreadsheets and hand terminals write them.
namespace csv {

/// A line of fields between semicolons; a field that holds one, a quote or a line end is quoted.
QString line(const QStringList &fields);

/// A line and where it began, counted from 1.
struct Line
{
    int number = 0;
    QStringList fields;
};

/// The lines of a text that are not empty. Between the fields stands a semicolon, else a tab, else
/// a comma, whichever a line has; fields lose the blanks around them and their quotes.
std::vector<Line> read(const QString &text);

/// The text of a file: UTF-8, or code page 1254 where it is none.
QString decode(const QByteArray &bytes);

} // namespace csv
