#pragma once

#include "sales/receipt_commands.h"

#include <QSizeF>

QT_BEGIN_NAMESPACE
class QPainter;
class QPagedPaintDevice;
QT_END_NAMESPACE

/// Paints one piece of a receipt. `dpi`: dots per inch of the device, across and down; `top`: the
/// y of the receipt (mm) that lies at the painter's origin.
void paintText(QPainter &painter, const ReceiptText &text, QSizeF dpi, double top);

/// Paints a whole receipt on one page, as a preview does.
void paintReceipt(QPainter &painter, const ReceiptPage &page, QSizeF dpi);

/// Paints a receipt on a printer, with new pages where its paper ends. Returns false when the
/// printer refused to begin or to feed a page.
bool paintReceipt(QPagedPaintDevice &device, const ReceiptPage &page);
