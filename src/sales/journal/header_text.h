#pragma once

#include "sales/ledger_sale.h"

/// What the statements of a posting share, as one text of the journal.
namespace header_text {

QString of(const ledger::LedgerSale &sale);
void read(const QString &text, ledger::Header &header, std::array<ledger::Drawn, 3> &counters);

} // namespace header_text
