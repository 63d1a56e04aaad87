#pragma once

#include "sales/ledger_sale.h"

#include <functional>

class CompanyDatabase;

/// Looks in the ledger for a sale that the journal knows nothing of.
namespace sold_search {

struct Found
{
    Sale sale; ///< at the ledger's minute
    ledger::LedgerSale inLedger;
};

/// The till's invoice of the same lines, total and account, from the sale's moment on. `known`: by
/// their numbers, those that the journal has. Throws HostError.
std::optional<Found> find(CompanyDatabase &company, const Settings &settings, const Sale &sale,
                          const std::function<bool(const QString &invoice)> &known);

} // namespace sold_search
