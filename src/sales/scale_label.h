#pragma once

#include <QString>

#include <optional>
#include <vector>

class KeyFile;

/// How a weighing scale of the shop builds the 13 digits of its labels: prefix, item, digits that
/// say nothing, weight or price, check digit. Scales are set up differently from shop to shop.
struct ScaleRule
{
    QString prefix;
    int itemDigits = 5;
    int skippedDigits = 0; ///< between item and value: some scales check the price there
    int valueDigits = 5;
    int decimals = 3;        ///< of the value: 3 for grams, 2 for kuruş
    bool pricesItem = false; ///< the value is the price of the pack, not its weight
    bool namesStock = false; ///< the item digits are a stock code, not part of a barcode
    bool withPrefix = true;  ///< the prefix belongs to the code that is looked for
};

/// What a scale label says.
struct ScaleLabel
{
    QString code;                 ///< of the item
    bool isStockCode = false;     ///< else one of its barcodes
    std::optional<double> weight; ///< in the unit of the item's price
    std::optional<double> price;  ///< lira, of the whole pack
    QString fault;                ///< why it cannot be read, in Turkish; empty: it can
};

/// The rules of the key file `terazi.zev`: section "terazi", key "onekler" names the prefixes; each
/// has a section of its own with the keys "urun", "atla", "deger", "ondalik", "tur" (agirlik,
/// fiyat), "kod" (barkod, stok) and "onekli". A file without prefixes: 27, 28 and 29, five digits
/// of item, five of grams, the item known by the barcode of prefix and item digits.
std::vector<ScaleRule> readScaleRules(KeyFile &keys, const QString &file);

/// Takes a code apart; nothing when it is none of a scale's.
std::optional<ScaleLabel> readScaleLabel(const std::vector<ScaleRule> &rules, const QString &code);
