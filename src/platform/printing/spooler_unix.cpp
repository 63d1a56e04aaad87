#include "platform/printing/page_setup.h"
#include "platform/printing/pdf_document.h"
#include "platform/printing/spooler.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWait = 10'000;         ///< milliseconds the print system may take to answer
constexpr int kUsualResolution = 600; ///< dots per inch, of printers that name none

struct Answer
{
    bool good = false;
    QString text;
};

/// Runs one of the print system's commands. A print system that does not answer is given up.
Answer run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(kWait)) {
        const QString why = process.errorString();
        process.kill();
        process.waitForFinished(kWait);
        return {false, why};
    }
    const QString text = QString::fromUtf8(process.readAll()).trimmed();
    return {process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0, text};
}

/// The resolutions a printer offers, as "300dpi" or "600x300dpi"; the chosen one bears a star.
struct Resolutions
{
    QList<int> choices;
    QStringList names;
    int own = kUsualResolution;
};

Resolutions readResolutions(const QString &printer)
{
    static const QRegularExpression option(u"^Resolution/[^:]*:(.*)$"_s,
                                           QRegularExpression::MultilineOption);
    static const QRegularExpression choice(u"(\\*?)((\\d{2,4})(?:x\\d{2,4})?dpi)"_s);
    Resolutions found;
    const Answer answer = run(u"lpoptions"_s, {u"-p"_s, printer, u"-l"_s});
    auto choices = choice.globalMatch(option.match(answer.text).captured(1));
    while (answer.good && choices.hasNext()) {
        const QRegularExpressionMatch one = choices.next();
        found.choices += one.captured(3).toInt();
        found.names += one.captured(2);
        if (!one.captured(1).isEmpty())
            found.own = found.choices.last();
    }
    return found;
}

QString mediaName(const QPageSize &size)
{
    if (size.id() != QPageSize::Custom)
        return size.key();
    const QSizeF mm = size.size(QPageSize::Millimeter);
    return u"Custom.%1x%2mm"_s.arg(mm.width()).arg(mm.height());
}

/// The sheet with the margins the printer cannot print on.
QPageLayout printableLayout(const QString &printer, const PrinterSetup &setup)
{
    QPageLayout layout = pageLayout(setup);
    const QPrinterInfo info = QPrinterInfo::printerInfo(printer);
    if (info.isNull())
        return layout;
    QPrinter device(info, QPrinter::HighResolution);
    device.setPageSize(layout.pageSize());
    device.setPageOrientation(layout.orientation());
    const QPageLayout theirs = device.pageLayout();
    if (!theirs.pageSize().isEquivalentTo(layout.pageSize()))
        return layout;
    layout.setUnits(theirs.units());
    layout.setMode(QPageLayout::StandardMode);
    layout.setMinimumMargins(theirs.minimumMargins());
    layout.setMargins(theirs.minimumMargins());
    return layout;
}

/// Options that carry the setup to the printer. Nothing may scale the page: bars are drawn on the
/// printer's own dots.
QStringList spoolOptions(const PrinterSetup &setup, const Resolutions &resolutions, int resolution)
{
    QStringList options = {u"print-scaling=none"_s};
    if (setup.paperCode != 0 || !setup.paper.isEmpty())
        options += u"media="_s + mediaName(pageLayout(setup).pageSize());
    if (setup.quality < 0)
        options += u"print-quality=%1"_s.arg(setup.quality == -4 ? 5 : setup.quality == -3 ? 4 : 3);
    const qsizetype chosen = resolutions.choices.indexOf(resolution);
    if (chosen >= 0)
        options += u"Resolution="_s + resolutions.names[chosen];
    return options;
}

/// Collects the document as a PDF file and hands it to the print system when it is finished, so
/// that a stopped run leaves nothing in the printer's queue.
class SpooledDocument final : public PrintDocument
{
public:
    SpooledDocument(const QString &printer, const PrinterSetup &setup)
        : m_printer(printer), m_title(setup.document)
    {
        const Resolutions resolutions = readResolutions(printer);
        const int resolution =
            chooseResolution(setup.quality, resolutions.choices, resolutions.own);
        m_options = spoolOptions(setup, resolutions, resolution);
        m_pdf = std::make_unique<PdfDocument>(
            m_directory.path(), u"belge"_s, setup.document,
            PdfDocument::Page{printableLayout(printer, setup), resolution});
    }

    QPagedPaintDevice &device() override { return m_pdf->device(); }

    void finish() override
    {
        m_pdf->finish();
        QStringList arguments = {u"-d"_s, m_printer, u"-t"_s, m_title};
        for (const QString &option : m_options)
            arguments << u"-o"_s << option;
        const Answer answer = run(u"lp"_s, arguments << u"--"_s << m_pdf->path());
        if (!answer.good)
            throw PrintError(u"Yazıcıya gönderilemedi: %1\n%2"_s.arg(m_printer, answer.text));
    }

private:
    QTemporaryDir m_directory;
    QString m_printer;
    QString m_title;
    QStringList m_options;
    std::unique_ptr<PdfDocument> m_pdf;
};

} // namespace

std::unique_ptr<PrintDocument> openSpooled(const QString &printer, const PrinterSetup &setup)
{
    return std::make_unique<SpooledDocument>(printer, setup);
}
