#include "labels/designer/designer_session.h"

#include "common/amount.h"
#include "labels/designer/geometry.h"
#include "labels/layout/layout_folder.h"
#include "labels/print/ean.h"
#include "labels/print/label_fields.h"
#include "labels/print/scannability.h"
#include "paper/paged_canvas.h"

#include <QFile>
#include <QPageLayout>
#include <QPagedPaintDevice>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLookAfter = 150;    ///< milliseconds
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
    : QObject(parent), m_program(program), m_files(program), m_pictures(program)
{
    connect(&m_editor, &DesignEditor::statusChanged, this, &DesignerSession::statusChanged);
    connect(&m_copyTimer, &QTimer::timeout, this, &DesignerSession::keepCopy);
    m_copyTimer.start(kCopyEvery);
    m_lookTimer.setSingleShot(true);
    m_lookTimer.setInterval(kLookAfter);
    connect(&m_lookTimer, &QTimer::timeout, this, &DesignerSession::look);
    connect(&m_editor, &DesignEditor::designChanged, &m_lookTimer, qOverload<>(&QTimer::start));
    connect(this, &DesignerSession::rowChanged, &m_lookTimer, qOverload<>(&QTimer::start));
    load(newDesign(), {});
}

QString DesignerSession::title() const
{
    return m_fileName.isEmpty() ? u"Sayfa Tasarımı"_s : u"Sayfa Tasarımı (%1)"_s.arg(m_fileName);
}

void DesignerSession::load(const Design &design, const QString &fileName, bool saved)
{
    m_fileName = fileName;
    m_copied = design;
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
    LayoutFolder folder(m_program);
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
    if (refusedName(name) ||
        (m_files.exists(file) &&
         !m_program.ask(u"Aynı İsimde Ayar Mevcut.Yinede Değiştirilmesini İstiyormusunuz..."_s)))
        return false;
    if (!finishSaving(file))
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
    const bool saved = finishSaving(file);
    if (made && !saved)
        m_files.remove(file);
    return saved;
}

/// Writes the file; what waited for it goes on.
bool DesignerSession::finishSaving(const QString &file)
{
    if (!m_files.save(file, m_editor.design())) {
        m_program.warn(u"Tasarım kaydedilemedi: klasöre yazma izni yok ya da disk dolu.\nEski "
                       u"dosya olduğu gibi duruyor:\n%1"_s.arg(file));
        return false;
    }
    m_fileName = file;
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
    QStringList bound;
    for (const TextElement &text : m_editor.layout().texts)
        if (!text.field.isEmpty() && !bound.contains(text.field))
            bound += text.field;
    m_rows = rows;
    m_row = 0;
    readFields(m_program, bound, m_rows);
    Q_EMIT rowChanged();
}

void DesignerSession::stepRow(int by)
{
    if (m_rows.empty())
        return;
    const auto count = static_cast<std::ptrdiff_t>(m_rows.size());
    m_row = static_cast<std::size_t>((static_cast<std::ptrdiff_t>(m_row) + by + count) % count);
    Q_EMIT rowChanged();
}

LabelRow DesignerSession::row() const
{
    return m_rows.empty() ? sampleLabel(m_editor.layout()) : m_rows[m_row];
}

PrintJob DesignerSession::printJob() const
{
    return makePrintJob(m_editor.layout(),
                        m_rows.empty() ? std::vector{sampleLabel(m_editor.layout())} : m_rows);
}

QString DesignerSession::rowText() const
{
    if (m_rows.empty())
        return u"Örnek değerler"_s;
    return u"%1 / %2"_s.arg(amount::whole(static_cast<qint64>(m_row) + 1),
                            amount::whole(static_cast<qint64>(m_rows.size())));
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

/// Asks the printer by opening a document that is never finished. A printer that is away or does
/// not answer is taken for the usual one.
const PrinterSheet &DesignerSession::sheetOf(const LabelLayout &layout)
{
    const PrinterSetup setup = printerSetup(layout, u"Tasarım"_s);
    if (layout.printer == m_sheetPrinter && setup == m_sheetSetup)
        return m_sheet;
    m_sheetPrinter = layout.printer;
    m_sheetSetup = setup;
    m_sheet = {};
    try {
        const auto document = m_program.printers.open(layout.printer, setup);
        if (!document)
            return m_sheet;
        const QPagedPaintDevice &device = document->device();
        m_sheet.dpi = resolution(device);
        m_sheet.unprintable = device.pageLayout().margins(QPageLayout::Millimeter);
    } catch (const PrintError &) {
        Q_EMIT statusChanged(u"%1 yazıcısı yanıt vermiyor."_s.arg(layout.printer));
    }
    return m_sheet;
}

void DesignerSession::look()
{
    const PrinterSheet before = m_sheet;
    const PrinterSheet &sheet = sheetOf(m_editor.layout());
    if (sheet.dpi != before.dpi || sheet.unprintable != before.unprintable)
        Q_EMIT printerChanged(sheet);
    m_notices = m_checks.look(m_editor.design(), row(), {sheet.dpi, {}, m_pictures.path(), {}});
    Q_EMIT noticesChanged();
}

void DesignerSession::makeReadable()
{
    const QString number = row().barcode;
    const auto symbol = ean::encode(ean::bySize(number, ean::Symbology::ean13), number);
    if (!symbol)
        return;
    const double dpi = sheetOf(m_editor.layout()).dpi.width();
    m_editor.changeEach<BarcodeElement>(u"Okunur boy"_s, 0, [&](BarcodeElement &bars) {
        const QSizeF least = smallestBox(*symbol, bars.font, dpi);
        // Rounded up: a tenth less and the bars would be one dot narrower.
        bars.box.width = std::max(bars.box.width, tenth(least.width() + 0.05));
        bars.box.height = std::max(bars.box.height, tenth(least.height() + 0.05));
    });
}

bool hasRecovery(Program &program)
{
    return DesignFiles(program).copy().has_value();
}
