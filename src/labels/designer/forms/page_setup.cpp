#include "labels/designer/forms/page_setup.h"

#include "common/amount.h"
#include "labels/designer/designer_session.h"
#include "labels/designer/forms/measure_dialog.h"
#include "labels/designer/label_size.h"
#include "labels/designer/page_values.h"
#include "ui_page_setup.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostPlaces = 2000;
constexpr int kOwnSize = 256; ///< Windows paper number of sizes that have none
const QString kPortrait = u"1"_s;
const QString kLandscape = u"2"_s;

} // namespace

PageSetup::PageSetup(DesignerSession &session, QWidget *parent)
    : QDialog(parent), m_session(session), m_design(session.editor().design()),
      m_ui(std::make_unique<Ui::PageSetup>())
{
    m_ui->setupUi(this);
    fillPrinters();
    fillPapers();
    fillQualities();
    fillSheets();
    m_ui->yer->setMaximum(static_cast<int>(std::min<qint64>(session.places(), kMostPlaces)));
    m_ui->yer->setValue(static_cast<int>(session.firstPlace()));
    showValues();
    connectBoxes();
    connectChoices();
    m_ui->yazici->setFocus();
}

PageSetup::~PageSetup() = default;

std::vector<PageSetup::TextBox> PageSetup::textBoxes() const
{
    return {{m_ui->en, &LabelLayout::paperWidth}, {m_ui->boy, &LabelLayout::paperHeight},
            {m_ui->sol, &LabelLayout::left},      {m_ui->ust, &LabelLayout::top},
            {m_ui->yara, &LabelLayout::stepX},    {m_ui->dara, &LabelLayout::stepY},
            {m_ui->yadet, &LabelLayout::across},  {m_ui->dadet, &LabelLayout::down}};
}

/// A printer that this machine has not, or no longer, keeps its name.
void PageSetup::fillPrinters()
{
    const QString &printer = m_design.layout.printer;
    for (const QString &name : m_session.printers())
        m_ui->yazici->addItem(name, name);
    if (m_ui->yazici->findData(printer) < 0)
        m_ui->yazici->insertItem(0, u"%1 (bu bilgisayarda yok)"_s.arg(printer), printer);
    m_ui->yazici->setCurrentIndex(m_ui->yazici->findData(printer));
}

void PageSetup::fillPapers()
{
    m_ui->kagit->clear();
    m_ui->kagit->addItem(u"Kendi ölçüsü"_s, kOwnSize);
    for (const PrinterPaper &paper : m_session.papers(m_design.layout.printer))
        m_ui->kagit->addItem(u"%1 (%2 × %3)"_s.arg(paper.name, amount::plain(paper.size.width()),
                                                   amount::plain(paper.size.height())),
                             paper.code);
    const int code = amount::integer(m_design.layout.paperCode, 0, 0xFFFF);
    if (m_ui->kagit->findData(code) < 0)
        m_ui->kagit->addItem(u"%1 numaralı kâğıt"_s.arg(code), code);
    m_ui->kagit->setCurrentIndex(m_ui->kagit->findData(code));
}

void PageSetup::fillQualities()
{
    const int code = amount::integer(m_design.layout.quality);
    for (const Quality &quality : qualities())
        m_ui->kalite->addItem(quality.name, quality.code);
    if (m_ui->kalite->findData(code) < 0)
        m_ui->kalite->addItem(code > 0 ? u"%1 nokta/inç"_s.arg(code) : u"Yazıcının kendi ayarı"_s,
                              code);
    m_ui->kalite->setCurrentIndex(m_ui->kalite->findData(code));
}

void PageSetup::fillSheets()
{
    m_sheets = m_session.sheets();
    m_ui->hazir->addItem(u"Seçiniz…"_s);
    for (const LabelSheet &sheet : m_sheets)
        m_ui->hazir->addItem(sheet.name);
}

void PageSetup::chooseSheet(int index)
{
    if (index < 1)
        return;
    const LabelSheet &sheet = m_sheets[static_cast<std::size_t>(index) - 1];
    useSheet(&m_design.layout, sheet, {m_unprintable.left(), m_unprintable.top()});
    m_design.label = sheet.label;
    fillPapers();
    showValues();
}

/// The size of the paper is told to the printer when it stands, not at each key.
void PageSetup::connectBoxes()
{
    for (const QLineEdit *size : {m_ui->en, m_ui->boy})
        connect(size, &QLineEdit::editingFinished, this, &PageSetup::askPrinter);
    for (const TextBox &text : textBoxes())
        connect(text.box, &QLineEdit::textEdited, this, [this, text](const QString &typed) {
            m_design.layout.*text.value = typed.trimmed();
            if (text.box == m_ui->yara || text.box == m_ui->dara)
                m_design.label = {}; // of another sheet
            showSheet();
        });
}

void PageSetup::connectChoices()
{
    connect(m_ui->yazici, &QComboBox::activated, this, [this] {
        m_design.layout.printer = m_ui->yazici->currentData().toString();
        m_session.forgetPrinters();
        fillPapers();
        askPrinter();
    });
    connect(m_ui->kagit, &QComboBox::activated, this, &PageSetup::choosePaper);
    connect(m_ui->kalite, &QComboBox::activated, this, [this] {
        m_design.layout.quality = QString::number(m_ui->kalite->currentData().toInt());
        askPrinter();
    });
    connect(m_ui->dikey, &QRadioButton::clicked, this, [this] { turnPaper(kPortrait); });
    connect(m_ui->yatay, &QRadioButton::clicked, this, [this] { turnPaper(kLandscape); });
    connect(m_ui->hazir, &QComboBox::activated, this, &PageSetup::chooseSheet);
    connect(m_ui->olc, &QPushButton::clicked, this, &PageSetup::measure);
    connect(m_ui->ayar, &QPushButton::clicked, this,
            [this] { Q_EMIT calibrationWanted(m_design.layout); });
    connect(&m_session, &DesignerSession::printerChanged, this, &PageSetup::askPrinter);
    connect(m_ui->yer, &QSpinBox::valueChanged, this, &PageSetup::showSheet);
    connect(m_ui->resim, &SheetPicture::placeChosen, m_ui->yer,
            [this](qint64 place) { m_ui->yer->setValue(static_cast<int>(place)); });
    connect(m_ui->tamam, &QPushButton::clicked, this, &PageSetup::take);
    connect(m_ui->vazgec, &QPushButton::clicked, this, &QDialog::reject);
}

/// The page lies as its orientation says: width and height change places with it.
void PageSetup::turnPaper(const QString &orientation)
{
    LabelLayout &layout = m_design.layout;
    if (layout.orientation != orientation)
        std::swap(layout.paperWidth, layout.paperHeight);
    layout.orientation = orientation;
    showValues();
}

void PageSetup::choosePaper(int index)
{
    LabelLayout &layout = m_design.layout;
    const int code = m_ui->kagit->itemData(index).toInt();
    layout.paperCode = QString::number(code);
    for (const PrinterPaper &paper : m_session.papers(layout.printer))
        if (paper.code == code && !paper.size.isEmpty()) {
            const QSizeF size =
                layout.orientation == kPortrait ? paper.size : paper.size.transposed();
            layout.paperWidth = amount::plain(size.width());
            layout.paperHeight = amount::plain(size.height());
        }
    showValues();
}

void PageSetup::measure()
{
    const QSizeF paper(amount::parse(m_design.layout.paperWidth).value_or(0),
                       amount::parse(m_design.layout.paperHeight).value_or(0));
    auto *dialog = new MeasureDialog(measuredOf(m_design, m_unprintable), paper, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &MeasureDialog::measured, this, [this](const MeasuredSheet &sheet) {
        takeMeasured(m_design, sheet, m_unprintable);
        showValues();
    });
    dialog->open();
}

void PageSetup::showValues()
{
    for (const TextBox &text : textBoxes())
        if (text.box->text() != m_design.layout.*text.value)
            text.box->setText(m_design.layout.*text.value);
    const bool portrait = m_design.layout.orientation == kPortrait;
    m_ui->dikey->setChecked(portrait);
    m_ui->yatay->setChecked(!portrait);
    askPrinter();
}

void PageSetup::askPrinter()
{
    const PrinterSheet sheet = m_session.sheetOf(m_design.layout);
    m_unprintable = sheet.unprintable;
    m_answered = sheet.answered;
    // One that is away stands in the list with a remark.
    m_ui->ayar->setEnabled(m_ui->yazici->currentText() == m_ui->yazici->currentData().toString());
    m_ui->ayar->setToolTip(m_session.calibrationText(m_design.layout));
    showSheet();
}

void PageSetup::showSheet()
{
    const SheetAround sheet = sheetAround(m_design, m_unprintable);
    m_ui->yer->setMaximum(static_cast<int>(sheet.cells.size()));
    m_ui->resim->show(sheet, m_ui->yer->value());
    const QString problem = pageProblem(m_design);
    m_ui->sorun->setText(problem.isEmpty() && !m_answered
                             ? u"Yazıcıya ulaşılamıyor; basamadığı kenarlar bilinmiyor."_s
                             : problem);
}

/// A page that cannot be printed on is not taken; the boxes keep what was typed.
void PageSetup::take()
{
    const QString problem = pageProblem(m_design);
    if (!problem.isEmpty()) {
        m_session.refuse(problem);
        return;
    }
    m_session.editor().change(u"Sayfa ayarı"_s, 0, [this](Design &design) {
        LabelLayout elements = std::move(design.layout);
        design.label = m_design.label;
        design.layout = m_design.layout;
        design.layout.pictures = std::move(elements.pictures);
        design.layout.barcodes = std::move(elements.barcodes);
        design.layout.texts = std::move(elements.texts);
    });
    m_session.setFirstPlace(m_ui->yer->value());
    accept();
}
