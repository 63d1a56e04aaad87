#pragma once

#include "labels/designer/history.h"

/// A design being worked on: what is selected in it, every step since it was opened, and whether it
/// differs from what was saved.
class Document
{
public:
    Document() = default;
    explicit Document(Design opened);

    const Design &design() const { return m_design; }
    const LabelLayout &layout() const { return m_design.layout; }

    const RefSet &selection() const { return m_selection; }
    /// The element picked last; others take its size. Nothing when none is selected.
    std::optional<LabelRef> key() const;
    /// Elements that are not there are left out. `key`: the element picked last.
    void select(const RefSet &refs, std::optional<LabelRef> key = {});

    /// The design to change; until commit() or rollback() it may be changed again and again.
    Design &edit();
    bool isEditing() const { return m_before.has_value(); }
    /// Makes one step of all changes since edit(), with `selection` selected from now on. `what`
    /// names it for the user; see History::record() for `merge`. False when nothing changed.
    bool commit(const QString &what, const RefSet &selection, int merge = 0);
    bool commit(const QString &what, int merge = 0) { return commit(what, m_selection, merge); }
    void rollback();

    const History &history() const { return m_history; }
    void undo();
    void redo();
    /// The next step stands for itself, whatever merge number it bears.
    void endMerging() { m_history.endMerging(); }

    bool isDirty() const { return m_unsaved || !(m_design == m_saved); }
    void markSaved();
    /// What is on screen has been saved nowhere, as a copy brought back after a crash.
    void markUnsaved() { m_unsaved = true; }

private:
    Design m_design;
    Design m_saved;
    bool m_unsaved = false;
    RefSet m_selection;
    std::optional<LabelRef> m_key;
    std::optional<Design> m_before; ///< of the change that is under way
    RefSet m_selectedBefore;
    History m_history;
};
