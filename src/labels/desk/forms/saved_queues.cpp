#include "labels/desk/forms/saved_queues.h"

#include "common/program.h"
#include "labels/desk/label_desk.h"
#include "ui_saved_queues.h"

using namespace Qt::StringLiterals;

SavedQueues::SavedQueues(LabelDesk &desk, QWidget *parent)
    : QDialog(parent), m_desk(desk), m_ui(std::make_unique<Ui::SavedQueues>())
{
    m_ui->setupUi(this);
    connect(m_ui->liste, &QListWidget::currentTextChanged, m_ui->ad, &QLineEdit::setText);
    connect(m_ui->liste, &QListWidget::itemActivated, this, &SavedQueues::openTyped);
    connect(m_ui->ad, &QLineEdit::textChanged, this, &SavedQueues::showCommands);
    connect(m_ui->kaydet, &QPushButton::clicked, this, &SavedQueues::save);
    connect(m_ui->ac, &QPushButton::clicked, this, &SavedQueues::openTyped);
    connect(m_ui->sil, &QPushButton::clicked, this, &SavedQueues::remove);
    connect(m_ui->kapat, &QPushButton::clicked, this, &SavedQueues::reject);
    fill();
    m_ui->ad->setFocus();
}

SavedQueues::~SavedQueues() = default;

void SavedQueues::fill()
{
    m_ui->liste->clear();
    m_ui->liste->addItems(m_desk.store().names());
    m_ui->ad->clear();
    showCommands();
}

QString SavedQueues::typedName() const
{
    return m_ui->ad->text().trimmed();
}

void SavedQueues::save()
{
    if (m_desk.saveQueue(typedName()))
        accept();
}

void SavedQueues::openTyped()
{
    const QString name = typedName();
    if (!m_desk.store().exists(name))
        return;
    accept();
    Q_EMIT chosen(name);
}

void SavedQueues::remove()
{
    m_desk.deleteQueue(typedName());
    fill();
}

void SavedQueues::showCommands()
{
    const bool kept = m_desk.store().exists(typedName());
    m_ui->ac->setEnabled(kept);
    m_ui->sil->setEnabled(kept);
    m_ui->kaydet->setEnabled(!typedName().isEmpty() && m_desk.queue().size() > 0);
    m_ui->ac->setDefault(kept);
    m_ui->kaydet->setDefault(!kept);
}
