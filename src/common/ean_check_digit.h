#pragma once

#include <QStringView>

/// The check digit of an EAN number without it: the digits weigh 3 and 1 in turn from the right.
/// Source: GS1 General Specifications, "Standard check digit calculations". 0 to 9; characters
/// that are no digits are the caller's fault.
inline int eanCheckDigit(QStringView digits)
{
    int sum = 0;
    int weight = 3;
    for (qsizetype i = digits.size() - 1; i >= 0; --i) {
        sum += weight * (digits.at(i).unicode() - u'0');
        weight = 4 - weight;
    }
    return (10 - sum % 10) % 10;
}
