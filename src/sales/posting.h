#pragma once

#include "sales/posting_log.h"
#include "sales/sale_settings.h"

#include <QStringList>

class Program;

/// How a posting went. A statement that fails does not stop the others and nothing is taken back,
/// so the shop has to know what is missing.
struct PostingResult
{
    int written = 0;      ///< statements that changed the ledger
    int uncertain = 0;    ///< missing records whose answer was lost: they may stand in the ledger
    QStringList counters; ///< counters not read or not advanced and what follows, in Turkish
    QStringList records;  ///< each record that is missing, in Turkish
    bool connectionLost = false;

    qsizetype missing() const { return counters.size() + records.size(); }

    /// False: nothing reached the ledger for certain, the sale may be posted again.
    bool posted() const { return written > 0; }
};

/// Where a posting is; read by whoever is called while the server keeps it waiting.
struct PostingProgress
{
    int step = 0; ///< from 1
    int steps = 0;
};

/// Writes a sale into the host ledger: stock slip and movements, balances, account slip, invoice,
/// account movement, document counters. Grouping points in the sale's amounts are taken off first.
/// Shows a message for a missing document counter; throws nothing of the host.
PostingResult faturakaydet(Program &program, const Settings &settings, const Sale &sale,
                           PostingProgress &progress, PostingLog &log);
PostingResult faturakaydet(Program &program, const Settings &settings, const Sale &sale,
                           PostingProgress &progress);
