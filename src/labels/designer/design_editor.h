#pragma once

#include "labels/designer/canvas_pointer.h"
#include "labels/designer/design_edits.h"
#include "labels/designer/designer_commands.h"

#include <QObject>

/// Between the lines of the grid (mm).
inline constexpr double kGridStep = 1;

/// What the user does to the design that is open: the commands of the menus, the mouse on the
/// canvas, the values of the panel. Knows no files.
class DesignEditor final : public QObject
{
    Q_OBJECT

public:
    explicit DesignEditor(QObject *parent = nullptr);

    const Document &document() const { return m_document; }
    const Design &design() const { return m_document.design(); }
    const LabelLayout &layout() const { return m_document.layout(); }
    const RefSet &selection() const { return m_document.selection(); }
    QSizeF labelSize() const; ///< mm

    /// A design that was opened, or begun. `saved`: false for one that lies in no file yet, as a
    /// copy brought back.
    void load(const Design &design, bool saved = true);
    void markSaved();

    bool can(Command command) const;
    bool isChecked(Command command) const;
    /// What the command's menu item says now.
    QString captionFor(Command command) const;
    /// True when the command is one of those that change or select elements.
    bool run(Command command);

    void nudge(QPointF by);
    void grow(QPointF by);
    void select(const RefSet &refs);

    /// The mouse on the canvas.
    const CanvasPointer &pointer() const { return m_pointer; }
    void press(const PointerAt &at);
    void pressRuler(Qt::Orientation guide);
    void move(const PointerAt &at);
    void release(const PointerAt &at);
    void doubleClick(const PointerAt &at);
    /// Escape: gives up what is being dragged, then the tool, then the selection.
    void escape();
    /// Puts an element of the current tool onto the middle of the label.
    void placeByKey();

    /// The elements of the selection that may be changed.
    RefSet changeable() const { return edits::unlocked(design(), selection()); }
    /// Changes the design as one step for the user. Steps of one `merge` number in a row are one;
    /// while a dialog edits (see beginEditing()) no step is made.
    template <typename Change>
    void change(const QString &what, int merge, Change change)
    {
        change(m_document.edit());
        changed(what, merge);
    }
    /// Changes each selected, unlocked element of a kind: `change` takes TextElement &, …
    template <typename Element, typename Change>
    void changeEach(const QString &what, int merge, Change each);

    /// From here on changes show but make no step, until endEditing() keeps or drops them all.
    void beginEditing(const QString &what);
    void endEditing(bool keep);
    bool isEditing() const { return !m_editing.isEmpty(); }

    /// Adds elements from the clipboard; the user is told when there is no room.
    void paste(const LabelLayout &elements);

Q_SIGNALS:
    void designChanged();
    void selectionChanged();
    /// Rubber band, snap lines, the box being drawn, the tool.
    void overlayChanged();
    /// Whether and how grid and guides are shown.
    void pageChanged();
    /// Which commands are possible, what they say, and whether there is something to save.
    void stateChanged();
    void statusChanged(const QString &text);
    /// The dialog of the one selected element. `fresh`: the element was put there just now and goes
    /// again when the dialog is cancelled.
    void propertiesWanted(bool fresh);
    void copied(const LabelLayout &elements);

private:
    void changed(const QString &what, int merge);
    void notify(const RefSet &selectedBefore);
    void arrange(Command command);
    void toggle(Command command);
    void selectBeside(int step);
    void lockOrUnlock();
    void setTool(Tool tool);
    void applySettings();
    void place(Tool tool, const QRectF &box);
    QRectF frameToAlign() const;

    Document m_document;
    CanvasPointer m_pointer{m_document};
    QString m_editing;
    bool m_grid = false;
    bool m_snap = true;
    bool m_guides = true;
};

template <typename Element>
inline constexpr ElementKind kKindOf = ElementKind::text;
template <>
inline constexpr ElementKind kKindOf<PictureElement> = ElementKind::picture;
template <>
inline constexpr ElementKind kKindOf<BarcodeElement> = ElementKind::barcode;

template <typename Element, typename Change>
void DesignEditor::changeEach(const QString &what, int merge, Change each)
{
    Design &design = m_document.edit();
    for (const LabelRef ref : changeable())
        if (ref.kind == kKindOf<Element>)
            visitElement(design.layout, ref, [&](auto &element) {
                if constexpr (std::is_same_v<std::decay_t<decltype(element)>, Element>)
                    each(element);
            });
    changed(what, merge);
}
