#pragma once

#include <QColor>

/// Colours are kept as Windows colour numbers 0x00BBGGRR, in settings and layout files alike.
inline QColor colourOf(int number)
{
    return QColor(number & 0xFF, (number >> 8) & 0xFF, (number >> 16) & 0xFF);
}

inline int colourNumber(const QColor &colour)
{
    return colour.red() | (colour.green() << 8) | (colour.blue() << 16);
}
