#pragma once

#include "sales/receipt_layout.h"
#include "sales/sale.h"

/// A finished sale and the number its receipt bears.
struct Receipt
{
    Sale sale;
    QString number;
};

/// One piece of text on the receipt. Lengths in mm from the upper left corner of the paper.
struct ReceiptText
{
    double x = 0.0;
    double y = 0.0;     ///< upper edge of the line
    double width = 0.0; ///< room to the right; a longer text is written smaller
    QString font;       ///< empty: the printer's own
    double points = 9.0;
    bool bold = false;
    bool mayShorten = false; ///< a text that is still too long may lose its middle
    QString text;
};

/// A receipt as a list of texts: the same for paper, PDF, preview and tests.
struct ReceiptPage
{
    double width = 0.0;  ///< of the paper, mm
    double length = 0.0; ///< mm
    std::vector<ReceiptText> texts;
};

/// Height of one printed line in mm.
double lineHeight(double points);

ReceiptPage drawReceipt(const ReceiptLayout &layout, const Receipt &receipt);

/// A made-up sale for looking at the layout.
Receipt sampleReceipt(const QDateTime &moment);

/// The page in one line of text per piece, for comparing.
QString toText(const ReceiptPage &page);
