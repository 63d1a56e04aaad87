#include "labels/print/forms/yazfrm.h"

#include "ui_yazfrm.h"

#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

yazfrm::yazfrm(PrintRun &run, const PrintRequest &request, QWidget *parent)
    : QDialog(parent), m_run(run), m_request(request), m_printers(run.layouts().printers()),
      m_ui(std::make_unique<Ui::yazfrm>())
{
    m_ui->setupUi(this);
    setWindowTitle(request.mode == PrintMode::all ? u"Tüm Etiketleri Yazdır"_s
                                                  : u"Seçili Etiketi Yazdır"_s);
    m_ui->liste->addItems(run.layouts().names());

    // The list takes its first row as soon as it has the focus; the choice is left to the user.
    m_ui->ad->setFocus();
    const auto *down = new QShortcut(Qt::Key_Down, m_ui->ad, nullptr, nullptr, Qt::WidgetShortcut);
    connect(down, &QShortcut::activated, m_ui->liste, qOverload<>(&QWidget::setFocus));
    connect(m_ui->liste, &QListWidget::currentTextChanged, m_ui->ad, &QLineEdit::setText);
    connect(m_ui->liste, &QListWidget::itemDoubleClicked, this, &yazfrm::print);
    connect(m_ui->ad, &QLineEdit::textChanged, this, &yazfrm::choose);
    connect(m_ui->yazici, &QComboBox::activated, this, &yazfrm::setPrinter);
    connect(m_ui->varsayilan, &QCheckBox::clicked, this, [this](bool on) {
        m_run.layouts().setDefault(on ? m_chosen : QString());
        showPrinter();
    });
    connect(m_ui->yazdir, &QPushButton::clicked, this, &yazfrm::print);
    connect(m_ui->vazgec, &QPushButton::clicked, this, &yazfrm::reject);
    choose(QString());
}

yazfrm::~yazfrm() = default;

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
    m_ui->bilgi->setText(m_chosen.isEmpty() ? QString() : m_run.describe(m_chosen, m_layout));
    showPrinter();
    showPreview();
}

void yazfrm::showPrinter()
{
    const bool known = !m_chosen.isEmpty();
    m_ui->yazici->setEnabled(known);
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

void yazfrm::print()
{
    const QString name = m_chosen;
    if (!m_run.requireLayout(name))
        return;
    accept();
    // The run lets the windows live, and the dialog goes: it starts when this handler is over.
    QMetaObject::invokeMethod(
        &m_run, [&run = m_run, request = m_request, name] { run.yazzzz(request, name); },
        Qt::QueuedConnection);
}
