#include "labels/designer/document.h"

#include <utility>

Document::Document(Design opened) : m_design(std::move(opened)), m_saved(m_design)
{}

std::optional<LabelRef> Document::key() const
{
    if (m_key && m_selection.contains(*m_key))
        return m_key;
    return m_selection.isEmpty() ? std::nullopt : std::optional(m_selection.back());
}

void Document::select(const RefSet &refs, std::optional<LabelRef> key)
{
    RefSet present =
        refs.filtered([this](LabelRef ref) { return hasElement(m_design.layout, ref); });
    if (!(present == m_selection))
        m_history.endMerging();
    m_selection = std::move(present);
    m_key = key;
}

Design &Document::edit()
{
    if (!m_before) {
        m_before = m_design;
        m_selectedBefore = m_selection;
    }
    return m_design;
}

bool Document::commit(const QString &what, const RefSet &selection, int merge)
{
    if (!m_before)
        return false;
    const Design before = std::move(*m_before);
    m_before.reset();
    if (before == m_design)
        return false;
    m_history.record(what, merge, before, m_selectedBefore, m_design, selection);
    m_selection = selection;
    return true;
}

void Document::rollback()
{
    if (!m_before)
        return;
    m_design = std::move(*m_before);
    m_before.reset();
    m_selection = m_selectedBefore;
}

void Document::undo()
{
    rollback();
    if (m_history.canUndo())
        m_selection = m_history.undo(m_design);
}

void Document::redo()
{
    rollback();
    if (m_history.canRedo())
        m_selection = m_history.redo(m_design);
}

void Document::markSaved()
{
    m_saved = m_design;
    m_unsaved = false;
}
