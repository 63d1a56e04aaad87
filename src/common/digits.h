#pragma once

#include <QStringView>

#include <algorithm>

/// One of the digits 0 to 9; Unicode has others, which no scanner sends and no ledger keeps.
inline bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// Whether a text holds nothing but digits; an empty one does.
inline bool areDigits(QStringView text)
{
    return std::all_of(text.cbegin(), text.cend(), isDigit);
}
