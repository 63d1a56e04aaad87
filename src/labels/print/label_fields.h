#pragma once

#include "labels/print/label_row.h"

#include <QStringList>

#include <vector>

class Program;
struct LabelLayout;

/// A field that a text of a label can be bound to. Beside these, the name of any column of the
/// stock card (STKKART) is a field, whatever a ledger keeps there.
struct LabelField
{
    QString name;   ///< as key "bl" of a layout holds it
    QString source; ///< where its values come from, for the user
    QString sample; ///< shown where there is no stock
};

inline constexpr QStringView kPriceField = u"Fiyat";

/// All named fields, in the order in which they are offered.
const std::vector<LabelField> &labelFields();

/// Whether a row has a field of that name.
bool isKnownField(QStringView name, const LabelRow &row);

/// A field's value in a row, "" for unknown fields.
QString fieldText(QStringView name, const LabelRow &row);

/// What a shop's label may show, with the sample number of the layout's first barcode.
LabelRow sampleLabel(const LabelLayout &layout);

/// Reads what fields beyond the row's own need of the company database: the stock card, and the
/// price records for the price before discounts. Nothing is asked for fields that need nothing; a
/// stock is asked for once. Throws HostError.
void readFields(Program &program, const QStringList &names, std::vector<LabelRow> &rows);

/// Price of a kilogram, litre or piece, reckoned from the size of the pack in a stock's name:
/// "Zeytin 500 g" at 129,90 → "259,80 TL/kg". "" where it cannot be told.
QString unitPrice(const QString &stockName, const QString &price);
