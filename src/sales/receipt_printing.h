#pragma once

#include "sales/receipt_commands.h"

class Printers;

/// Whether the machine has a printer of exactly that name; printing opens the first one.
bool yaziciseciver(const Printers &printers, const QString &printer);

/// Prints a receipt. The built-in printer gets a page as wide as the paper and as long as the
/// receipt; any other printer keeps the paper its driver is set to. Throws PrintError.
void printReceipt(Printers &printers, const QString &printer, const ReceiptPage &page);
