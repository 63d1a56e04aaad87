#pragma once

#include "labels/print/label_row.h"

#include <vector>

/// A field that a text of a label can be bound to.
struct LabelField
{
    QString name;   ///< as key "bl" of a layout holds it
    QString source; ///< where its values come from, for the user
    QString sample; ///< shown where there is no stock
    QString LabelRow::*value;
};

inline constexpr QStringView kPriceField = u"Fiyat";

/// All fields there are, in the order in which they are offered.
const std::vector<LabelField> &labelFields();

bool isKnownField(QStringView name);

/// A field's value in a row, "" for unknown fields.
QString fieldText(QStringView name, const LabelRow &row);
