#include "labels/designer/design_editor.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMergeTurn = -3;

std::optional<edits::Edge> edgeOf(Command command)
{
    switch (command) {
    case Command::alignLeft:
        return edits::Edge::left;
    case Command::alignCentreX:
        return edits::Edge::centreX;
    case Command::alignRight:
        return edits::Edge::right;
    case Command::alignTop:
        return edits::Edge::top;
    case Command::alignCentreY:
        return edits::Edge::centreY;
    case Command::alignBottom:
        return edits::Edge::bottom;
    default:
        return {};
    }
}

std::optional<edits::Order> orderOf(Command command)
{
    switch (command) {
    case Command::front:
        return edits::Order::front;
    case Command::forward:
        return edits::Order::forward;
    case Command::backward:
        return edits::Order::backward;
    case Command::back:
        return edits::Order::back;
    default:
        return {};
    }
}

std::optional<Tool> toolOf(Command command)
{
    switch (command) {
    case Command::pointer:
        return Tool::pointer;
    case Command::addText:
        return Tool::text;
    case Command::addBarcode:
        return Tool::barcode;
    case Command::addPicture:
        return Tool::picture;
    case Command::addSymbol:
        return Tool::symbol;
    default:
        return {};
    }
}

bool hasText(const RefSet &refs)
{
    return std::any_of(refs.begin(), refs.end(),
                       [](LabelRef ref) { return ref.kind == ElementKind::text; });
}

} // namespace

bool DesignEditor::can(Command command) const
{
    const std::size_t free = changeable().size();
    switch (command) {
    case Command::undo:
        return m_document.history().canUndo();
    case Command::redo:
        return m_document.history().canRedo();
    case Command::copy:
    case Command::selectNone:
        return !selection().isEmpty();
    case Command::properties:
        return selection().size() == 1;
    case Command::lock:
        return !selection().isEmpty();
    case Command::unlockAll:
        return !design().locked.isEmpty();
    case Command::turnLeft:
    case Command::turnRight:
        return hasText(changeable());
    case Command::distributeX:
    case Command::distributeY:
        return selection().size() > 2 && free > 0;
    case Command::sameWidth:
    case Command::sameHeight:
        return selection().size() > 1 && free > 0;
    case Command::cut:
    case Command::duplicate:
    case Command::erase:
    case Command::centreOnLabelX:
    case Command::centreOnLabelY:
        return free > 0;
    case Command::clearGuides:
        return !(design().guides == Guides());
    default:
        return edgeOf(command) || orderOf(command) ? free > 0 : true;
    }
}

bool DesignEditor::isChecked(Command command) const
{
    if (const auto tool = toolOf(command))
        return m_pointer.tool() == *tool;
    switch (command) {
    case Command::grid:
        return m_grid;
    case Command::snap:
        return m_snap;
    case Command::guides:
        return m_guides;
    case Command::lock:
        return !selection().isEmpty() && changeable().isEmpty();
    default:
        return false;
    }
}

QString DesignEditor::captionFor(Command command) const
{
    QString caption = QString::fromUtf16(infoOf(command).caption);
    if (command == Command::undo && can(command))
        return caption + u": "_s + m_document.history().undoText();
    if (command == Command::redo && can(command))
        return caption + u": "_s + m_document.history().redoText();
    return caption;
}

/// One element is aligned to the label, several to their common frame.
QRectF DesignEditor::frameToAlign() const
{
    return selection().size() > 1 ? edits::bounds(layout(), selection())
                                  : QRectF(QPointF(), labelSize());
}

void DesignEditor::toggle(Command command)
{
    if (command == Command::grid)
        m_grid = !m_grid;
    if (command == Command::snap)
        m_snap = !m_snap;
    if (command == Command::guides)
        m_guides = !m_guides;
    applySettings();
    Q_EMIT pageChanged();
    Q_EMIT stateChanged();
}

/// Steps that change where elements stand, how they lie or which is over which.
void DesignEditor::arrange(Command command)
{
    Design &design = m_document.edit();
    const RefSet refs = selection();
    if (const auto edge = edgeOf(command)) {
        edits::align(design, refs, *edge, frameToAlign());
        return changed(u"Hizalama"_s, 0);
    }
    if (const auto order = orderOf(command)) {
        const RefSet now = edits::reorder(design, refs, *order);
        if (m_document.commit(u"Sıralama"_s, now))
            notify({});
        Q_EMIT selectionChanged();
        return;
    }
    const Qt::Orientation across = command == Command::distributeX || command == Command::sameWidth
                                       ? Qt::Horizontal
                                       : Qt::Vertical;
    switch (command) {
    case Command::turnLeft:
        edits::turn(design, refs, 1);
        return changed(u"Döndürme"_s, kMergeTurn);
    case Command::turnRight:
        edits::turn(design, refs, -1);
        return changed(u"Döndürme"_s, kMergeTurn);
    case Command::distributeX:
    case Command::distributeY:
        edits::distribute(design, refs, across);
        return changed(u"Dağıtma"_s, 0);
    case Command::sameWidth:
    case Command::sameHeight:
        edits::sameSize(design, refs, *m_document.key(), across);
        return changed(u"Eşitleme"_s, 0);
    default: {
        const QRectF frame = edits::bounds(design.layout, refs);
        const QPointF by = QRectF(QPointF(), labelSize()).center() - frame.center();
        edits::move(design, refs,
                    command == Command::centreOnLabelX ? QPointF(by.x(), 0) : QPointF(0, by.y()));
        return changed(u"Etikete ortalama"_s, 0);
    }
    }
}

void DesignEditor::lockOrUnlock()
{
    const bool lock = !isChecked(Command::lock);
    edits::setLocked(m_document.edit(), selection(), lock);
    changed(lock ? u"Kilitleme"_s : u"Kilit açma"_s, 0);
    Q_EMIT selectionChanged();
}

bool DesignEditor::run(Command command)
{
    if (const auto tool = toolOf(command)) {
        setTool(*tool);
        return true;
    }
    if (!can(command)) {
        if (!selection().isEmpty() && changeable().isEmpty())
            Q_EMIT statusChanged(u"Seçili ögeler kilitli; Ctrl+L kilidi açar."_s);
        return false;
    }
    const RefSet before = selection();
    switch (command) {
    case Command::undo:
        m_document.undo();
        notify({});
        Q_EMIT selectionChanged();
        return true;
    case Command::redo:
        m_document.redo();
        notify({});
        Q_EMIT selectionChanged();
        return true;
    case Command::copy:
        Q_EMIT copied(edits::copied(layout(), before));
        return true;
    case Command::cut:
        Q_EMIT copied(edits::copied(layout(), changeable()));
        [[fallthrough]];
    case Command::erase:
        edits::erase(m_document.edit(), before);
        m_document.commit(command == Command::cut ? u"Kesme"_s : u"Silme"_s, RefSet());
        notify(before);
        return true;
    case Command::duplicate:
        paste(edits::copied(layout(), changeable()));
        return true;
    case Command::selectAll:
        select(RefSet::all(layout()));
        return true;
    case Command::selectNone:
        select({});
        return true;
    case Command::selectNext:
        selectBeside(1);
        return true;
    case Command::selectPrevious:
        selectBeside(-1);
        return true;
    case Command::properties:
        if (changeable().isEmpty())
            Q_EMIT statusChanged(u"Öge kilitli; Ctrl+L kilidi açar."_s);
        else
            Q_EMIT propertiesWanted(false);
        return true;
    case Command::lock:
        lockOrUnlock();
        return true;
    case Command::unlockAll:
        m_document.edit().locked.clear();
        changed(u"Kilit açma"_s, 0);
        Q_EMIT selectionChanged();
        return true;
    case Command::clearGuides:
        m_document.edit().guides = {};
        changed(u"Kılavuz çizgilerini silme"_s, 0);
        return true;
    case Command::grid:
    case Command::snap:
    case Command::guides:
        toggle(command);
        return true;
    default:
        break;
    }
    const bool arranges = edgeOf(command) || orderOf(command) ||
                          (command >= Command::turnLeft && command <= Command::sameHeight);
    if (arranges)
        arrange(command);
    return arranges;
}
