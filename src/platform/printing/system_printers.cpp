#include "platform/printing/system_printers.h"

#include "platform/printing/page_setup.h"
#include "platform/printing/pdf_document.h"
#include "platform/printing/spooler.h"

#include <QPrinterInfo>

using namespace Qt::StringLiterals;

SystemPrinters::SystemPrinters(const QString &directory, const Clock &clock)
    : m_directory(directory), m_clock(clock)
{}

QStringList SystemPrinters::names() const
{
    QStringList names = QPrinterInfo::availablePrinterNames();
    if (!names.contains(kPdfPrinter))
        names += kPdfPrinter.toString();
    return names;
}

std::unique_ptr<PrintDocument> SystemPrinters::open(const QString &name, const PrinterSetup &setup)
{
    if (QPrinterInfo::availablePrinterNames().contains(name))
        return openSpooled(name, setup);
    if (name != kPdfPrinter)
        return nullptr;
    return std::make_unique<PdfDocument>(m_directory + u"/cikti"_s,
                                         pdfName(setup.document, m_clock.now()), setup.document,
                                         PdfDocument::Page{pageLayout(setup)});
}
