#pragma once

#include <QStringList>

#include <array>

/// How a block of the receipt is written; kept as an option string "…<>font<>size<>bold".
struct ReceiptStyle
{
    QString carried; ///< field 0: kept, not used by printing
    QString font;
    double points = 9.0; ///< 4 to 72
    bool bold = false;

    friend bool operator==(const ReceiptStyle &, const ReceiptStyle &) = default;
};

/// Missing or unreadable fields take the values of a plain style of 9 points.
ReceiptStyle styleOf(QStringView options);
QString optionString(const ReceiptStyle &style);

/// A text block carries two markers: the pieces between "<*say*>" give the number of lines, the
/// pieces between "<\?\>" are the lines. Lines without a piece are left out, pieces beyond the
/// number of lines are not printed. An empty text has no lines.
QStringList printedLines(const QString &text);

/// The block as the layout dialog shows and takes it: one line per row.
QString editableText(const QString &text);
QString blockText(const QString &editable);

/// What the receipt looks like. Lengths in mm.
struct ReceiptLayout
{
    QString headerOptions;
    QString headerText;
    QString receiptOptions; ///< of the texts above and below the items
    QString aboveText;
    QString belowText;
    QString productOptions; ///< of the product lines and totals
    QString lastNumber;     ///< number of the last receipt
    bool namedFonts = true; ///< false: the printer keeps its own font, sizes and bold still apply
    /// b1 width of the header block, b2 of the receipt's texts, b3 to b6 of the columns name,
    /// quantity, VAT rate and amount, b7 of the paper.
    std::array<double, 7> widths{};
    double leftMargin = 0.0;

    double paperWidth() const;

    friend bool operator==(const ReceiptLayout &, const ReceiptLayout &) = default;
};
