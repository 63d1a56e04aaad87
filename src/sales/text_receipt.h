#pragma once

#include "sales/receipt_commands.h"

/// Plain text on the receipt printer's paper, wrapped at words. Long texts grow longer, not
/// smaller.
ReceiptPage drawText(const ReceiptLayout &layout, const QString &text);
