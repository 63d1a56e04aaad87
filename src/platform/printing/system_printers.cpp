#include "platform/printing/system_printers.h"

#include "platform/printing/page_setup.h"
#include "platform/printing/pdf_document.h"
#include "platform/printing/spooler.h"

#include <QPageSize>
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

QList<PrinterPaper> SystemPrinters::papers(const QString &name) const
{
    QList<QPageSize> sizes = QPrinterInfo::printerInfo(name).supportedPageSizes();
    if (sizes.isEmpty())
        for (const auto id : {QPageSize::A4, QPageSize::A5, QPageSize::A6, QPageSize::Letter,
                              QPageSize::Legal, QPageSize::EnvelopeDL})
            sizes += QPageSize(id);
    QList<PrinterPaper> papers;
    for (const QPageSize &size : sizes)
        if (size.windowsId() != 0)
            papers += {size.name(), size.windowsId(), size.size(QPageSize::Millimeter)};
    return papers;
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
