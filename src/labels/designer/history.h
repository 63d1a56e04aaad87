#pragma once

#include "labels/designer/design.h"

#include <QString>

#include <optional>
#include <vector>

/// What a list lost and got at one place: everything before and behind it stayed. A step on one
/// element of thousands keeps that element only.
template <typename Element>
struct Splice
{
    std::size_t at = 0;
    std::vector<Element> before;
    std::vector<Element> after;
};

/// One undoable step between two designs.
struct DesignStep
{
    QString what; ///< for the user: "Geri al: …"
    int merge = 0;
    Splice<PictureElement> pictures;
    Splice<BarcodeElement> barcodes;
    Splice<TextElement> texts;
    Design restBefore; ///< without the elements
    Design restAfter;
    RefSet selectedBefore;
    RefSet selectedAfter;
};

/// Every change since a design was opened.
class History
{
public:
    /// Remembers a step; steps that were undone are forgotten. A step with the same `merge` number
    /// as the one before it, other than 0, becomes part of that one.
    void record(const QString &what, int merge, const Design &before, const RefSet &selectedBefore,
                const Design &after, const RefSet &selectedAfter);

    /// The next step with any number begins anew.
    void endMerging() { m_merging = false; }

    bool canUndo() const { return m_done > 0; }
    bool canRedo() const { return m_done < m_steps.size(); }
    QString undoText() const { return canUndo() ? m_steps[m_done - 1].what : QString(); }
    QString redoText() const { return canRedo() ? m_steps[m_done].what : QString(); }

    /// Steps back or forward; returns what was selected then. There must be such a step.
    RefSet undo(Design &design);
    RefSet redo(Design &design);

    void clear();

private:
    std::vector<DesignStep> m_steps;
    std::size_t m_done = 0;
    bool m_merging = false;
};
