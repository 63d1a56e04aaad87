#include "labels/designer/design_editor.h"

#include "labels/designer/label_size.h"
#include "paper/millimetres.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMergeNudge = -1;
constexpr int kMergeGrow = -2;
constexpr double kNewText = 30;      ///< mm across
constexpr double kNewTextHeight = 5; ///< mm
constexpr double kNewBars = 38;      ///< mm across: an EAN-13 of full size
constexpr double kNewBarsHeight = 18;
constexpr double kNewPicture = 15;
constexpr double kNewSymbol = 8;
constexpr double kLeastDrawn = 1; ///< mm; less was a click

const QString kFull = u"Bir tasarımda her türden en çok %1 öge olabilir."_s;
const QString kNewFont = u"Arial"_s;
const QString kNewSymbolFont = u"Wingdings"_s;

QSizeF newSize(Tool tool)
{
    switch (tool) {
    case Tool::barcode:
        return {kNewBars, kNewBarsHeight};
    case Tool::picture:
        return {kNewPicture, kNewPicture};
    case Tool::symbol:
        return {kNewSymbol, kNewSymbol};
    default:
        return {kNewText, kNewTextHeight};
    }
}

TextElement newText(const LabelBox &box, Tool tool)
{
    TextElement text;
    text.box = box;
    text.alignment = u"1"_s;
    if (tool == Tool::symbol) {
        const double points = static_cast<double>(box.height) * kPointsPerInch / kMmPerInch;
        text.font = {kNewSymbolFont, std::floor(points)};
        return text;
    }
    text.font = {kNewFont, 8};
    text.caption = u"Metin"_s;
    return text;
}

LabelLayout newElement(Tool tool, const LabelBox &box)
{
    LabelLayout layout;
    if (tool == Tool::barcode)
        layout.barcodes = {{box, {kNewFont, 8}, 0, 0, 0, u"8690000000012"_s}};
    else if (tool == Tool::picture)
        layout.pictures = {{box, {}}};
    else
        layout.texts = {newText(box, tool)};
    return layout;
}

} // namespace

DesignEditor::DesignEditor(QObject *parent) : QObject(parent)
{
    applySettings();
}

QSizeF DesignEditor::labelSize() const
{
    return sizeOfLabel(design());
}

void DesignEditor::load(const Design &design, bool saved)
{
    m_editing.clear();
    m_pointer.cancel();
    m_document = Document(design);
    if (!saved)
        m_document.markUnsaved();
    setTool(Tool::pointer);
    applySettings();
    Q_EMIT designChanged();
    Q_EMIT selectionChanged();
    Q_EMIT stateChanged();
}

void DesignEditor::markSaved()
{
    m_document.markSaved();
    Q_EMIT stateChanged();
}

void DesignEditor::applySettings()
{
    m_pointer.set({.label = labelSize(),
                   .snapping = {.grid = m_snap && m_grid ? kGridStep : 0,
                                .elements = m_snap,
                                .guides = m_snap,
                                .label = m_snap},
                   .guidesShown = m_guides});
}

void DesignEditor::changed(const QString &what, int merge)
{
    if (m_editing.isEmpty() && !m_document.commit(what, merge))
        return;
    notify(selection());
}

void DesignEditor::notify(const RefSet &selectedBefore)
{
    applySettings();
    Q_EMIT designChanged();
    if (!(selectedBefore == selection()))
        Q_EMIT selectionChanged();
    Q_EMIT stateChanged();
}

void DesignEditor::beginEditing(const QString &what)
{
    m_pointer.cancel();
    m_document.edit();
    m_editing = what;
}

void DesignEditor::endEditing(bool keep)
{
    if (m_editing.isEmpty())
        return;
    const RefSet before = selection();
    const QString what = std::exchange(m_editing, {});
    if (keep)
        m_document.commit(what);
    else
        m_document.rollback();
    notify(before);
    Q_EMIT selectionChanged();
}

void DesignEditor::select(const RefSet &refs)
{
    m_document.select(refs);
    Q_EMIT selectionChanged();
    Q_EMIT stateChanged();
}

/// The next or previous element in painting order, the first or last when none is selected.
void DesignEditor::selectBeside(int step)
{
    const RefSet all = RefSet::all(layout());
    if (all.isEmpty())
        return;
    const auto count = static_cast<std::ptrdiff_t>(all.size());
    std::ptrdiff_t place = step > 0 ? 0 : count - 1;
    if (const auto key = m_document.key()) {
        const auto found = std::find(all.begin(), all.end(), *key);
        place = ((found - all.begin()) + step + count) % count;
    }
    select({*(all.begin() + place)});
}

void DesignEditor::nudge(QPointF by)
{
    edits::move(m_document.edit(), selection(), by);
    changed(u"Kaydırma"_s, kMergeNudge);
}

void DesignEditor::grow(QPointF by)
{
    edits::grow(m_document.edit(), selection(), by);
    changed(u"Boyutlandırma"_s, kMergeGrow);
}

void DesignEditor::press(const PointerAt &at)
{
    const RefSet before = selection();
    m_pointer.press(at);
    if (!(before == selection())) {
        Q_EMIT selectionChanged();
        Q_EMIT stateChanged();
    }
}

void DesignEditor::pressRuler(Qt::Orientation guide)
{
    m_guides = true;
    applySettings();
    m_pointer.pressRuler(guide);
    Q_EMIT stateChanged();
}

void DesignEditor::move(const PointerAt &at)
{
    const RefSet before = selection();
    m_pointer.move(at);
    if (m_document.isEditing())
        Q_EMIT designChanged();
    if (!(before == selection()))
        Q_EMIT selectionChanged();
    Q_EMIT overlayChanged();
}

void DesignEditor::release(const PointerAt &at)
{
    const RefSet before = selection();
    m_pointer.release(at);
    notify(before);
    Q_EMIT overlayChanged();
    const std::optional<QRectF> box = m_pointer.takeDrawn();
    if (box)
        place(m_pointer.tool(), *box);
}

void DesignEditor::doubleClick(const PointerAt &at)
{
    m_pointer.cancel();
    const auto ref = m_pointer.elementAt(at.mm, at.reach);
    if (!ref)
        return;
    select({*ref});
    run(Command::properties);
}

void DesignEditor::escape()
{
    if (m_pointer.cancel()) {
        notify({});
        Q_EMIT selectionChanged();
        Q_EMIT overlayChanged();
    } else if (m_pointer.tool() != Tool::pointer) {
        setTool(Tool::pointer);
    } else {
        select({});
    }
}

void DesignEditor::setTool(Tool tool)
{
    m_pointer.setTool(tool);
    Q_EMIT overlayChanged();
    Q_EMIT stateChanged();
    if (tool != Tool::pointer)
        Q_EMIT statusChanged(
            u"Çizmek için sürükleyin, koymak için tıklayın ya da Enter'a basın; Esc bırakır."_s);
}

void DesignEditor::placeByKey()
{
    if (m_pointer.tool() == Tool::pointer)
        return;
    const QSizeF size = newSize(m_pointer.tool());
    const QSizeF label = labelSize();
    place(m_pointer.tool(), {QPointF(std::max((label.width() - size.width()) / 2, 0.0),
                                     std::max((label.height() - size.height()) / 2, 0.0)),
                             QSizeF()});
}

void DesignEditor::place(Tool tool, const QRectF &box)
{
    QRectF wanted = box;
    if (box.width() < kLeastDrawn || box.height() < kLeastDrawn)
        wanted.setSize(newSize(tool).boundedTo(labelSize()));
    const LabelLayout element = newElement(tool, labelBox(wanted));
    setTool(Tool::pointer);
    if (!edits::hasRoom(layout(), element)) {
        Q_EMIT statusChanged(kFull.arg(kMostElements));
        return;
    }
    // What an element shows is settled in its dialog; until then it is no step.
    beginEditing(u"Ekleme"_s);
    m_document.select(edits::add(m_document.edit(), element));
    if (tool == Tool::barcode) {
        endEditing(true);
        return;
    }
    notify({});
    Q_EMIT selectionChanged();
    Q_EMIT propertiesWanted(true);
}

void DesignEditor::paste(const LabelLayout &elements)
{
    if (!edits::hasRoom(layout(), elements)) {
        Q_EMIT statusChanged(kFull.arg(kMostElements));
        return;
    }
    const LabelLayout placed = edits::besideOthers(layout(), elements, labelSize());
    const RefSet added = edits::add(m_document.edit(), placed);
    if (m_document.commit(u"Yapıştırma"_s, added)) {
        notify({});
        Q_EMIT selectionChanged();
    }
}
