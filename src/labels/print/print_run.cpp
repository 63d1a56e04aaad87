#include "labels/print/print_run.h"

#include "common/amount.h"
#include "labels/print/label_builder.h"
#include "labels/print/label_preview.h"
#include "labels/print/scan_problems.h"
#include "paper/paged_canvas.h"

#include <QFileInfo>
#include <QPagedPaintDevice>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

PrintRun::PrintRun(Program &program, QObject *parent)
    : QObject(parent), m_program(program), m_layouts(program)
{}

QImage PrintRun::preview(const PrintRequest &request, const LabelLayout &layout, QSize most) const
{
    std::vector<LabelRow> first(request.rows.cbegin(),
                                request.rows.cbegin() + (request.rows.empty() ? 0 : 1));
    const PrintJob job = makePrintJob(layout, std::move(first));
    return previewLabel(job, pictureFolder(m_program.directory()), most);
}

QString PrintRun::describe(const LabelLayout &layout)
{
    return u"%1 × %2 etiket · Kâğıt: %3 × %4 mm"_s.arg(layout.across, layout.down,
                                                       layout.paperWidth, layout.paperHeight);
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

bool PrintRun::yazzzz(const PrintRequest &request, const QString &name)
{
    if (m_running)
        return false;
    m_running = true;
    m_slices.start();
    QString error;
    bool printed = false;
    try {
        printed = runDocument(name, request.rows);
    } catch (const std::exception &fault) {
        error = QString::fromUtf8(fault.what());
    }
    m_document.reset();
    m_running = false; // whoever hears of the end may begin the next run
    Q_EMIT finished(printed);
    if (!error.isEmpty())
        m_program.prompt.warn(error, true);
    return printed;
}

bool PrintRun::runDocument(const QString &name, const std::vector<LabelRow> &rows)
{
    const LabelLayout chosen = m_layouts.open(name);
    const PrintJob job = makePrintJob(chosen, rows);
    if (job.labelCount() == 0 || !yazicitamam(chosen, name) || !confirmProblems(job))
        return false;

    paint(job);
    if (m_slices.stopped()) {
        Q_EMIT statusChanged(u"Yazdırma durduruldu, hiçbir etiket yazdırılmadı."_s);
        return false;
    }
    m_document->finish();
    const QString where = chosen.printer == kPdfPrinter ? u"PDF dosyası cikti klasöründe"_s
                                                        : u"yazıcı: %1"_s.arg(chosen.printer);
    Q_EMIT statusChanged(u"%1 etiket yazdırıldı, %2 sayfa; %3."_s.arg(
        amount::whole(job.labelCount()), amount::whole(m_pages), where));
    return true;
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

bool PrintRun::confirmProblems(const PrintJob &job)
{
    if (!job.grid.isCountable() &&
        !m_program.prompt.confirm(
            u"Ayar dosyasında sayfadaki etiket adetleri pozitif tam sayı değil; etiketler "
            u"sayfalara bölünmeden yan yana basılır.\n\nYine de yazdırılsın mı?"_s))
        return false;
    const auto problems = findScanProblems(job, resolution(m_document->device()));
    return problems.empty() || m_program.prompt.confirm(scanQuestion(job, problems));
}

void PrintRun::paint(const PrintJob &job)
{
    PagedCanvas canvas(m_document->device(), pictureFolder(m_program.directory()));
    if (!canvas.begin())
        throw PrintError(u"Yazıcı yazdırmaya başlayamadı. Etiketler listede duruyor."_s);
    bool complete = false;
    const auto cancelled = qScopeGuard([&] {
        if (!complete)
            m_document->cancel();
    });

    const qint64 labels = job.labelCount();
    LabelBuilder builder(job, canvas.fonts());
    GridWalk walk(job.grid);
    m_pages = 1;

    qint64 label = 0;
    for (const LabelRow &row : job.rows) {
        if (row.count < 1)
            continue;
        const BuiltLabel built = builder.label(row);
        for (int copy = 0; copy < row.count; ++copy) {
            const GridWalk::Place place = walk.next();
            if (place.newPage && !canvas.newPage())
                throw PrintError(
                    u"Yazıcı %1. sayfada durdu. Etiketler listede duruyor."_s.arg(place.page));
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
        throw PrintError(u"Yazıcı yazdırmayı bitiremedi. Etiketler listede duruyor."_s);
}
