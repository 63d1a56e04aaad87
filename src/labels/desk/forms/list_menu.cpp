#include "labels/desk/forms/list_menu.h"

#include "labels/desk/forms/list_view.h"

#include <QAbstractButton>

ListMenu::ListMenu(const QString &name, ListView *list, QWidget *parent) : QMenu(parent)
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
