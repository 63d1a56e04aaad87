#include "labels/desk/forms/desk_status_bar.h"

#include "common/amount.h"
#include "labels/desk/forms/task_progress.h"
#include "labels/desk/label_desk.h"

using namespace Qt::StringLiterals;

DeskStatusBar::DeskStatusBar(QWidget *parent)
    : QStatusBar(parent), m_total(new QLabel(this)), m_status(new QLabel(this)),
      m_progress(new QProgressBar(this)), m_stopHint(new QLabel(u"<b>Esc</b>: durdur"_s, this))
{
    m_total->setObjectName(u"panel1"_s);
    m_total->setMinimumWidth(190);
    m_status->setObjectName(u"status"_s);
    m_status->setTextFormat(Qt::PlainText);
    m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_progress->setObjectName(u"progress"_s);
    m_progress->setTextVisible(false);
    m_progress->setFixedWidth(180);
    addWidget(m_total);
    addWidget(m_status, 1);
    addPermanentWidget(m_progress);
    addPermanentWidget(m_stopHint);
}

void DeskStatusBar::watch(LabelDesk &desk)
{
    showTask(desk, m_status, m_progress);
    connect(&desk, &LabelDesk::busyChanged, m_stopHint, &QWidget::setVisible);
    m_stopHint->hide();
    connect(&desk.queue(), &PrintQueue::totalChanged, this, &DeskStatusBar::showTotal);
    showTotal(desk.queue().total());
}

void DeskStatusBar::showTotal(qint64 labels)
{
    m_total->setText(u"Toplam etiket: %1"_s.arg(amount::whole(labels)));
}
