#pragma once

#include "labels/layout/label_layout.h"

#include <QPointF>
#include <QSizeF>

/// A sheet or roll of labels as it is sold. Millimetres.
struct LabelSheet
{
    QString name;
    QSizeF paper;
    int across = 1;
    int down = 1;
    QSizeF label;
    QPointF first; ///< upper left corner of the first label, from the paper's
    QPointF step;  ///< from one label to the next

    friend bool operator==(const LabelSheet &, const LabelSheet &) = default;
};

/// Reads a list of sheets, one a line, divided by ";": paper width; paper height; across; down;
/// label width; label height; left; top; step x; step y; name. Decimal comma or point; lines that
/// begin with "#" and lines that make no sheet are passed over. UTF-8, so that any editor will do.
std::vector<LabelSheet> readSheets(const QByteArray &text);

/// Where the list lies; a shop adds lines of its own. `directory`: the working folder.
QString sheetFile(const QString &directory);

/// Puts a sheet's paper and six label values into a layout. `reach`: what the printer cannot print
/// on left and above (mm): labels count from where it begins to print.
void useSheet(LabelLayout *layout, const LabelSheet &sheet, QPointF reach = {});
