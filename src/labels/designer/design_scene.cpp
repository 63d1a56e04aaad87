#include "labels/designer/design_scene.h"

#include "labels/designer/geometry.h"
#include "labels/print/label_builder.h"
#include "paper/command_painter.h"
#include "paper/millimetres.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr double kUsualDpi = 600; ///< of the built-in printer

/// A rectangle that holds thin and empty ones too, which QRectF::united() passes over.
QRectF around(const QRectF &a, const QRectF &b)
{
    if (a.isNull())
        return b;
    if (b.isNull())
        return a;
    return {QPointF(std::min(a.left(), b.left()), std::min(a.top(), b.top())),
            QPointF(std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom()))};
}

/// Whether two rectangles have a place in common; thin and empty ones can, too.
bool meet(const QRectF &a, const QRectF &b)
{
    return a.left() <= b.right() && a.right() >= b.left() && a.top() <= b.bottom() &&
           a.bottom() >= b.top();
}

/// The element with its corner on the zero point.
template <typename Element>
Element atZero(Element element)
{
    element.box.left = element.box.top = 0;
    return element;
}

} // namespace

DesignScene::DesignScene(const QString &pictures)
    : m_folder(pictures), m_fonts(std::make_unique<DeviceFonts>(QSizeF(kUsualDpi, kUsualDpi))),
      m_pictures(std::make_unique<PictureStore>(pictures)),
      m_ink(std::make_unique<ScreenInk>(*m_fonts))
{}

void DesignScene::setDevice(QSizeF dpi)
{
    if (dpi.isEmpty() || dpi == m_fonts->dpi())
        return;
    m_fonts = std::make_unique<DeviceFonts>(dpi);
    m_ink = std::make_unique<ScreenInk>(*m_fonts);
    m_stale = true;
}

void DesignScene::forgetPictures()
{
    m_pictures = std::make_unique<PictureStore>(m_folder);
    m_stale = true;
}

QRectF DesignScene::show(const LabelLayout &layout, const LabelRow &row)
{
    const bool all = m_stale || !(row == m_row);
    m_row = row;
    m_stale = false;
    QRectF changed = update(&LabelLayout::pictures, layout, m_pictureItems, all);
    changed = around(changed, update(&LabelLayout::barcodes, layout, m_barcodeItems, all));
    return around(changed, update(&LabelLayout::texts, layout, m_textItems, all));
}

template <typename Element>
QRectF DesignScene::update(std::vector<Element> LabelLayout::*list, const LabelLayout &layout,
                           Items &items, bool all)
{
    const std::vector<Element> &now = layout.*list;
    std::vector<Element> &former = m_shown.*list;
    QRectF place;
    for (std::size_t i = now.size(); i < items.size(); ++i)
        place = around(place, items[i].place());
    former.resize(now.size());
    std::vector<std::size_t> moved;
    std::vector<std::size_t> changed;
    for (std::size_t i = 0; i < now.size(); ++i) {
        const bool fresh = all || i >= items.size();
        if (!fresh && now[i] == former[i])
            continue;
        moved.push_back(i);
        if (i < items.size())
            place = around(place, items[i].place());
        if (fresh || !(atZero(now[i]) == atZero(former[i])))
            changed.push_back(i);
        former[i] = now[i];
    }
    items.resize(now.size());
    build(list, changed, items);
    for (const std::size_t i : moved) {
        items[i].at = rectangle(now[i].box).topLeft();
        place = around(place, items[i].place());
    }
    return place;
}

template <typename Element>
void DesignScene::build(std::vector<Element> LabelLayout::*list,
                        const std::vector<std::size_t> &changed, Items &items)
{
    if (changed.empty())
        return;
    LabelLayout part;
    for (const std::size_t i : changed) {
        (part.*list).push_back(atZero((m_shown.*list)[i]));
        items[i] = {{}, rectangle((part.*list).back().box), {}, false};
    }
    BuiltLabel built = buildLabel(part, m_row, *m_fonts);
    for (DrawCommand &command : built.commands) {
        if (const auto *const picture = std::get_if<PictureCommand>(&command.shape))
            if (!canShow(*picture))
                continue;
        Item &item = items[changed[static_cast<std::size_t>(command.element.index)]];
        item.bounds = around(item.bounds, boundingBox(command, *m_fonts));
        item.commands.push_back(std::move(command));
    }
    for (const std::size_t text : built.overflowing)
        items[changed[text]].overflows = true;
}

bool DesignScene::canShow(const PictureCommand &picture)
{
    const QPointF corner(picture.box.width(), picture.box.height());
    const QPoint dots = onPaper(corner) ? toDots(corner, m_fonts->dpi()).toPoint() : QPoint();
    return dots.x() > 0 && dots.y() > 0 &&
           !m_pictures->find(picture.file, {dots.x(), dots.y()}).isNull();
}

void DesignScene::paint(QPainter &painter, const CanvasView &view, const QRectF &exposed)
{
    painter.save();
    CommandPainter ink(painter, *m_fonts, *m_pictures, m_ink.get());
    // Bars thinner than a pixel are shown as grey, not left out.
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(view.origin());
    painter.scale(view.scale() * kMmPerInch / m_fonts->dpi().width(),
                  view.scale() * kMmPerInch / m_fonts->dpi().height());
    for (const Items *items : {&m_pictureItems, &m_barcodeItems, &m_textItems})
        for (const Item &item : *items)
            if (!item.commands.empty() && meet(item.place(), exposed))
                ink.paint(item.commands, item.at);
    painter.restore();
}

bool DesignScene::overflows(LabelRef text) const
{
    return text.kind == ElementKind::text && text.index < m_textItems.size() &&
           m_textItems[text.index].overflows;
}

const DesignScene::Items &DesignScene::itemsOf(ElementKind kind) const
{
    switch (kind) {
    case ElementKind::picture:
        return m_pictureItems;
    case ElementKind::barcode:
        return m_barcodeItems;
    default:
        return m_textItems;
    }
}

bool DesignScene::hasInk(LabelRef ref) const
{
    const Items &items = itemsOf(ref.kind);
    return ref.index < items.size() && !items[ref.index].commands.empty();
}
