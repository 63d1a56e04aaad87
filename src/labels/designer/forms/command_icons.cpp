#include "labels/designer/forms/command_icons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

#include <functional>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb kInk = 0xFF2B3838;
constexpr QRgb kAccent = 0xFF0B6E6E;
constexpr QRgb kFill = 0xFFBFDADA;

/// Draws on a field of 16 × 16.
using Draw = std::function<void(QPainter &)>;

class DrawnIcon final : public QIconEngine
{
public:
    explicit DrawnIcon(Draw draw) : m_draw(std::move(draw)) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 16.0, rect.height() / 16.0);
        if (mode == QIcon::Disabled)
            painter->setOpacity(0.35);
        painter->setPen(
            QPen(QColor::fromRgba(kInk), 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        m_draw(*painter);
        painter->restore();
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }
    QIconEngine *clone() const override { return new DrawnIcon(m_draw); }

private:
    Draw m_draw;
};

void lines(QPainter &p, std::initializer_list<QLineF> all)
{
    for (const QLineF &one : all)
        p.drawLine(one);
}

void box(QPainter &p, const QRectF &rect, bool strong = false)
{
    p.setBrush(QColor::fromRgba(strong ? kAccent : kFill));
    p.setPen(QPen(QColor::fromRgba(kAccent), 1));
    p.drawRect(rect);
}

void letter(QPainter &p, const QString &text)
{
    QFont font = p.font();
    font.setPixelSize(13);
    font.setBold(true);
    p.setFont(font);
    p.drawText(QRectF(0, 0, 16, 16), Qt::AlignCenter, text);
}

void arrowHead(QPainter &p, QPointF tip, QPointF back)
{
    const QPointF along = (back - tip);
    const QPointF across(-along.y(), along.x());
    QPainterPath path(tip);
    path.lineTo(tip + along + across * 0.7);
    path.lineTo(tip + along - across * 0.7);
    path.closeSubpath();
    p.fillPath(path, p.pen().color());
}

/// Two boxes against a line: the line's place and which way it stands say what is aligned.
Draw aligned(bool across, double at)
{
    return [across, at](QPainter &p) {
        const double low = at * 14 + 1;
        const auto place = [&](double length) { return low - at * length; };
        if (across) {
            box(p, {place(11), 3, 11, 4}, true);
            box(p, {place(7), 9, 7, 4});
        } else {
            box(p, {3, place(11), 4, 11}, true);
            box(p, {9, place(7), 4, 7});
        }
        p.setPen(QPen(QColor::fromRgba(kInk), 1.2));
        p.drawLine(across ? QLineF(low, 1, low, 15) : QLineF(1, low, 15, low));
    };
}

Draw spread(bool across)
{
    return [across](QPainter &p) {
        for (const double at : {1.0, 6.5, 12.0})
            box(p, across ? QRectF(at, 4, 3, 8) : QRectF(4, at, 8, 3), at == 6.5);
    };
}

Draw stacked(bool front, bool all)
{
    return [front, all](QPainter &p) {
        const QRectF upper(2, 2, 8, 8);
        const QRectF lower(6, 6, 8, 8);
        if (front) {
            box(p, lower);
            box(p, upper, true);
        } else {
            box(p, lower, true);
            box(p, upper);
        }
        if (all)
            p.drawRect(QRectF(0.5, 0.5, 15, 15));
    };
}

Draw turnArrow(bool left)
{
    return [left](QPainter &p) {
        if (!left) {
            p.translate(16, 0);
            p.scale(-1, 1);
        }
        p.drawArc(QRectF(3, 3, 10, 10), 0, 200 * 16);
        arrowHead(p, {1.6, 11}, {3.4, 7.4});
    };
}

Draw undoArrow(bool back)
{
    return [back](QPainter &p) {
        if (!back) {
            p.translate(16, 0);
            p.scale(-1, 1);
        }
        QPainterPath path(QPointF(4, 6));
        path.lineTo(10, 6);
        path.cubicTo(15, 6, 15, 13, 10, 13);
        path.lineTo(6, 13);
        p.drawPath(path);
        arrowHead(p, {1.5, 6}, {5, 6});
    };
}

Draw lens(const QString &sign)
{
    return [sign](QPainter &p) {
        p.drawEllipse(QRectF(2, 2, 9, 9));
        p.drawLine(QLineF(10, 10, 14, 14));
        if (!sign.isEmpty())
            p.drawLine(QLineF(4.5, 6.5, 8.5, 6.5));
        if (sign == u"+"_s)
            p.drawLine(QLineF(6.5, 4.5, 6.5, 8.5));
    };
}

void drawBars(QPainter &p)
{
    p.setPen(Qt::NoPen);
    p.setBrush(QColor::fromRgba(kInk));
    for (const auto &[at, width] :
         {std::pair(1.5, 1.0), {3.5, 2.0}, {6.5, 0.8}, {8.3, 1.4}, {10.8, 0.8}, {12.4, 2.0}})
        p.drawRect(QRectF(at, 2.5, width, 11));
}

void drawPicture(QPainter &p)
{
    p.drawRect(QRectF(1.5, 2.5, 13, 11));
    QPainterPath hills(QPointF(2, 12.5));
    hills.lineTo(6, 7);
    hills.lineTo(9, 10.5);
    hills.lineTo(11, 8.5);
    hills.lineTo(14, 12.5);
    hills.closeSubpath();
    p.fillPath(hills, QColor::fromRgba(kAccent));
    p.setBrush(QColor::fromRgba(kAccent));
    p.drawEllipse(QRectF(9.7, 4.2, 2, 2));
}

void drawPointer(QPainter &p)
{
    QPainterPath path(QPointF(4, 1.5));
    path.lineTo(4, 13);
    path.lineTo(7, 10.2);
    path.lineTo(9, 14.5);
    path.lineTo(11, 13.6);
    path.lineTo(9, 9.4);
    path.lineTo(13, 9.2);
    path.closeSubpath();
    p.fillPath(path, QColor::fromRgba(kInk));
}

void drawDisk(QPainter &p)
{
    box(p, {2, 2, 12, 12});
    box(p, {5, 9, 6, 5}, true);
    p.drawRect(QRectF(5, 2, 6, 3.5));
}

void drawPage(QPainter &p)
{
    p.setBrush(Qt::white);
    p.drawRect(QRectF(3, 1.5, 10, 13));
    for (const double y : {3.5, 7.0, 10.5})
        for (const double x : {4.5, 8.5})
            box(p, {x, y, 3, 2.4});
}

void drawLock(QPainter &p)
{
    p.drawArc(QRectF(4.5, 2, 7, 9), 0, 180 * 16);
    box(p, {3, 7, 10, 7}, true);
}

void drawFolder(QPainter &p)
{
    QPainterPath path(QPointF(1.5, 13));
    path.lineTo(1.5, 3.5);
    path.lineTo(6, 3.5);
    path.lineTo(7.5, 5.5);
    path.lineTo(14, 5.5);
    path.lineTo(14, 13);
    path.closeSubpath();
    p.setBrush(QColor::fromRgba(kFill));
    p.drawPath(path);
}

const std::map<Command, Draw> &drawings()
{
    static const std::map<Command, Draw> all = {
        {Command::newLayout, [](QPainter &p) { p.drawRect(QRectF(3.5, 1.5, 9, 13)); }},
        {Command::open, drawFolder},
        {Command::save, drawDisk},
        {Command::pageSetup, drawPage},
        {Command::sheetView,
         [](QPainter &p) {
             drawPage(p);
             p.drawEllipse(QRectF(8, 8, 6, 6));
         }},
        {Command::undo, undoArrow(true)},
        {Command::redo, undoArrow(false)},
        {Command::pointer, drawPointer},
        {Command::addText, [](QPainter &p) { letter(p, u"A"_s); }},
        {Command::addBarcode, drawBars},
        {Command::addPicture, drawPicture},
        {Command::addSymbol, [](QPainter &p) { letter(p, u"★"_s); }},
        {Command::turnLeft, turnArrow(true)},
        {Command::turnRight, turnArrow(false)},
        {Command::lock, drawLock},
        {Command::alignLeft, aligned(true, 0)},
        {Command::alignCentreX, aligned(true, 0.5)},
        {Command::alignRight, aligned(true, 1)},
        {Command::alignTop, aligned(false, 0)},
        {Command::alignCentreY, aligned(false, 0.5)},
        {Command::alignBottom, aligned(false, 1)},
        {Command::distributeX, spread(true)},
        {Command::distributeY, spread(false)},
        {Command::front, stacked(true, true)},
        {Command::forward, stacked(true, false)},
        {Command::backward, stacked(false, false)},
        {Command::back, stacked(false, true)},
        {Command::zoomIn, lens(u"+"_s)},
        {Command::zoomOut, lens(u"-"_s)},
        {Command::zoomFit,
         [](QPainter &p) {
             box(p, {4, 5, 8, 6});
             lines(p, {{1, 4, 1, 1}, {1, 1, 4, 1}, {15, 12, 15, 15}, {15, 15, 12, 15}});
         }},
        {Command::grid,
         [](QPainter &p) {
             lines(
                 p,
                 {{5.5, 2, 5.5, 14}, {10.5, 2, 10.5, 14}, {2, 5.5, 14, 5.5}, {2, 10.5, 14, 10.5}});
         }},
        {Command::snap,
         [](QPainter &p) {
             p.setPen(QPen(QColor::fromRgba(kAccent), 3, Qt::SolidLine, Qt::FlatCap));
             p.drawArc(QRectF(3.5, 2.5, 9, 9), 0, -180 * 16);
             lines(p, {{3.5, 7, 3.5, 2}, {12.5, 7, 12.5, 2}});
         }},
    };
    return all;
}

} // namespace

QIcon iconOf(Command command)
{
    const auto found = drawings().find(command);
    return found != drawings().end() ? QIcon(new DrawnIcon(found->second)) : QIcon();
}
