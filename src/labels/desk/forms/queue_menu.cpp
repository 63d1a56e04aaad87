#include "labels/desk/forms/queue_menu.h"

#include "labels/desk/label_desk.h"

using namespace Qt::StringLiterals;

QueueMenu::QueueMenu(LabelDesk &desk, QWidget *parent) : QMenu(parent)
{
    const auto add = [&](const QString &name, const QString &text, const QKeySequence &keys,
                         void (LabelDesk::*command)()) {
        QAction *action = addAction(text);
        action->setObjectName(name);
        action->setShortcut(keys);
        parent->addAction(action);
        connect(action, &QAction::triggered, &desk, command);
        return action;
    };
    QAction *undo = add(u"undoRemoval"_s, u"Silineni &Geri Getir"_s, Qt::CTRL | Qt::Key_Z,
                        &LabelDesk::undoRemoval);
    undo->setEnabled(desk.canUndo());
    connect(&desk, &LabelDesk::undoChanged, undo, &QAction::setEnabled);
}
