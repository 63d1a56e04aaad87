#include "labels/designer/forms/sample_bar.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

SampleBar::SampleBar(QWidget *parent)
    : QWidget(parent), m_search(new QLineEdit), m_place(new QLabel), m_name(new QLabel)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    auto *label = new QLabel(u"Örnek stok:"_s);
    label->setBuddy(m_search);
    m_search->setObjectName(u"ornek"_s);
    m_search->setPlaceholderText(u"ad, kod ya da barkod yazıp Enter'a basın (F3)"_s);
    m_search->setMinimumWidth(90);
    m_search->setClearButtonEnabled(true);
    m_place->setObjectName(u"ornekYeri"_s);
    m_name->setObjectName(u"ornekAdi"_s);
    m_name->setTextFormat(Qt::PlainText);
    m_name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // gives way first
    row->addWidget(label);
    row->addWidget(m_search, 2);
    row->addWidget(m_place);
    row->addWidget(m_name, 1);
    connect(m_search, &QLineEdit::returnPressed, this,
            [this] { Q_EMIT searched(m_search->text()); });
}

void SampleBar::addAction(QAction *action, const QString &text)
{
    auto *button = new QToolButton;
    button->setText(text);
    button->setToolTip(action->toolTip());
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QToolButton::clicked, action, &QAction::trigger);
    auto *row = qobject_cast<QHBoxLayout *>(layout());
    row->insertWidget(row->count() - 1, button);
}

void SampleBar::showRow(const QString &place, const QString &name)
{
    m_place->setText(place);
    m_name->setText(name);
}

void SampleBar::enter()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void SampleBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT left();
    else
        QWidget::keyPressEvent(event);
}
