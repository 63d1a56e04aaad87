#pragma once

#include <QShortcut>
#include <QWidget>

/// Gives a control, or with the window itself the whole window, a key.
template <typename Action>
void onKey(QWidget *widget, const QKeySequence &keys, Action action)
{
    auto *shortcut = new QShortcut(keys, widget);
    shortcut->setContext(widget->isWindow() ? Qt::WindowShortcut : Qt::WidgetShortcut);
    QObject::connect(shortcut, &QShortcut::activated, widget, action);
}
