#include "labels/desk/forms/list_menu.h"

#include "labels/desk/forms/list_view.h"

#include <QAbstractButton>

using namespace Qt::StringLiterals;

ListMenu::ListMenu(const QString &name, ListView *list, QWidget *parent)
    : QMenu(parent), m_list(*list)
{
    setObjectName(name);
    connect(list, &QWidget::customContextMenuRequested, this, [this, list](const QPoint &at) {
        if (list->model()->rowCount() > 0)
            popup(list->viewport()->mapToGlobal(at));
    });
}

void ListMenu::add(QAbstractButton *button, const QString &name)
{
    QAction *action = addAction(button->text(), button, &QAbstractButton::click);
    action->setObjectName(name);
    connect(this, &QMenu::aboutToShow, action,
            [action, button] { action->setEnabled(button->isEnabled()); });
}

void ListMenu::addOrders()
{
    addSeparator();
    QMenu *orders = addMenu(u"&Sırala"_s);
    const auto addOrder = [&](const QString &text, int column) {
        connect(orders->addAction(text), &QAction::triggered, &m_list,
                [this, column] { m_list.sortBy(column); });
    };
    for (int column = 0; column < m_list.model()->columnCount(); ++column)
        addOrder(m_list.model()->headerData(column, Qt::Horizontal).toString(), column);
    addOrder(u"Eklenme sırası"_s, -1);
}
