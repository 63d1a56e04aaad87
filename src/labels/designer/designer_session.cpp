#include "labels/designer/designer_session.h"

#include "common/amount.h"
#include "labels/designer/readable_bars.h"
#include "labels/layout/layout_folder.h"
#include "labels/print/print_memory.h"
#include "paper/paged_canvas.h"

#include <QFile>
#include <QPageLayout>
#include <QPagedPaintDevice>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLookAfter = 150; ///< milliseconds
constexpr qint64 kLookFor = 8;  ///< milliseconds at a time, half of a screen's picture
constexpr std::size_t kMostSheets = 16;
constexpr int kCopyEvery = 20'000; ///< milliseconds: what a crash may cost
const QString kShippedSheets = u":/dukkan/ayar/kagitlar.csv"_s;
const QString kPickFile = u"Ayar Dosyası Seciniz..."_s;

/// What a new layout begins with: a sheet of 24 labels that every shop can buy.
Design newDesign()
{
    Design design;
    LabelLayout &layout = design.layout;
    layout.paperWidth = u"210"_s;
    layout.paperHeight = u"297"_s;
    layout.ind1 = u"0"_s;
    layout.orientation = u"1"_s;
    layout.ind3 = u"0"_s;
    layout.paperCode = u"9"_s;
    layout.printer = kPdfPrinter.toString();
    layout.quality = u"-4"_s;
    layout.left = u"0"_s;
    layout.top = u"0,5"_s;
    layout.stepX = u"70"_s;
    layout.stepY = u"37"_s;
    layout.across = u"3"_s;
    layout.down = u"8"_s;
    return design;
}

} // namespace

DesignerSession::DesignerSession(Program &program, QObject *parent)
    : QObject(parent), m_program(program),
      m_files(program.keys, program.clock, program.directory()),
      m_pictures(program.prompt, program.directory()), m_samples(program, program.clock),
      m_checks(m_pictures.path())
{
    connect(&m_editor, &DesignEditor::statusChanged, this, &DesignerSession::statusChanged);
    connect(&m_copyTimer, &QTimer::timeout, this, &DesignerSession::keepCopy);
    m_copyTimer.start(kCopyEvery);
    m_lookTimer.setSingleShot(true);
    m_lookTimer.setInterval(kLookAfter);
    connect(&m_lookTimer, &QTimer::timeout, this, &DesignerSession::startLooking);
    connect(&m_lookOn, &QTimer::timeout, this, &DesignerSession::look);
    connect(&m_editor, &DesignEditor::designChanged, this, &DesignerSession::lookSoon);
    connect(this, &DesignerSession::rowChanged, this, &DesignerSession::lookSoon);
    load(newDesign(), {});
}

QString DesignerSession::title() const
{
    return m_fileName.isEmpty() ? u"Sayfa Tasarımı"_s : u"Sayfa Tasarımı (%1)"_s.arg(m_fileName);
}

void DesignerSession::load(const Design &design, const QString &fileName, bool saved)
{
    m_fileName = fileName;
    m_firstPlace = 1;
    m_copied = design;
    m_checks.forgetPictures();
    m_editor.load(design, saved);
    Q_EMIT titleChanged();
    Q_EMIT opened();
}

void DesignerSession::guarded(const std::function<void()> &then)
{
    if (!m_editor.document().isDirty()) {
        m_files.dropCopy();
        return then();
    }
    const QString name = m_fileName.isEmpty() ? u"Yeni tasarım"_s : m_fileName;
    const Answer answer = m_program.prompt.show(
        {u"%1 kaydedilmedi. Kaydedilsin mi?\n\nHAYIR değişikliklerden vazgeçer, Esc tasarıma döner."_s
             .arg(name),
         u"ONAY"_s, 3, 2});
    if (answer == Answer::yes) {
        m_then = then;
        Q_EMIT saveWanted();
    } else if (answer == Answer::no) {
        m_files.dropCopy();
        then();
    }
}

void DesignerSession::newLayout()
{
    guarded([this] { load(newDesign(), {}); });
}

bool DesignerSession::ac(const QString &fileName)
{
    LayoutFolder folder(m_program.keys, m_program.prompt, m_program.directory());
    const QString file = folder.find(fileName);
    if (file.isEmpty()) {
        m_program.prompt.warn(kPickFile, false);
        return false;
    }
    if (!folder.makeReadable(file))
        return false;
    guarded([this, file] { load(m_files.open(file), file); });
    return true;
}

/// Tells the user why a layout cannot bear the name.
bool DesignerSession::refusedName(const QString &name)
{
    const QString problem = nameProblem(name);
    if (!problem.isEmpty())
        m_program.caution(problem);
    return !problem.isEmpty();
}

bool DesignerSession::kaydet(const QString &name, bool makeDefault)
{
    const QString file = layoutFileName(name);
    if (refusedName(name))
        return false;
    const bool there = m_files.exists(file);
    if (there &&
        !m_program.ask(u"Aynı İsimde Ayar Mevcut.Yinede Değiştirilmesini İstiyormusunuz..."_s))
        return false;
    if (!finishSaving(file, there))
        return false;
    if (makeDefault && !setDefaultLayout(m_program.keys, m_program.directory(), file))
        m_program.warn(u"Tasarım kaydedildi, ama varsayılan yapılamadı."_s);
    return true;
}

bool DesignerSession::saveAs(const QString &name)
{
    if (name.trimmed().isEmpty()) {
        m_program.prompt.warn(kPickFile, false);
        return false;
    }
    const QString file = layoutFileName(name);
    if (refusedName(name))
        return false;
    const bool there = m_files.exists(file);
    if (there && !m_program.prompt.confirm(u"Ayar Dosyası Zaten Var.Dosyanın Değiştirilmesini "
                                           u"İstiyormusunuz..."_s))
        return false;
    const bool made = !there && m_files.create(file);
    const bool saved = finishSaving(file, there);
    if (made && !saved)
        m_files.remove(file);
    return saved;
}

/// Writes the file; what waited for it goes on. `there`: a file of that name was there before.
bool DesignerSession::finishSaving(const QString &file, bool there)
{
    if (!m_files.save(file, m_editor.design())) {
        const QString state =
            there ? u"Eski dosya olduğu gibi duruyor"_s : u"Dosya oluşturulmadı"_s;
        m_program.warn(
            u"Tasarım kaydedilemedi: klasöre yazma izni yok ya da disk dolu.\n%1:\n%2"_s.arg(state,
                                                                                             file));
        return false;
    }
    m_fileName = file;
    if (m_firstPlace > 1)
        setFirstPlace(m_firstPlace);
    m_files.dropCopy();
    m_editor.markSaved();
    Q_EMIT titleChanged();
    Q_EMIT statusChanged(u"%1 kaydedildi."_s.arg(file));
    if (const auto then = std::exchange(m_then, nullptr))
        then();
    return true;
}

bool DesignerSession::isDefault() const
{
    return !m_fileName.isEmpty() &&
           defaultLayout(m_program.keys, m_program.directory()) == m_fileName;
}

void DesignerSession::keepCopy()
{
    if (!m_editor.document().isDirty() || m_editor.design() == m_copied)
        return;
    if (m_files.keepCopy(m_fileName, m_editor.design()))
        m_copied = m_editor.design();
}

bool DesignerSession::recover()
{
    const auto found = m_files.copy();
    if (!found)
        return false;
    const QString name = found->name.isEmpty() ? u"yeni bir tasarım"_s : found->name;
    const Answer answer = m_program.prompt.show(
        {u"Program geçen sefer beklenmedik biçimde kapandı. Kaydedilmemiş bir tasarım var:\n%1, "
         u"%2\n\nKurtarılsın mı? HAYIR kopyayı siler."_s.arg(
             name, found->when.toString(u"dd.MM.yyyy HH:mm"_s)),
         u"ONAY"_s, 3, 2});
    if (answer == Answer::no)
        m_files.dropCopy();
    if (answer != Answer::yes)
        return false;
    load(found->design, found->name, false);
    return true;
}

void DesignerSession::setRows(const std::vector<LabelRow> &rows)
{
    m_samples.set(rows);
    m_samples.readFor(m_editor.layout());
    Q_EMIT rowChanged();
}

void DesignerSession::stepRow(int by)
{
    m_samples.step(by);
    Q_EMIT rowChanged();
}

PrintJob DesignerSession::printJob() const
{
    PrintJob job = makePrintJob(m_editor.layout(), m_samples.all(m_editor.layout()));
    job.firstPlace = m_firstPlace;
    return job;
}

qint64 DesignerSession::places() const
{
    return std::max<qint64>(makeSheet(m_editor.layout()).grid.places(), 1);
}

void DesignerSession::setFirstPlace(qint64 place)
{
    m_firstPlace = std::max<qint64>(place, 1);
    if (!m_fileName.isEmpty())
        PrintMemory(m_program.keys, m_program.directory()).setNextPlace(m_fileName, m_firstPlace);
}

std::vector<LabelSheet> DesignerSession::sheets() const
{
    QFile file(sheetFile(m_program.directory()));
    if (!file.exists())
        file.setFileName(kShippedSheets);
    return file.open(QIODevice::ReadOnly) ? readSheets(file.readAll()) : std::vector<LabelSheet>();
}

QList<PrinterPaper> DesignerSession::papers(const QString &printer) const
{
    return m_program.printers.papers(printer);
}

PrinterSheet DesignerSession::sheetOf(const LabelLayout &layout)
{
    const PrinterSetup setup = printerSetup(layout, u"Tasarım"_s);
    const auto known = std::find_if(m_sheets.begin(), m_sheets.end(), [&](const KnownSheet &one) {
        return one.printer == layout.printer && one.setup == setup;
    });
    if (known != m_sheets.end())
        return known->sheet;
    if (m_sheets.size() == kMostSheets)
        m_sheets.erase(m_sheets.begin());
    const PrinterSheet sheet = ask(layout.printer, setup);
    m_sheets.push_back({layout.printer, setup, sheet});
    return sheet;
}

/// Asks the printer by opening a document that is never finished. A printer that is away or does
/// not answer is taken for the usual one.
PrinterSheet DesignerSession::ask(const QString &printer, const PrinterSetup &setup)
{
    PrinterSheet sheet;
    sheet.calibration = PrintMemory(m_program.keys, m_program.directory()).calibration(printer);
    try {
        const auto document = m_program.printers.open(printer, setup);
        if (!document)
            return sheet;
        const QPagedPaintDevice &device = document->device();
        sheet.dpi = resolution(device);
        sheet.unprintable = device.pageLayout().margins(QPageLayout::Millimeter);
        sheet.answered = true;
    } catch (const PrintError &) {
        Q_EMIT statusChanged(u"%1 yazıcısı yanıt vermiyor."_s.arg(printer));
    }
    return sheet;
}

QString DesignerSession::calibrationText(const LabelLayout &layout)
{
    const Calibration set = sheetOf(layout).calibration;
    return set.isNone()
               ? u"Yazıcı ayarı: yapılmamış"_s
               : u"Yazıcı ayarı: sağa %1 mm, aşağı %2 mm, ölçek %%3"_s.arg(
                     amount::plain(set.x), amount::plain(set.y), amount::plain(set.scale * 100));
}

void DesignerSession::printerWasSet()
{
    forgetPrinters();
    m_sheet = sheetOf(m_editor.layout());
    Q_EMIT printerChanged(m_sheet);
    lookSoon();
}

/// What was looked at of a design that has changed meanwhile is worth nothing.
void DesignerSession::lookSoon()
{
    m_lookOn.stop();
    m_lookTimer.start();
}

void DesignerSession::startLooking()
{
    m_program.handle([this] { // a text was bound to something that was not read yet
        if (m_samples.readFor(m_editor.layout()))
            Q_EMIT rowChanged();
    });
    const PrinterSheet sheet = sheetOf(m_editor.layout());
    const PrinterSheet before = std::exchange(m_sheet, sheet);
    if (sheet.dpi != before.dpi || sheet.unprintable != before.unprintable)
        Q_EMIT printerChanged(sheet);
    const QRectF page(QPointF(), makeSheet(m_editor.layout()).paper);
    m_checks.begin(m_editor.design(), row(),
                   {.dpi = sheet.dpi,
                    .area = page.marginsRemoved(sheet.unprintable).size(),
                    .pictures = m_pictures.path(),
                    .calibration = sheet.calibration});
    m_lookOn.start(0);
}

void DesignerSession::look()
{
    if (m_checks.goOn(kLookFor))
        return;
    m_lookOn.stop();
    m_notices = m_checks.take();
    Q_EMIT noticesChanged();
}

QString DesignerSession::overview()
{
    const LabelLayout &layout = m_editor.layout();
    const QSizeF label = m_editor.labelSize();
    return u"Etiket: %1 × %2 mm\nKâğıt: %3 × %4 mm, %5 × %6 etiket\nYazıcı: %7, %8 nokta/inç\n%9"_s
        .arg(amount::plain(label.width()), amount::plain(label.height()), layout.paperWidth,
             layout.paperHeight, layout.across, layout.down, layout.printer,
             amount::whole(qRound(printerDpi())), calibrationText(layout));
}

bool DesignerSession::canMakeReadable()
{
    for (const LabelRef ref : m_editor.changeable()) {
        if (ref.kind != ElementKind::barcode)
            continue;
        const BarcodeElement &bars = m_editor.layout().barcodes[ref.index];
        const LabelBox least = readableBox(bars, row().barcode, printerDpi(), m_editor.labelSize());
        if (least.width > bars.box.width || least.height > bars.box.height)
            return true;
    }
    return false;
}

void DesignerSession::makeReadable()
{
    const QString number = row().barcode;
    m_editor.changeEach<BarcodeElement>(u"Okunur boy"_s, 0, [&](BarcodeElement &bars) {
        bars.box = readableBox(bars, number, printerDpi(), m_editor.labelSize());
    });
}

bool hasRecovery(Program &program)
{
    return DesignFiles(program.keys, program.clock, program.directory()).copy().has_value();
}
