#pragma once

#include "labels/designer/designer_commands.h"

#include <QObject>

#include <map>

class DesignEditor;
QT_BEGIN_NAMESPACE
class QAction;
class QMainWindow;
QT_END_NAMESPACE

/// The designer's commands as actions: in its menus, its bars and under their keys.
class DesignerActions final : public QObject
{
    Q_OBJECT

public:
    /// Keys that other controls need for themselves work while `canvas` has the keyboard only.
    DesignerActions(QMainWindow &window, QWidget &canvas);

    QAction *at(Command command) const { return m_actions.at(command); }

    /// What is possible, what is on, and what is undone next.
    void show(const DesignEditor &editor);
    /// The menu of the right mouse button.
    void popUp(QPoint at) const;

Q_SIGNALS:
    void wanted(Command command);

private:
    void fillMenus(QMainWindow &window);
    void fillBars(QMainWindow &window);

    std::map<Command, QAction *> m_actions;
};
