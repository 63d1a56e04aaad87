#pragma once

#include "sales/sale_settings.h"

#include <QColor>
#include <QFont>

/// How the sale lists are drawn.
struct ListLook
{
    QColor row;       ///< every other row, from the first
    QColor alternate; ///< the rows between
    QColor text;
    QFont font;
};

/// The look the shop chose. A text colour that could not be read on its rows gives way to black or
/// white; sizes are held between 9 and 28 points; unreadable values take plain ones.
ListLook listLook(const Settings &settings);
