#include "labels/desk/forms/gather_menu.h"

#include "labels/desk/label_desk.h"

using namespace Qt::StringLiterals;

GatherMenu::GatherMenu(LabelDesk &desk, QWidget *parent) : QMenu(parent)
{
    const auto add = [&](const QString &name, const QString &text, const QKeySequence &keys,
                         void (LabelDesk::*command)()) {
        QAction *action = addAction(text);
        action->setObjectName(name);
        action->setShortcut(keys);
        parent->addAction(action);
        connect(action, &QAction::triggered, &desk, command);
    };
    add(u"ekbar1"_s, u"Barkodsuz &1. Birimler"_s, Qt::CTRL | Qt::Key_4, &LabelDesk::ekbar1);
    add(u"ekbar2"_s, u"Barkodsuz &2. Birimler"_s, Qt::CTRL | Qt::Key_5, &LabelDesk::ekbar2);
    add(u"ekbartum"_s, u"&Tüm Barkodsuzlar"_s, Qt::CTRL | Qt::Key_6, &LabelDesk::ekbartum);
}
