#include "sales/forms/finder_form.h"

#include "sales/finder.h"
#include "ui_finder_form.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPause = 350;          ///< ms without a key before the host is asked
constexpr qsizetype kFewLetters = 2; ///< a single letter finds half the shop: only Enter asks then

} // namespace

FinderForm::FinderForm(Finder &finder, const Words &words,
                       std::function<void(const QString &)> search, QWidget *parent)
    : QDialog(parent), m_finder(finder), m_search(std::move(search)),
      m_ui(std::make_unique<Ui::FinderForm>()), m_pause(new QTimer(this))
{
    m_ui->setupUi(this);
    setWindowTitle(words.title);
    m_ui->textLabel->setText(words.searched);
    m_ui->ekle->setText(words.take);
    m_ui->l1->setModel(&finder);
    m_ui->l1->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_ui->l1->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    m_ui->Text1->installEventFilter(this);
    m_pause->setSingleShot(true);
    m_pause->setInterval(kPause);
    connect(m_pause, &QTimer::timeout, this, &FinderForm::search);
    connect(m_ui->Text1, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (text.trimmed().size() >= kFewLetters)
            m_pause->start();
    });
    connect(m_ui->l1->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &FinderForm::showRow);
    connect(m_ui->l1, &QTableView::doubleClicked, this, &FinderForm::take);
    connect(m_ui->ekle, &QPushButton::clicked, this, &FinderForm::take);
    connect(m_ui->kapat, &QPushButton::clicked, this, &FinderForm::reject);
    showRow();
    m_ui->Text1->setFocus();
}

FinderForm::~FinderForm() = default;

void FinderForm::search()
{
    m_pause->stop();
    const QString text = m_ui->Text1->text().trimmed();
    if (text == m_searched)
        return;
    m_searched = text;
    m_search(text);
    m_ui->remark->setText(m_finder.remark());
    m_ui->l1->selectRow(0);
    showRow();
}

void FinderForm::take()
{
    const int row = m_ui->l1->currentIndex().row();
    if (row < 0)
        return;
    m_taken = row;
    accept();
}

void FinderForm::showRow()
{
    const int row = m_ui->l1->currentIndex().row();
    const bool there = row >= 0 && row < m_finder.rowCount();
    m_ui->ekle->setEnabled(there);
    // An account may have a long name.
    const QString large = there ? m_finder.large(row) : QString();
    m_ui->price->setText(
        m_ui->price->fontMetrics().elidedText(large, Qt::ElideRight, m_ui->l1->width()));
}

/// The box keeps the keyboard: arrows walk through the list below, Enter searches a new text and
/// takes the item of a searched one.
bool FinderForm::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_ui->Text1->text().trimmed() == m_searched)
            take();
        else
            search();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(m_ui->l1, event);
        return true;
    default:
        return QDialog::eventFilter(watched, event);
    }
}
