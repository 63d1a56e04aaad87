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

} // namespace

DesignScene::DesignScene(const QString &pictures)
    : m_folder(pictures), m_fonts(std::make_unique<DeviceFonts>(QSizeF(kUsualDpi, kUsualDpi))),
      m_pictures(std::make_unique<PictureStore>(pictures))
{}

void DesignScene::setDevice(QSizeF dpi)
{
    if (dpi.isEmpty() || dpi == m_fonts->dpi())
        return;
    m_fonts = std::make_unique<DeviceFonts>(dpi);
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
    std::vector<std::size_t> changed;
    for (std::size_t i = 0; i < now.size(); ++i)
        if (all || i >= former.size() || !(now[i] == former[i]))
            changed.push_back(i);
    for (std::size_t i = now.size(); i < items.size(); ++i)
        place = around(place, items[i].bounds);
    items.resize(now.size());
    for (const std::size_t i : changed)
        place = around(place, items[i].bounds);
    build(list, layout, changed, items);
    for (const std::size_t i : changed) {
        place = around(place, items[i].bounds);
        if (i < former.size())
            former[i] = now[i];
    }
    if (former.size() != now.size())
        former = now;
    return place;
}

template <typename Element>
void DesignScene::build(std::vector<Element> LabelLayout::*list, const LabelLayout &layout,
                        const std::vector<std::size_t> &changed, Items &items)
{
    if (changed.empty())
        return;
    LabelLayout part;
    for (const std::size_t i : changed) {
        (part.*list).push_back((layout.*list)[i]);
        items[i] = {{}, rectangle((layout.*list)[i].box), false};
    }
    BuiltLabel built = buildLabel(part, m_row, *m_fonts);
    for (DrawCommand &command : built.commands) {
        const std::size_t index = changed[static_cast<std::size_t>(command.element.index)];
        command.element.index = static_cast<int>(index);
        Item &item = items[index];
        item.bounds = around(item.bounds, boundingBox(command, *m_fonts));
        item.commands.push_back(std::move(command));
    }
    for (const std::size_t text : built.overflowing)
        items[changed[text]].overflows = true;
}

void DesignScene::paint(QPainter &painter, const CanvasView &view, const QRectF &exposed)
{
    painter.save();
    CommandPainter ink(painter, *m_fonts, *m_pictures);
    // Bars thinner than a pixel are shown as grey, not left out.
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(view.origin());
    painter.scale(view.scale() * kMmPerInch / m_fonts->dpi().width(),
                  view.scale() * kMmPerInch / m_fonts->dpi().height());
    for (const Items *items : {&m_pictureItems, &m_barcodeItems, &m_textItems})
        for (const Item &item : *items)
            if (!item.commands.empty() && item.bounds.left() <= exposed.right() &&
                item.bounds.right() >= exposed.left() && item.bounds.top() <= exposed.bottom() &&
                item.bounds.bottom() >= exposed.top())
                ink.paint(item.commands);
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

std::vector<DrawCommand> DesignScene::commands() const
{
    std::vector<DrawCommand> all;
    for (const Items *items : {&m_pictureItems, &m_barcodeItems, &m_textItems})
        for (const Item &item : *items)
            all.insert(all.end(), item.commands.begin(), item.commands.end());
    return all;
}
