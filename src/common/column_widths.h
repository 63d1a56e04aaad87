#pragma once

#include <QList>
#include <QString>

/// Column widths of a list in pixels, as a file keeps them: "120-90-300".
namespace column_widths {

QString toText(const QList<int> &widths);

/// Empty unless the text holds exactly `columns` widths that a screen can show (10 to 4000,
/// rounded to whole ones): a damaged file must not hide a column.
QList<int> fromText(const QString &text, int columns);

} // namespace column_widths
