#pragma once

#include "sales/sale.h"
#include "sales/sale_settings.h"

#include <QStringList>

class Program;

/// How a posting went. A statement that fails does not stop the others and nothing is taken back,
/// so the cashier has to know what is missing.
struct PostingResult
{
    int written = 0;       ///< statements that changed the ledger
    int failed = 0;        ///< steps that did not go through
    QStringList documents; ///< which documents they belong to, in Turkish, each once
    bool connectionLost = false;

    /// False: nothing reached the ledger, the sale may be posted again.
    bool posted() const { return written > 0; }
};

/// Writes a sale into the host ledger: stock slip and movements, balances, account slip, invoice,
/// account movement, document counters. Grouping points in the sale's amounts are taken off first.
/// Shows a message for a missing document counter; throws nothing of the host.
PostingResult faturakaydet(Program &program, const SaleSettings &settings, const Sale &sale);
