#pragma once

#include <QColor>

/// Colours are kept as Windows colour numbers 0x00BBGGRR, in settings and layout files alike.
/// Numbers of system colours (highest bit set) give black: paper knows no desktop theme.
inline QColor colourOf(int number)
{
    if (number < 0)
        return QColor(0, 0, 0);
    return QColor(number & 0xFF, (number >> 8) & 0xFF, (number >> 16) & 0xFF);
}

inline int colourNumber(const QColor &colour)
{
    return colour.red() | (colour.green() << 8) | (colour.blue() << 16);
}
