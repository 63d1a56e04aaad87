#include "labels/designer/forms/designer_actions.h"

#include "labels/designer/design_editor.h"
#include "labels/designer/forms/command_icons.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

/// Keys that other controls need for themselves work on the canvas only.
bool belongsToCanvas(const CommandInfo &info)
{
    const QString keys = QString::fromUtf16(info.keys);
    const bool function = keys.startsWith(u'F') && keys.size() <= 3;
    const bool control = keys.startsWith(u"Ctrl+"_s) && !keys.contains(u"Home"_s) &&
                         !keys.contains(u"End"_s) && !keys.contains(u"Pg"_s);
    return !function && !control && !keys.startsWith(u"Shift+F"_s);
}

QList<QKeySequence> keysOf(const CommandInfo &info)
{
    QList<QKeySequence> keys;
    for (const QString &one : QString::fromUtf16(info.keys).split(u"; "_s, Qt::SkipEmptyParts))
        keys += QKeySequence(one, QKeySequence::PortableText);
    return keys;
}

QToolBar *newBar(const QString &name, const QString &title)
{
    auto *bar = new QToolBar(title);
    bar->setObjectName(name);
    bar->setMovable(false);
    bar->setIconSize({20, 20});
    return bar;
}

} // namespace

DesignerActions::DesignerActions(QMainWindow &window, QWidget &canvas)
{
    for (const CommandInfo &info : commandTable()) {
        auto *action = new QAction(QString::fromUtf16(info.caption), this);
        action->setObjectName(QString::fromUtf16(info.name));
        action->setIcon(iconOf(info.command));
        action->setCheckable(info.checkable);
        action->setShortcuts(keysOf(info));
        if (belongsToCanvas(info)) {
            action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
            canvas.addAction(action);
        } else {
            window.addAction(action);
        }
        connect(action, &QAction::triggered, this,
                [this, command = info.command] { Q_EMIT wanted(command); });
        m_actions[info.command] = action;
    }
    fillMenus(window);
    fillBars(window);
}

void DesignerActions::fillMenus(QMainWindow &window)
{
    std::map<CommandMenu, QMenu *> menus;
    for (const CommandInfo &info : commandTable()) {
        QMenu *&menu = menus[info.menu];
        if (!menu)
            menu = window.menuBar()->addMenu(captionOf(info.menu));
        if (info.divider)
            menu->addSeparator();
        menu->addAction(at(info.command));
    }
}

void DesignerActions::fillBars(QMainWindow &window)
{
    QToolBar *tools = newBar(u"araclar"_s, u"Araçlar"_s);
    tools->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    for (const Command command : {Command::pointer, Command::addText, Command::addBarcode,
                                  Command::addPicture, Command::addSymbol})
        tools->addAction(at(command));
    window.addToolBar(Qt::LeftToolBarArea, tools);

    QToolBar *top = newBar(u"komutlar"_s, u"Komutlar"_s);
    const std::vector<std::vector<Command>> groups = {
        {Command::newLayout, Command::open, Command::save, Command::pageSetup, Command::sheetView},
        {Command::undo, Command::redo},
        {Command::alignLeft, Command::alignCentreX, Command::alignRight, Command::alignTop,
         Command::alignCentreY, Command::alignBottom, Command::distributeX, Command::distributeY},
        {Command::turnLeft, Command::turnRight, Command::front, Command::back, Command::lock},
        {Command::grid, Command::snap, Command::zoomOut, Command::zoomIn, Command::zoomFit}};
    for (const auto &group : groups) {
        for (const Command command : group)
            top->addAction(at(command));
        top->addSeparator();
    }
    window.addToolBar(Qt::TopToolBarArea, top);
}

void DesignerActions::show(const DesignEditor &editor)
{
    for (const auto &[command, action] : m_actions) {
        action->setEnabled(editor.can(command));
        action->setText(editor.captionFor(command));
        if (action->isCheckable())
            action->setChecked(editor.isChecked(command));
    }
}

void DesignerActions::popUp(QPoint at) const
{
    QMenu menu;
    for (const Command command : {Command::properties, Command::cut, Command::copy, Command::paste,
                                  Command::duplicate, Command::erase, Command::turnLeft,
                                  Command::turnRight, Command::lock, Command::front, Command::back})
        menu.addAction(m_actions.at(command));
    menu.exec(at);
}
