#include "labels/designer/forms/canvas_overlay.h"

#include "common/amount.h"

#include <QPainter>
#include <QPixmap>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb kDesk = 0xFFD7DBDB;
constexpr QRgb kSheet = 0xFFF7F8F8;
constexpr QRgb kSheetEdge = 0xFFA9B2B2;
constexpr QRgb kCellEdge = 0xFFC9D0D0;
constexpr QRgb kUnprintable = 0x40B05050;
constexpr QRgb kGrid = 0xFFE3E9EA;
constexpr QRgb kMarked = 0xFFFFE0C0; ///< the marking colour of the layout files
constexpr QRgb kAccent = 0xFF0B6E6E;
constexpr QRgb kPale = 0xFF8AA5A5;
constexpr QRgb kGuide = 0xFF2F7BD9;
constexpr QRgb kSnap = 0xFFE0418A;
constexpr QRgb kWarning = 0xFFD9822B;
constexpr QRgb kNoInk = 0xFFB4BDBD;
constexpr double kHandle = 3.5; ///< pixels from a handle's middle to its side
constexpr double kBadge = 7;    ///< pixels, radius of a warning

/// Lines of one pixel lie on its middle.
QPointF onPixel(QPointF at)
{
    return {std::floor(at.x()) + 0.5, std::floor(at.y()) + 0.5};
}

QRectF onPixels(const QRectF &rect)
{
    return {onPixel(rect.topLeft()), onPixel(rect.bottomRight())};
}

QPen line(QRgb colour, Qt::PenStyle style = Qt::SolidLine)
{
    QPen pen(QColor::fromRgba(colour), 1, style);
    pen.setCosmetic(true);
    return pen;
}

void paintGrid(QPainter &painter, const SheetLook &look, const QRectF &label)
{
    const double step = shownGridStep(kGridStep, look.view.scale());
    if (step <= 0 || !look.editor.isChecked(Command::grid))
        return;
    painter.setPen(line(kGrid));
    const QSizeF size = look.editor.labelSize();
    for (int i = 1; i * step < size.width(); ++i) {
        const double x = onPixel(look.view.toPixels(QPointF(i * step, 0))).x();
        painter.drawLine(QPointF(x, label.top()), QPointF(x, label.bottom()));
    }
    for (int i = 1; i * step < size.height(); ++i) {
        const double y = onPixel(look.view.toPixels(QPointF(0, i * step))).y();
        painter.drawLine(QPointF(label.left(), y), QPointF(label.right(), y));
    }
}

/// What the printer cannot reach, hatched.
void paintUnprintable(QPainter &painter, const QRectF &paper, const QRectF &printable)
{
    const QRegion edge = QRegion(paper.toAlignedRect()) - QRegion(printable.toAlignedRect());
    for (const QRect &part : edge)
        painter.fillRect(part, QBrush(QColor::fromRgba(kUnprintable), Qt::BDiagPattern));
}

void paintMarks(QPainter &painter, const SheetLook &look)
{
    for (const TextElement &text : look.editor.layout().texts)
        if (text.marked)
            painter.fillRect(look.view.toPixels(rectangle(text.box)), QColor::fromRgba(kMarked));
}

QString numberText(double mm)
{
    return amount::length(tenth(mm));
}

} // namespace

void paintPaper(QPainter &painter, const CanvasView &view, const SheetAround &sheet)
{
    const QRectF screen = painter.window();
    painter.setBrush(Qt::NoBrush);
    if (!sheet.paper.isNull()) {
        const QRectF paper = view.toPixels(sheet.paper);
        painter.fillRect(paper, QColor::fromRgba(kSheet));
        if (sheet.paper != sheet.printable)
            paintUnprintable(painter, paper, view.toPixels(sheet.printable));
        painter.setPen(line(kSheetEdge));
        painter.drawRect(onPixels(paper));
    }
    painter.setPen(line(kCellEdge));
    for (const QRectF &cell : sheet.cells) {
        const QRectF pixels = view.toPixels(cell);
        if (pixels.intersects(screen))
            painter.drawRect(onPixels(pixels));
    }
}

void paintSheet(QPainter &painter, const QRect &exposed, const SheetLook &look)
{
    painter.fillRect(exposed, QColor::fromRgba(kDesk));
    paintPaper(painter, look.view, look.sheet);
    const QRectF label = look.view.toPixels(QRectF(QPointF(), look.editor.labelSize()));
    painter.fillRect(label, Qt::white);
    paintMarks(painter, look);
    paintGrid(painter, look, label);
    painter.setPen(line(kSheetEdge));
    painter.drawRect(onPixels(label));
}

namespace {

/// Elements that leave no ink, and the frames that texts have on screen only.
void paintFrames(QPainter &painter, const OverlayLook &look)
{
    painter.setBrush(Qt::NoBrush);
    for (const LabelRef ref : RefSet::all(look.editor.layout())) {
        const bool bordered =
            ref.kind == ElementKind::text && look.editor.layout().texts[ref.index].border;
        const bool ink = look.scene.hasInk(ref);
        if (ink && !bordered)
            continue;
        const QRectF box =
            onPixels(look.view.toPixels(rectangle(boxOf(look.editor.layout(), ref))));
        painter.setPen(line(bordered ? kPale : kNoInk, bordered ? Qt::SolidLine : Qt::DashLine));
        painter.drawRect(box);
        if (!ink && ref.kind == ElementKind::picture) {
            painter.drawLine(box.topLeft(), box.bottomRight());
            painter.drawLine(box.topRight(), box.bottomLeft());
        }
    }
}

void paintGuides(QPainter &painter, const OverlayLook &look)
{
    if (!look.editor.isChecked(Command::guides))
        return;
    const QRectF clip = painter.window();
    painter.setPen(line(kGuide));
    for (const float x : look.editor.design().guides.vertical) {
        const double at = onPixel(look.view.toPixels(QPointF(static_cast<double>(x), 0))).x();
        painter.drawLine(QPointF(at, clip.top()), QPointF(at, clip.bottom()));
    }
    for (const float y : look.editor.design().guides.horizontal) {
        const double at = onPixel(look.view.toPixels(QPointF(0, static_cast<double>(y)))).y();
        painter.drawLine(QPointF(clip.left(), at), QPointF(clip.right(), at));
    }
}

void paintSnapLines(QPainter &painter, const OverlayLook &look)
{
    const QRectF clip = painter.window();
    painter.setPen(line(kSnap));
    for (const SnapLine &snap : look.editor.pointer().snapLines()) {
        if (snap.kind == SnapKind::grid)
            continue;
        const QPointF at = onPixel(look.view.toPixels(QPointF(snap.at, snap.at)));
        if (snap.orientation == Qt::Vertical)
            painter.drawLine(QPointF(at.x(), clip.top()), QPointF(at.x(), clip.bottom()));
        else
            painter.drawLine(QPointF(clip.left(), at.y()), QPointF(clip.right(), at.y()));
    }
}

/// A small padlock at the corner of a locked element.
void paintLock(QPainter &painter, QPointF corner)
{
    const QRectF body(corner.x() + 2, corner.y() + 6, 9, 7);
    painter.setPen(QPen(QColor::fromRgba(kAccent), 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(QRectF(body.left() + 2, body.top() - 5, 5, 9), 0, 180 * 16);
    painter.fillRect(body, QColor::fromRgba(kAccent));
}

void paintHandles(QPainter &painter, const QRectF &frame)
{
    painter.setPen(line(kAccent));
    painter.setBrush(Qt::white);
    for (const Handle handle : kHandles) {
        const QPointF at = onPixel(handlePoint(frame, handle));
        painter.drawRect(QRectF(at.x() - kHandle, at.y() - kHandle, 2 * kHandle, 2 * kHandle));
    }
}

void paintSelection(QPainter &painter, const OverlayLook &look)
{
    const LabelLayout &layout = look.editor.layout();
    QList<QLineF> sides; // thousands of lines cost less than as many rectangles
    for (const LabelRef ref : look.editor.selection()) {
        const QRectF box = onPixels(look.view.toPixels(rectangle(boxOf(layout, ref))));
        sides << QLineF(box.topLeft(), box.topRight()) << QLineF(box.topRight(), box.bottomRight())
              << QLineF(box.bottomRight(), box.bottomLeft())
              << QLineF(box.bottomLeft(), box.topLeft());
    }
    painter.setPen(line(look.active ? kAccent : kPale));
    painter.drawLines(sides);
    for (const LabelRef ref : look.editor.design().locked)
        if (look.editor.selection().contains(ref))
            paintLock(painter,
                      onPixel(look.view.toPixels(rectangle(boxOf(layout, ref)).topLeft())));
    const RefSet free = look.editor.changeable();
    if (free.isEmpty())
        return;
    const QRectF frame = look.view.toPixels(edits::bounds(layout, free));
    if (free.size() > 1) {
        painter.setPen(line(kAccent, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(onPixels(frame));
    }
    paintHandles(painter, onPixels(frame));
}

/// Place and size in numbers beside what is being dragged.
void paintNumbers(QPainter &painter, const OverlayLook &look, const QRectF &mm)
{
    const QString text =
        u"%1 ; %2   %3 × %4"_s.arg(numberText(mm.left()), numberText(mm.top()),
                                   numberText(mm.width()), numberText(mm.height()));
    QRectF room = QRectF(painter.fontMetrics().boundingRect(text)).adjusted(-6, -3, 6, 3);
    room.moveTopLeft(look.view.toPixels(mm).bottomLeft() + QPointF(0, 10));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x20, 0x30, 0x30, 0xE0));
    painter.drawRoundedRect(room, 3, 3);
    painter.setPen(Qt::white);
    painter.drawText(room, Qt::AlignCenter, text);
}

void paintDragged(QPainter &painter, const OverlayLook &look)
{
    const CanvasPointer &pointer = look.editor.pointer();
    if (const auto band = pointer.band()) {
        painter.setPen(line(kAccent));
        painter.setBrush(QColor(0x0B, 0x6E, 0x6E, 0x20));
        painter.drawRect(onPixels(look.view.toPixels(*band)));
    }
    if (const auto box = pointer.newBox()) {
        painter.setPen(line(kAccent));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(onPixels(look.view.toPixels(*box)));
        paintNumbers(painter, look, *box);
    }
    if (pointer.movesElements())
        paintNumbers(painter, look, edits::bounds(look.editor.layout(), look.editor.changeable()));
}

/// The mark of an element with something to say.
QPixmap warningBadge(qreal ratio)
{
    const double side = 2 * kBadge + 2; // its rim, too
    QPixmap badge((QSizeF(side, side) * ratio).toSize());
    badge.setDevicePixelRatio(ratio);
    badge.fill(Qt::transparent);
    QPainter painter(&badge);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(11);
    painter.setFont(font);
    const QRectF circle(1, 1, 2 * kBadge, 2 * kBadge);
    painter.setPen(QPen(Qt::white, 1.5));
    painter.setBrush(QColor::fromRgba(kWarning));
    painter.drawEllipse(circle);
    painter.drawText(circle, Qt::AlignCenter, u"!"_s);
    return badge;
}

void paintNotices(QPainter &painter, const OverlayLook &look)
{
    if (look.marked.isEmpty())
        return;
    const QPixmap badge = warningBadge(painter.device()->devicePixelRatioF());
    const QPointF middle(kBadge + 1, kBadge + 1);
    for (const LabelRef ref : look.marked) {
        if (!hasElement(look.editor.layout(), ref))
            continue;
        const QRectF box = look.view.toPixels(rectangle(boxOf(look.editor.layout(), ref)));
        painter.drawPixmap((box.topRight() - middle).toPoint(), badge);
    }
}

} // namespace

void paintOverlay(QPainter &painter, const OverlayLook &look)
{
    paintFrames(painter, look);
    paintGuides(painter, look);
    paintSelection(painter, look);
    paintSnapLines(painter, look);
    paintDragged(painter, look);
    paintNotices(painter, look);
}
