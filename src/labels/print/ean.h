#pragma once

#include <QString>

#include <optional>
#include <vector>

/// EAN-8 and EAN-13: check digits and the bars of a symbol.
namespace ean {

/// The numbers are those the layout's barcode elements use.
enum class Symbology
{
    ean8 = 10,
    ean13 = 13
};

/// One dark bar, in modules from the first guard bar's left edge.
struct Bar
{
    int start = 0;
    int width = 0;
    bool guard = false; ///< start, centre and end bars reach further down than the others

    friend bool operator==(const Bar &, const Bar &) = default;
};

/// An encoded number, ready to draw. Widths are in modules.
struct Symbol
{
    Symbology symbology = Symbology::ean13;
    QString digits; ///< 8 or 13 digits, check digit included
    std::vector<Bar> bars;

    int modules() const { return symbology == Symbology::ean8 ? 67 : 95; }
    int quietLeft() const { return symbology == Symbology::ean8 ? 7 : 11; }
    int quietRight() const { return 7; }
    int totalModules() const { return quietLeft() + modules() + quietRight(); }

    friend bool operator==(const Symbol &, const Symbol &) = default;
};

/// Guard bars reach this many modules below the others.
inline constexpr int kGuardDepth = 5;

/// The number padded on the left with "0" to 12 digits, followed by its check digit: 13 digits. Of
/// 13 digits the last is replaced. An EAN-8 number is the last 8 characters of the result. Anything
/// but up to 13 digits 0-9 gives "".
QString checkDigit(QStringView digits);

/// The complete number drawn for `data`: 8 or 13 digits with a right check digit stay, 7 or 12
/// digits get theirs. "" for everything else: no scanner would read it.
QString completed(Symbology symbology, QStringView data);

/// The bars of `data`, or nothing when completed() refuses it.
std::optional<Symbol> encode(Symbology symbology, QStringView data);

/// Symbology by the length of the data: 8 characters EAN-8, 13 EAN-13, any other length `previous`.
Symbology bySize(QStringView data, Symbology previous);

} // namespace ean
