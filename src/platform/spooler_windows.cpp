#include "platform/page_setup.h"
#include "platform/spooler.h"

#include <QPrinter>
#include <QPrinterInfo>

using namespace Qt::StringLiterals;

namespace {

class SpooledDocument final : public PrintDocument
{
public:
    SpooledDocument(const QString &name, const PrinterSetup &setup)
        : m_printer(QPrinterInfo::printerInfo(name), QPrinter::HighResolution)
    {
        if (!m_printer.isValid())
            throw PrintError(u"Yazıcı açılamadı: %1"_s.arg(name));
        m_printer.setDocName(setup.document);
        m_printer.setResolution(chooseResolution(setup.quality, m_printer.supportedResolutions(),
                                                 m_printer.resolution()));
        m_printer.setFullPage(false);

        // Paper 0 is the printer's own choice.
        const QPageLayout wanted = pageLayout(setup);
        if (setup.paperCode != 0 || !setup.paper.isEmpty())
            m_printer.setPageSize(wanted.pageSize());
        m_printer.setPageOrientation(wanted.orientation());
        m_printer.setPageMargins(m_printer.pageLayout().minimumMargins(),
                                 m_printer.pageLayout().units());
    }

    QPagedPaintDevice &device() override { return m_printer; }
    void cancel() override { m_printer.abort(); }

    void finish() override
    {
        if (m_printer.printerState() == QPrinter::Error)
            throw PrintError(u"Yazıcıya gönderilemedi: %1"_s.arg(m_printer.printerName()));
    }

private:
    QPrinter m_printer;
};

} // namespace

std::unique_ptr<PrintDocument> openSpooled(const QString &printer, const PrinterSetup &setup)
{
    return std::make_unique<SpooledDocument>(printer, setup);
}
