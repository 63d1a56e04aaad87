#include "platform/printing/page_setup.h"
#include "platform/printing/spooler.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <QtPrintSupport/private/qprintengine_win_p.h>
#include <qt_windows.h>

#include <algorithm>
#include <winspool.h>

using namespace Qt::StringLiterals;

namespace {

/// A length in mm as the settings hold it, in tenths; they end at 3.2767 m.
short tenths(double mm)
{
    return static_cast<short>(qRound(std::clamp(mm * 10, 0.0, 32767.0)));
}

/// Numbers of standard sizes go as they are, and so do those a driver gave to papers of its own.
/// Own sizes go as their lengths.
void setPaper(DEVMODEW &mode, const PrinterSetup &setup)
{
    // Lengths or a form of the usual settings would win over the size asked for.
    mode.dmFields &= ~static_cast<DWORD>(DM_PAPERWIDTH | DM_PAPERLENGTH | DM_FORMNAME);
    mode.dmFields |= DM_PAPERSIZE;
    const bool ofDriver = setup.paperCode != 0 && setup.paperCode != DMPAPER_USER &&
                          QPageSize::id(setup.paperCode) == QPageSize::Custom;
    const QPageSize size = pageLayout(setup).pageSize();
    const int standard = ofDriver ? setup.paperCode : size.windowsId();
    mode.dmPaperSize = static_cast<short>(standard != 0 ? standard : DMPAPER_USER);
    if (standard != 0)
        return;
    const QSizeF paper = size.size(QPageSize::Millimeter);
    mode.dmFields |= DM_PAPERWIDTH | DM_PAPERLENGTH;
    mode.dmPaperWidth = tenths(paper.width());
    mode.dmPaperLength = tenths(paper.height());
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
        engine().setGlobalDevMode(nullptr, m_settings.get());
        takeResolution();
        m_printer.setFullPage(false);
        m_printer.setPageMargins(m_printer.pageLayout().minimumMargins(),
                                 m_printer.pageLayout().units());
    }

    QPagedPaintDevice &device() override { return m_printer; }
    /// The toolkit's abort() leaves the job as it is, and its end would print what was painted.
    void cancel() override { AbortDoc(engine().getDC()); }

    void finish() override {} // the end of the painter handed it over

private:
    QWin32PrintEngine &engine() const
    {
        return *static_cast<QWin32PrintEngine *>(m_printer.printEngine());
    }

    /// With new settings the engine goes on in the dots of the old ones; a label would come out in
    /// twice its size where the layout asks for half the printer's usual resolution. Where dots lie
    /// closer in one direction than in the other, painting goes by the wider ones, so that bars
    /// keep whole dots.
    void takeResolution()
    {
        static_cast<QWin32PrintEnginePrivate *>(QPaintEnginePrivate::get(&engine()))->initHDC();
        if (m_printer.physicalDpiX() != m_printer.physicalDpiY())
            m_printer.setResolution(std::min(m_printer.physicalDpiX(), m_printer.physicalDpiY()));
    }

    Settings m_settings; ///< the printer's engine works on it, so it goes after the printer
    QPrinter m_printer;
};

} // namespace

std::unique_ptr<PrintDocument> openSpooled(const QString &printer, const PrinterSetup &setup)
{
    return std::make_unique<SpooledDocument>(printer, setup);
}
