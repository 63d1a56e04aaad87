#pragma once

#include "paper/text_block.h"
#include "sales/receipt_layout.h"
#include "sales/sale.h"

/// A finished sale and the number its receipt bears.
struct Receipt
{
    Sale sale;
    QString number;
    bool copy = false; ///< printed again: says so, that nobody takes it for a second sale
};

/// A receipt as plain values, millimetres from the upper left corner of the paper: texts, each in
/// the room of its column.
struct ReceiptPage
{
    double width = 0.0; ///< of the paper
    double length = 0.0;
    std::vector<TextBlock> texts;
};

/// Height of one printed line in mm.
double lineHeight(double points);

ReceiptPage drawReceipt(const ReceiptLayout &layout, const Receipt &receipt);

/// What is drawn of a receipt: the same for paper, PDF and preview. `measure`: of the device.
std::vector<DrawCommand> receiptCommands(const ReceiptPage &page, const TextMeasure &measure);

/// A made-up sale for looking at the layout.
Receipt sampleReceipt(const QDateTime &moment);

/// The page in one line of text per piece, for comparing.
QString toText(const ReceiptPage &page);
