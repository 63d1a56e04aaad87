#include "shell/forms/diagnosis_view.h"

#include "shell/diagnosis.h"
#include "ui_diagnosis_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

QColor colourOf(DiagnosisStep::State state, const QPalette &palette)
{
    switch (state) {
    case DiagnosisStep::State::good:
        return QColor(0x1B, 0x7A, 0x3D);
    case DiagnosisStep::State::bad:
        return QColor(0xA0, 0x20, 0x20);
    default:
        return palette.color(QPalette::PlaceholderText);
    }
}

QLabel *makeLabel(QGridLayout &grid, int column, int row)
{
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    grid.addWidget(label, row, column);
    return label;
}

void makeBold(QLabel *label)
{
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
}

} // namespace

DiagnosisView::DiagnosisView(Diagnosis &diagnosis, QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::DiagnosisView>()), m_diagnosis(diagnosis)
{
    m_ui->setupUi(this);
    makeLines();
    connect(&diagnosis, &Diagnosis::started, this, &DiagnosisView::makeLines);
    connect(&diagnosis, &Diagnosis::stepChanged, this, &DiagnosisView::showStep);
    connect(&diagnosis, &Diagnosis::finished, this, &DiagnosisView::showState);
    connect(m_ui->again, &QPushButton::clicked, this, &DiagnosisView::againOrStop);
    connect(m_ui->copyAll, &QPushButton::clicked, this, [this] { copy(m_diagnosis.text()); });
    connect(m_ui->copyGrants, &QPushButton::clicked, this, [this] { copy(m_diagnosis.grants()); });
}

DiagnosisView::~DiagnosisView() = default;

void DiagnosisView::addButton(QPushButton *button)
{
    m_ui->buttons->addWidget(button);
}

void DiagnosisView::makeLines()
{
    while (QLayoutItem *item = m_ui->grid->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    m_lines.clear();
    const auto count = static_cast<int>(m_diagnosis.steps().size());
    for (int row = 0; row < count; ++row) {
        const Line line{makeLabel(*m_ui->grid, 0, row), makeLabel(*m_ui->grid, 1, row),
                        makeLabel(*m_ui->grid, 2, row)};
        makeBold(line.mark);
        makeBold(line.name);
        line.name->setText(m_diagnosis.steps().at(row).name);
        line.text->setWordWrap(true);
        m_lines.push_back(line);
        showStep(row);
    }
    showState();
}

void DiagnosisView::showStep(int step)
{
    const DiagnosisStep &shown = m_diagnosis.steps().at(step);
    const Line &line = m_lines.at(static_cast<std::size_t>(step));
    line.mark->setText(shown.state == DiagnosisStep::State::waiting ? QString()
                                                                    : Diagnosis::mark(shown.state));
    QPalette palette = line.mark->palette();
    palette.setColor(QPalette::WindowText, colourOf(shown.state, palette));
    line.mark->setPalette(palette);
    QString text = shown.found;
    if (!shown.advice.isEmpty())
        text += u"\n→ "_s + shown.advice;
    line.text->setText(text);
}

void DiagnosisView::showState()
{
    const bool running = m_diagnosis.isRunning();
    const int faults = m_diagnosis.faults();
    QString summary = u"Bağlantıya adım adım bakılıyor…"_s;
    if (!running && faults > 0)
        summary = u"✗ ile işaretli adımların yanında ne yapılacağı yazar."_s;
    else if (!running)
        summary = m_diagnosis.passed() ? u"Her şey yolunda."_s : u"Durduruldu."_s;
    m_ui->summary->setText(summary);
    m_ui->again->setText(running ? u"&Durdur"_s : u"&Yeniden dene"_s);
    m_ui->copyAll->setEnabled(!running);
    const QString grants = running ? QString() : m_diagnosis.grants();
    m_ui->grants->setPlainText(grants);
    m_ui->grantsBox->setVisible(!grants.isEmpty());
    m_ui->copyGrants->setVisible(!grants.isEmpty());
}

void DiagnosisView::againOrStop()
{
    if (m_diagnosis.isRunning())
        m_diagnosis.stop();
    else
        m_diagnosis.restart();
}

void DiagnosisView::copy(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
    m_ui->summary->setText(u"Panoya kopyalandı."_s);
}
