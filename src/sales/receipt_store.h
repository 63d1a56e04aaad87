#pragma once

#include "common/local_database.h"
#include "sales/receipt_layout.h"

/// The receipt layout database `Fis.dbs` of the working folder: one-row tables like those of the
/// settings database.
namespace receipt_store {

/// The layout of a shop that has made none of its own.
ReceiptLayout designLayout();

/// Reads the layout. Tables, rows and columns that are missing are made with the design values: a
/// decent receipt on paper 80 mm wide; what cannot be read at all has them too.
ReceiptLayout fisoku(const LocalFiles &files);

/// Writes everything but the receipt counter. Apostrophes in texts become the typographic ’, which
/// the quoted statements can carry. Throws HostError when a statement is refused; the rows before
/// it are then saved.
void save(const LocalFiles &files, const ReceiptLayout &layout);

/// Writes the receipt counter; returns false when the file refused.
bool saveNumber(const LocalFiles &files, const QString &number);

} // namespace receipt_store
