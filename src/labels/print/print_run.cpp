#include "labels/print/print_run.h"

#include "common/amount.h"
#include "common/host_error.h"
#include "labels/print/label_builder.h"
#include "labels/print/label_fields.h"
#include "labels/print/label_preview.h"
#include "paper/millimetres.h"
#include "paper/paged_canvas.h"

#include <QFileInfo>
#include <QPagedPaintDevice>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kKept = u" Etiketler kuyrukta duruyor."_s;

} // namespace

PrintRun::PrintRun(Program &program, QObject *parent)
    : QObject(parent), m_program(program),
      m_layouts(program.keys, program.prompt, program.directory()),
      m_memory(program.keys, program.directory())
{}

void PrintRun::readFirst(PrintRequest &request, const LabelLayout &layout) const
{
    if (request.rows.empty())
        return;
    std::vector<LabelRow> first{request.rows.front()};
    try {
        readFields(m_program, m_program.clock.now().date(), boundFields(layout), first);
        request.rows.front() = first.front();
    } catch (const HostError &) {
        return;
    }
}

QImage PrintRun::preview(const PrintRequest &request, const LabelLayout &layout, QSize most) const
{
    std::vector<LabelRow> first(request.rows.cbegin(),
                                request.rows.cbegin() + (request.rows.empty() ? 0 : 1));
    const PrintJob job = makePrintJob(layout, std::move(first));
    return previewLabel(job, pictureFolder(m_program.directory()), most);
}

QString PrintRun::describe(const QString &name, const LabelLayout &layout) const
{
    const QString text = u"%1 × %2 etiket · Kâğıt: %3 × %4 mm"_s.arg(
        layout.across, layout.down, layout.paperWidth, layout.paperHeight);
    return m_layouts.isReadable(name)
               ? text
               : text + u"\nDosyanın kodlaması yanlış; yazdırırken düzeltilmesi sorulur."_s;
}

bool PrintRun::requireLayout(const QString &name)
{
    if (m_layouts.names().contains(name))
        return true;
    m_program.prompt.warn(u"Ayar Dosyası Seciniz..."_s, false);
    return false;
}

void PrintRun::start(const PrintRequest &request)
{
    if (m_running || request.rows.empty())
        return;
    m_program.handle([&] {
        const QString name = request.chooseLayout ? QString() : m_layouts.defaultName();
        if (name.isEmpty())
            Q_EMIT layoutWanted(request);
        else
            yazzzz(request, name);
    });
}

/// Runs a step of the run; an error ends the run and is told, in a box and in the status line.
template <typename Step>
bool PrintRun::guarded(Step step)
{
    QString error;
    try {
        return step();
    } catch (const std::exception &fault) {
        error = QString::fromUtf8(fault.what());
    }
    refused(u"Yazdırılamadı: "_s + error.section(u'\n', 0, 0));
    finish(false); // whoever hears of the end may begin the next run
    m_program.prompt.warn(error, true);
    return false;
}

bool PrintRun::finish(bool printed)
{
    m_document.reset();
    m_pending = {};
    m_waiting = false;
    m_running = false;
    Q_EMIT finished(printed);
    return printed;
}

void PrintRun::refused(const QString &why)
{
    Q_EMIT statusChanged(why.endsWith(kKept) ? why : why + kKept);
}

bool PrintRun::yazzzz(const PrintRequest &request, const QString &name)
{
    if (m_running)
        return false;
    m_running = true;
    std::vector<PrintProblem> found;
    const bool ready = guarded([&] {
        if (!prepare(request, name))
            return finish(false);
        found = problems();
        return true;
    });
    if (!ready)
        return false;
    m_pending.problemKey = layoutProblemKey(found);
    const bool onlyLayout = std::all_of(found.cbegin(), found.cend(),
                                        [](const PrintProblem &one) { return one.ofLayout; });
    if (found.empty() || (onlyLayout && m_memory.isAccepted(name, m_pending.problemKey)))
        return printPending();
    m_waiting = true;
    Q_EMIT problemsFound(found);
    return false;
}

void PrintRun::answer(bool print, bool remember)
{
    if (!std::exchange(m_waiting, false))
        return;
    if (remember)
        m_memory.accept(m_pending.layout, m_pending.problemKey);
    if (print) {
        printPending();
        return;
    }
    refused(u"Vazgeçildi, hiçbir etiket yazdırılmadı."_s);
    finish(false);
}

void PrintRun::stop()
{
    m_slices.stop();
    answer(false);
}

bool PrintRun::prepare(const PrintRequest &request, const QString &name)
{
    const bool gone = m_layouts.find(name).isEmpty();
    if (!gone && !m_layouts.makeReadable(name)) {
        refused(u"Yazdırılmadı: “%1” tasarımı okunamıyor."_s.arg(name));
        return false;
    }
    const LabelLayout chosen = m_layouts.open(name);
    m_pending = {name, chosen.printer, makePrintJob(chosen, request.rows), {}};
    readFields(m_program, m_program.clock.now().date(), boundFields(chosen), m_pending.job.rows);
    m_pending.job.firstPlace = request.firstPlace;
    if (m_pending.job.labelCount() == 0)
        return false;
    if (yazicitamam(chosen, name))
        return true;
    refused(gone ? u"Yazdırılmadı: “%1” tasarımının dosyası ayar klasöründe yok."_s.arg(name)
                 : u"Yazdırılmadı: “%1” yazıcısı bu bilgisayarda yok."_s.arg(chosen.printer));
    return false;
}

std::vector<PrintProblem> PrintRun::problems() const
{
    const QPagedPaintDevice &device = m_document->device();
    const QSizeF dpi = resolution(device);
    const QPointF reach = toMillimetres(
        {static_cast<double>(device.width()), static_cast<double>(device.height())}, dpi);
    return findPrintProblems(m_pending.job,
                             {.dpi = dpi,
                              .area = {reach.x(), reach.y()},
                              .pictures = pictureFolder(m_program.directory()),
                              .calibration = m_memory.calibration(m_pending.printer)});
}

bool PrintRun::printPending()
{
    m_slices.start();
    return guarded([this] {
        paint(m_pending.job);
        if (m_slices.stopped()) {
            refused(u"Yazdırma durduruldu, hiçbir etiket yazdırılmadı."_s);
            return finish(false);
        }
        m_document->finish();
        m_memory.setNextPlace(m_pending.layout, m_pending.job.placeAfter());
        const QString where = m_pending.printer == kPdfPrinter
                                  ? u"PDF dosyası cikti klasöründe"_s
                                  : u"yazıcı: %1"_s.arg(m_pending.printer);
        Q_EMIT statusChanged(u"%1 etiket yazdırıldı, %2 sayfa; %3."_s.arg(
            amount::whole(m_pending.job.labelCount()), amount::whole(m_pages), where));
        return finish(true);
    });
}

bool PrintRun::yazicitamam(const LabelLayout &chosen, const QString &name)
{
    const PrinterSetup setup =
        printerSetup(chosen, u"Etiket "_s + QFileInfo(name).completeBaseName());
    if (yaziciseciver(chosen.printer, setup))
        return true;
    m_program.prompt.warn(u"Yazici Hatası,Doğru Yazıcı Seçimi Yapınız..."_s, true);
    return false;
}

bool PrintRun::yaziciseciver(const QString &device, const PrinterSetup &setup)
{
    m_document = m_program.printers.open(device, setup);
    return m_document != nullptr;
}

void PrintRun::paint(const PrintJob &job)
{
    PagedCanvas canvas(m_document->device(), pictureFolder(m_program.directory()),
                       m_memory.calibration(m_pending.printer));
    if (!canvas.begin())
        throw PrintError(u"Yazıcı yazdırmaya başlayamadı."_s + kKept);
    bool complete = false;
    const auto cancelled = qScopeGuard([&] {
        if (!complete)
            m_document->cancel();
    });

    const qint64 labels = job.labelCount();
    LabelBuilder builder(job, canvas.fonts());
    GridWalk walk(job.grid, job.firstPlace);
    m_pages = 1;

    qint64 label = 0;
    for (const LabelRow &row : job.rows) {
        if (row.count < 1)
            continue;
        const BuiltLabel built = builder.label(row);
        for (int copy = 0; copy < row.count; ++copy) {
            const GridWalk::Place place = walk.next();
            if (place.newPage && !canvas.newPage())
                throw PrintError(u"Yazıcı %1. sayfada durdu."_s.arg(place.page) + kKept);
            if (copy == 0)
                Q_EMIT rowStarted(row.queueRow);
            m_pages = place.page;
            canvas.paint(built.commands,
                         {static_cast<double>(place.x), static_cast<double>(place.y)});
            ++label;
            if (!m_slices.goOn([&] { Q_EMIT progressed(label, labels, place.page); }))
                return;
        }
    }
    complete = canvas.end();
    if (!complete)
        throw PrintError(u"Yazıcı yazdırmayı bitiremedi."_s + kKept);
}
