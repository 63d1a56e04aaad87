#pragma once

#include "sales/ledger_sale.h"

/// Finds the rows of a sale in the ledger, by their reference, line and stock. Other tills draw the
/// same numbers now and then: what is found belongs to the sale only when its figures do.
namespace row_search {

/// Invoices that tills wrote, as a condition on FATFIS.
inline constexpr QStringView kTillInvoices = u"FATFISTIPI='3' AND FATFISSEVNO='999'";

QString statement(const ledger::LedgerSale &sale, const ledger::Record &record);

/// Slips by their document number, where the reference is not known, and the reference of one.
QString byNumber(const ledger::LedgerSale &sale, const ledger::Record &slip);
QString referenceIn(const ledger::Record &slip, const RecordSet &row);

/// Whether the current row of what statement() found is that of the sale.
bool isOurs(const ledger::LedgerSale &sale, const ledger::Record &record, const RecordSet &row);

/// Whether a slip found by its number can be that of the sale: another till may have sold the same
/// under the same number. An invoice tells its minute and its stock slip.
bool tellsSale(const ledger::LedgerSale &sale, const ledger::Record &slip, const RecordSet &row);

/// Whether a slip is a till's, of the sale's day or later: one that may have drawn the same number.
bool isTills(const ledger::LedgerSale &sale, const ledger::Record &slip, const RecordSet &row);

/// "kayıt 48, 07.03.2026 14:5, 52,10": a slip, for whoever looks it up in the ledger.
QString told(const ledger::Record &slip, const RecordSet &row);

/// The highest reference of a document that moved the same stock or account as a figure, as field
/// TOTAL: above the sale's own, somebody else changed the figure since.
QString lastMovement(const ledger::LedgerSale &sale, const ledger::Record &figure);

/// Which of the sale's references lastMovement() is to be held against.
const QString &ownMovement(const ledger::LedgerSale &sale, const ledger::Record &figure);

} // namespace row_search
