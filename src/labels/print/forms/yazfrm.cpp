#include "labels/print/forms/yazfrm.h"

#include "labels/print/forms/printer_calibration.h"
#include "ui_yazfrm.h"

#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostPlaces = 500; ///< of a sheet whose picture one can still click on

} // namespace

yazfrm::yazfrm(PrintRun &run, const PrintRequest &request, QWidget *parent)
    : QDialog(parent), m_run(run), m_request(request), m_printers(run.printers()),
      m_ui(std::make_unique<Ui::yazfrm>())
{
    build();
    setWindowTitle(request.mode == PrintMode::all ? u"Tüm Etiketleri Yazdır"_s
                                                  : u"Seçili Etiketi Yazdır"_s);
}

yazfrm::yazfrm(PrintRun &run, const LayoutTask &task, const PrintRequest &preview, QWidget *parent)
    : QDialog(parent), m_run(run), m_request(preview), m_task(task), m_printers(run.printers()),
      m_ui(std::make_unique<Ui::yazfrm>())
{
    build();
    setWindowTitle(task.title);
    m_ui->yazdir->setText(task.button);
    m_ui->duzenle->hide();
}

yazfrm::~yazfrm() = default;

void yazfrm::build()
{
    m_ui->setupUi(this);
    m_ui->liste->addItems(m_run.layouts().names());

    // The list takes its first row as soon as it has the focus; the choice is left to the user.
    m_ui->ad->setFocus();
    const auto *down = new QShortcut(Qt::Key_Down, m_ui->ad, nullptr, nullptr, Qt::WidgetShortcut);
    connect(down, &QShortcut::activated, m_ui->liste, qOverload<>(&QWidget::setFocus));
    connect(m_ui->liste, &QListWidget::currentTextChanged, m_ui->ad, &QLineEdit::setText);
    connect(m_ui->liste, &QListWidget::itemDoubleClicked, this, &yazfrm::print);
    connect(m_ui->ad, &QLineEdit::textChanged, this, &yazfrm::choose);
    connect(m_ui->yazici, &QComboBox::activated, this, &yazfrm::setPrinter);
    connect(m_ui->ayar, &QPushButton::clicked, this, [this] {
        auto *form = new PrinterCalibration(m_run.printerSetting(m_layout), this);
        form->setAttribute(Qt::WA_DeleteOnClose);
        form->open();
    });
    connect(m_ui->yer, &QSpinBox::valueChanged, this, &yazfrm::showPlaces);
    connect(m_ui->sayfa, &SheetPlaces::placeChosen, m_ui->yer,
            [this](qint64 place) { m_ui->yer->setValue(static_cast<int>(place)); });
    connect(m_ui->kaldigi, &QPushButton::clicked, this,
            [this] { m_ui->yer->setValue(static_cast<int>(m_run.memory().nextPlace(m_chosen))); });
    connect(m_ui->varsayilan, &QCheckBox::clicked, this, [this](bool on) {
        m_run.layouts().setDefault(on ? m_chosen : QString());
        showPrinter();
    });
    connect(m_ui->yazdir, &QPushButton::clicked, this, &yazfrm::print);
    connect(m_ui->duzenle, &QPushButton::clicked, this, &yazfrm::design);
    connect(m_ui->vazgec, &QPushButton::clicked, this, &yazfrm::reject);
    choose(QString());
}

void yazfrm::choose(const QString &name)
{
    m_chosen = m_run.layouts().find(name);
    const auto found = m_ui->liste->findItems(m_chosen, Qt::MatchExactly);
    {
        // The list follows the box without writing into it: the user may still be typing.
        const QSignalBlocker quiet(m_ui->liste);
        m_ui->liste->setCurrentItem(found.isEmpty() ? nullptr : found.first());
    }
    m_layout = m_chosen.isEmpty() ? LabelLayout() : m_run.layouts().open(m_chosen);
    m_run.readFirst(m_request, m_layout);
    m_ui->bilgi->setText(m_chosen.isEmpty() ? QString() : m_run.describe(m_chosen, m_layout));
    showPrinter();
    offerPlaces();
    showPreview();
}

/// A sheet of one label has no other place to begin at; what is not printed begins nowhere.
void yazfrm::offerPlaces()
{
    const qint64 places = makeSheet(m_layout).grid.places();
    const bool several = !m_task.take && !m_chosen.isEmpty() && places > 1 && places <= kMostPlaces;
    for (QWidget *part :
         {static_cast<QWidget *>(m_ui->yerYazi), static_cast<QWidget *>(m_ui->yer),
          static_cast<QWidget *>(m_ui->sayfa), static_cast<QWidget *>(m_ui->kaldigi)})
        part->setVisible(several);
    m_ui->yer->setMaximum(several ? static_cast<int>(places) : 1);
    m_ui->yer->setValue(1);
    const qint64 next = m_run.memory().nextPlace(m_chosen);
    m_ui->kaldigi->setVisible(several && next > 1 && next <= places);
    m_ui->kaldigi->setText(u"Kaldığı ye&rden: %1"_s.arg(next));
    showPlaces();
}

void yazfrm::showPlaces()
{
    m_request.firstPlace = m_ui->yer->value();
    m_ui->sayfa->show(makeSheet(m_layout).grid, m_request.firstPlace);
}

void yazfrm::showPrinter()
{
    const bool known = !m_chosen.isEmpty();
    m_ui->duzenle->setEnabled(known);
    m_ui->yazici->setEnabled(known);
    m_ui->ayar->setEnabled(known && m_printers.contains(m_layout.printer));
    m_ui->varsayilan->setEnabled(known);
    m_ui->varsayilan->setChecked(known && m_run.layouts().defaultName() == m_chosen);
    m_ui->yazici->clear();
    if (!known)
        return;
    for (const QString &printer : m_printers)
        m_ui->yazici->addItem(printer, printer);
    const QString &printer = m_layout.printer;
    if (m_ui->yazici->findData(printer) < 0)
        m_ui->yazici->insertItem(0, u"%1 (bu bilgisayarda yok)"_s.arg(printer), printer);
    m_ui->yazici->setCurrentIndex(m_ui->yazici->findData(printer));
}

void yazfrm::setPrinter()
{
    const QString printer = m_ui->yazici->currentData().toString();
    if (m_run.layouts().setPrinter(m_chosen, printer))
        m_layout.printer = printer;
    showPrinter();
}

void yazfrm::showPreview()
{
    const qreal ratio = devicePixelRatioF();
    const QSize room = (QSizeF(m_ui->onizleme->contentsRect().size()) * ratio).toSize();
    QImage image = m_chosen.isEmpty() ? QImage() : m_run.preview(m_request, m_layout, room);
    image.setDevicePixelRatio(ratio);
    m_ui->onizleme->setPixmap(QPixmap::fromImage(image));
}

void yazfrm::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    showPreview();
}

void yazfrm::design()
{
    const QString name = m_chosen;
    accept();
    Q_EMIT designWanted(name);
}

/// A name that is not taken stays in its box.
void yazfrm::take()
{
    if (m_task.take(m_task.newName ? m_ui->ad->text() : m_chosen))
        accept();
}

void yazfrm::print()
{
    if (m_task.take)
        return take();
    const QString name = m_chosen;
    if (!m_run.requireLayout(name))
        return;
    accept();
    // The run lets the windows live, and the dialog goes: it starts when this handler is over.
    QMetaObject::invokeMethod(
        &m_run, [&run = m_run, request = m_request, name] { run.yazzzz(request, name); },
        Qt::QueuedConnection);
}
