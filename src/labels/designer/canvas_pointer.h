#pragma once

#include "labels/designer/document.h"
#include "labels/designer/snapping.h"

#include <utility>

/// What the mouse does on the label.
enum class Tool
{
    pointer,
    text,
    barcode,
    picture,
    symbol
};

/// Where the mouse is and what is held down with it.
struct PointerAt
{
    QPointF mm;          ///< on the label
    double reach = 0;    ///< mm within which something counts as met
    bool extend = false; ///< adds to the selection; keeps proportion or direction while dragging
    bool free = false;   ///< nothing snaps; on a press it adds to the selection too
};

enum class PointerShape
{
    arrow,
    cross,
    move,
    sizeAcross,
    sizeDown,
    sizeFalling, ///< from the upper left to the lower right
    sizeRising
};

/// Turns presses, movements and releases of the mouse into changes of a document: selecting, by
/// rubber band too, moving, resizing by eight handles, drawing new elements, dragging guides.
class CanvasPointer
{
public:
    /// `document` is kept by reference.
    explicit CanvasPointer(Document &document) : m_document(document) {}

    struct Setting
    {
        QSizeF label; ///< mm
        SnapTargets::Wanted snapping;
        bool guidesShown = true;
    };
    void set(const Setting &setting) { m_setting = setting; }

    Tool tool() const { return m_tool; }
    void setTool(Tool tool);

    void press(const PointerAt &at);
    void move(const PointerAt &at);
    /// True when the press had become a drag.
    bool release(const PointerAt &at);
    /// Begins to drag a new guide from a ruler; move() and release() go on with it.
    void pressRuler(Qt::Orientation guide);
    /// Gives up what is being dragged; everything is as it was. False when nothing was.
    bool cancel();

    /// Whether elements are being moved or resized.
    bool movesElements() const
    {
        return m_dragging && (m_drag == Drag::move || m_drag == Drag::resize);
    }
    PointerShape shapeAt(const PointerAt &at) const;

    /// What to show while dragging.
    std::optional<QRectF> band() const;   ///< rubber band, mm
    std::optional<QRectF> newBox() const; ///< of the element being drawn, mm
    const std::vector<SnapLine> &snapLines() const { return m_snapLines; }

    /// The box drawn by the last release, once: empty when only a place was clicked.
    std::optional<QRectF> takeDrawn() { return std::exchange(m_drawn, std::nullopt); }

    /// The uppermost element at a place.
    std::optional<LabelRef> elementAt(QPointF mm, double reach) const;

private:
    enum class Drag
    {
        nothing,
        band,
        move,
        resize,
        draw,
        guide
    };
    struct GuideRef
    {
        Qt::Orientation orientation = Qt::Vertical;
        std::size_t index = 0;
    };

    bool pressHandle(const PointerAt &at);
    bool pressGuide(const PointerAt &at);
    void pressElement(const PointerAt &at);
    void begin(Drag drag, const PointerAt &at);
    void startMoving();
    void dragMove(const PointerAt &at);
    void dragResize(const PointerAt &at);
    void dragDraw(const PointerAt &at);
    void dragGuide(const PointerAt &at);
    void letGo();
    void finish(const PointerAt &at);
    void finishGuide(const PointerAt &at);
    void selectInBand();
    std::optional<Handle> handleUnder(const PointerAt &at) const;
    std::optional<GuideRef> guideUnder(const PointerAt &at) const;
    RefSet movable() const;
    void gatherTargets(const RefSet &moving, bool guides = true);

    Document &m_document;
    Setting m_setting;
    Tool m_tool = Tool::pointer;
    Drag m_drag = Drag::nothing;
    bool m_dragging = false; ///< the mouse has moved far enough to mean it
    PointerAt m_pressed;
    QPointF m_now;
    RefSet m_selectedBefore;
    std::optional<LabelRef> m_pressedElement;
    std::optional<Handle> m_handle;
    std::optional<GuideRef> m_guide;
    QRectF m_frame; ///< around what is dragged, as it was at the press
    std::vector<std::pair<LabelRef, LabelBox>> m_boxes; ///< of what is dragged, likewise
    SnapTargets m_targets;
    std::vector<SnapLine> m_snapLines;
    QRectF m_newBox;
    std::optional<QRectF> m_drawn;
};
