#pragma once

#include <QString>

#include <span>

/// Everything the designer's menus, keys and buttons do.
enum class Command
{
    newLayout,
    open,
    save,
    saveAs,
    pageSetup,
    sheetView,
    close,

    undo,
    redo,
    cut,
    copy,
    paste,
    duplicate,
    erase,
    selectAll,
    selectNone,
    selectNext,
    selectPrevious,

    pointer,
    addText,
    addBarcode,
    addPicture,
    addSymbol,

    properties,
    turnLeft,
    turnRight,
    lock,
    unlockAll,
    alignLeft,
    alignCentreX,
    alignRight,
    alignTop,
    alignCentreY,
    alignBottom,
    centreOnLabelX,
    centreOnLabelY,
    distributeX,
    distributeY,
    sameWidth,
    sameHeight,
    front,
    forward,
    backward,
    back,

    zoomIn,
    zoomOut,
    zoomFit,
    zoomActual,
    grid,
    snap,
    guides,
    clearGuides,
    panel,

    findSample,
    previousSample,
    nextSample,
    queueSample,
    fieldNames,

    help
};

/// The menus of the designer, in their order.
enum class CommandMenu
{
    file,
    edit,
    insert,
    element,
    align,
    order,
    view,
    sample,
    help
};

/// One command as its menu item, its button and the help sheet show it.
struct CommandInfo
{
    Command command;
    CommandMenu menu;
    const char16_t *name;    ///< of its action
    const char16_t *caption; ///< with its mnemonic
    const char16_t *keys;    ///< portable text, several divided by "; "; "" = none
    bool checkable = false;
    bool divider = false; ///< a line stands above it in its menu
};

std::span<const CommandInfo> commandTable();
const CommandInfo &infoOf(Command command);
QString captionOf(CommandMenu menu);

/// What the mouse and keys do that no command stands for, for the help sheet.
struct HandHelp
{
    const char16_t *keys;
    const char16_t *what;
};
std::span<const HandHelp> handTable();
