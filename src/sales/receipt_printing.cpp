#include "sales/receipt_printing.h"

#include "common/printers.h"
#include "paper/paged_canvas.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kOwnPaper = 256; ///< paper number that means "the given size"

PrinterSetup setupFor(const QString &printer, const ReceiptPage &page)
{
    PrinterSetup setup;
    setup.document = u"Fiş"_s;
    if (printer == kPdfPrinter) {
        setup.paperCode = kOwnPaper;
        setup.paper = QSizeF(page.width, page.length);
    }
    return setup;
}

} // namespace

bool yaziciseciver(const Printers &printers, const QString &printer)
{
    return !printer.isEmpty() && printers.names().contains(printer);
}

void printReceipt(Printers &printers, const QString &printer, const ReceiptPage &page)
{
    const auto document = printers.open(printer, setupFor(printer, page));
    if (!document)
        throw PrintError(u"\"%1\" adlı yazıcı bulunamadı."_s.arg(printer));
    PagedCanvas canvas(document->device());
    if (!canvas.begin() || !canvas.paintStrip(receiptCommands(page, canvas.fonts())) ||
        !canvas.end())
        throw PrintError(u"\"%1\" yazıcısı yazdırmayı kabul etmedi."_s.arg(printer));
    document->finish();
}
