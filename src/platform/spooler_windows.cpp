#include "platform/page_setup.h"
#include "platform/spooler.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <QtPrintSupport/private/qprintengine_win_p.h>
#include <qt_windows.h>

#include <algorithm>
#include <winspool.h>

using namespace Qt::StringLiterals;

namespace {

constexpr double kTenthsOfMillimetre = 10.0;

void setPaper(DEVMODEW &mode, const PrinterSetup &setup)
{
    const QPageSize size = pageLayout(setup).pageSize();
    mode.dmFields |= DM_PAPERSIZE;
    mode.dmPaperSize = static_cast<short>(size.windowsId());
    if (size.id() != QPageSize::Custom)
        return;
    const QSizeF paper = size.size(QPageSize::Millimeter) * kTenthsOfMillimetre;
    mode.dmFields |= DM_PAPERWIDTH | DM_PAPERLENGTH;
    mode.dmPaperSize = DMPAPER_USER;
    mode.dmPaperWidth = static_cast<short>(qRound(paper.width()));
    mode.dmPaperLength = static_cast<short>(qRound(paper.height()));
}

/// What the driver is asked for. Paper 0 and quality 0 are the printer's own choice.
void setWishes(DEVMODEW &mode, const PrinterSetup &setup)
{
    mode.dmFields |= DM_ORIENTATION;
    mode.dmOrientation = setup.portrait ? DMORIENT_PORTRAIT : DMORIENT_LANDSCAPE;
    if (setup.paperCode != 0 || !setup.paper.isEmpty())
        setPaper(mode, setup);
    if (setup.quality == 0)
        return;
    // A negative number is a grade, any other one dots per inch in both directions.
    mode.dmPrintQuality = static_cast<short>(setup.quality);
    mode.dmYResolution = static_cast<short>(std::max(setup.quality, 0));
    mode.dmFields |= DM_PRINTQUALITY;
    mode.dmFields &= ~static_cast<DWORD>(DM_YRESOLUTION);
    if (setup.quality > 0)
        mode.dmFields |= DM_YRESOLUTION;
}

struct FreeGlobal
{
    void operator()(HGLOBAL memory) const { GlobalFree(memory); }
};
using Settings = std::unique_ptr<void, FreeGlobal>;

/// The printer's settings with the wishes in them, as far as its driver grants them; null when the
/// printer cannot be opened.
Settings printerSettings(const QString &printer, const PrinterSetup &setup)
{
    std::wstring name = printer.toStdWString();
    HANDLE handle = nullptr;
    if (!OpenPrinterW(name.data(), &handle, nullptr))
        return nullptr;
    const LONG size = DocumentPropertiesW(nullptr, handle, name.data(), nullptr, nullptr, 0);
    Settings settings(size > 0 ? GlobalAlloc(GHND, static_cast<SIZE_T>(size)) : nullptr);
    if (settings) {
        auto *const mode = static_cast<DEVMODEW *>(GlobalLock(settings.get()));
        bool good =
            DocumentPropertiesW(nullptr, handle, name.data(), mode, nullptr, DM_OUT_BUFFER) == IDOK;
        setWishes(*mode, setup);
        good = good && DocumentPropertiesW(nullptr, handle, name.data(), mode, mode,
                                           DM_IN_BUFFER | DM_OUT_BUFFER) == IDOK;
        GlobalUnlock(settings.get());
        if (!good)
            settings.reset();
    }
    ClosePrinter(handle);
    return settings;
}

class SpooledDocument final : public PrintDocument
{
public:
    SpooledDocument(const QString &name, const PrinterSetup &setup)
        : m_settings(printerSettings(name, setup)),
          m_printer(QPrinterInfo::printerInfo(name), QPrinter::HighResolution)
    {
        if (!m_settings || !m_printer.isValid() ||
            m_printer.outputFormat() != QPrinter::NativeFormat)
            throw PrintError(u"Yazıcı açılamadı: %1"_s.arg(name));
        m_printer.setDocName(setup.document);
        auto *const engine = static_cast<QWin32PrintEngine *>(m_printer.printEngine());
        engine->setGlobalDevMode(nullptr, m_settings.get());
        m_printer.setFullPage(false);
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
    Settings m_settings; ///< the printer's engine works on it, so it goes after the printer
    QPrinter m_printer;
};

} // namespace

std::unique_ptr<PrintDocument> openSpooled(const QString &printer, const PrinterSetup &setup)
{
    return std::make_unique<SpooledDocument>(printer, setup);
}
