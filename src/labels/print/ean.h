#pragma once

#include "paper/bars.h"

#include <QString>

#include <optional>

/// EAN-8 and EAN-13: check digits, and numbers as bar symbols.
namespace ean {

/// The numbers are those the layout's barcode elements use.
enum class Symbology
{
    ean8 = 10,
    ean13 = 13
};

/// The number padded on the left with "0" to 12 digits, followed by its check digit: 13 digits. Of
/// 13 digits the last is replaced. An EAN-8 number is the last 8 characters of the result. Anything
/// but up to 13 digits 0-9 gives "".
QString checkDigit(QStringView digits);

/// The complete number drawn for `data`: 8 or 13 digits with a right check digit stay, 7 or 12
/// digits get theirs. "" for everything else: no scanner would read it.
QString completed(Symbology symbology, QStringView data);

/// The bars of `data`, or nothing when completed() refuses it.
std::optional<BarSymbol> encode(Symbology symbology, QStringView data);

/// Symbology by the length of the data: 8 characters EAN-8, 13 EAN-13, any other length `previous`.
Symbology bySize(QStringView data, Symbology previous);

} // namespace ean
