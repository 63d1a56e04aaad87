#pragma once

#include "labels/print/ean.h"

#include <QStringList>

#include <optional>

/// New barcode numbers: a base number of 7 or 12 digits that is counted up, followed by its check
/// digit. Twelve digits do not fit 32 bits.
namespace numbering {

/// Digits of a base number: 7 for EAN-8, 12 for EAN-13.
int baseDigits(ean::Symbology symbology);

/// The largest base number, all nines.
qint64 largestBase(ean::Symbology symbology);

/// Names the symbology and its digits: "Ean 8  (7 Karakter)".
QString caption(ean::Symbology symbology);

/// The base to begin with where none was used yet: the first of the numbers that every shop may use
/// for its own goods, and that its scales do not print. `scales`: their prefixes.
QString suggestedBase(ean::Symbology symbology, const QStringList &scales);

/// What a base means for the numbers made from it, for the user; "" when there is nothing to say.
QString rangeHint(ean::Symbology symbology, QStringView base, const QStringList &scales);

/// Key under which the last base number used is remembered: "Ean8".
QString memoryKey(ean::Symbology symbology);

/// Reads a base number as typed: digits, with grouping points anywhere and blanks around. Nothing
/// for any other text, for no text at all and for more digits than the symbology has.
std::optional<qint64> readBase(ean::Symbology symbology, QStringView text);

/// The complete number of a base from 0 to largestBase(): 8 or 13 digits.
QString complete(ean::Symbology symbology, qint64 base);

/// Whether a key typed into the box of the base number comes in: a box that holds as many
/// characters as the symbology has digits takes no more, but grouping points. `key`: the text of
/// the key, "" or a control character for Backspace and all keys that write nothing.
bool takesKey(ean::Symbology symbology, QStringView box, QStringView key);

/// Barcode type of the ledger: "1" for 8 characters, "2" for 13, any other length `previous`.
QString barcodeType(QStringView barcode, const QString &previous);

} // namespace numbering
