#include "paper/draw_commands.h"

#include "paper/turned_text.h"

#include <QColor>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QString number(double value)
{
    const double rounded = std::round(value * 100) / 100;
    return QString::number(rounded == 0 ? 0 : rounded, 'f', 2);
}

QString point(QPointF at)
{
    return number(at.x()) + u' ' + number(at.y());
}

QString boxText(const QRectF &box, QPointF origin)
{
    return u"%1 size %2 %3"_s.arg(point(box.topLeft() + origin), number(box.width()),
                                  number(box.height()));
}

QString styleText(const PaperFont &font, QRgb colour)
{
    QString text =
        u"%1 \"%2\" %3pt"_s.arg(QColor(colour).name(), font.name).arg(QString::number(font.size));
    if (font.bold)
        text += u" bold";
    if (font.italic)
        text += u" italic";
    if (font.underline)
        text += u" underline";
    if (font.strikeThrough)
        text += u" strike";
    return text;
}

struct ToText
{
    QPointF origin;

    QString operator()(const PictureCommand &picture) const
    {
        return u"picture %1 file \"%2\""_s.arg(boxText(picture.box, origin), picture.file);
    }
    QString operator()(const BarsCommand &bars) const
    {
        return u"bars %1 %2 %3 %4"_s.arg(boxText(bars.box, origin), bars.symbol.name,
                                         bars.symbol.digits, styleText(bars.font, bars.colour));
    }
    QString operator()(const TextCommand &text) const
    {
        return u"text %1 angle %2 %3 \"%4\""_s.arg(point(text.at + origin),
                                                   QString::number(text.angle),
                                                   styleText(text.font, text.colour), text.text);
    }
    QString operator()(const LineCommand &line) const
    {
        return u"line %1 to %2 %3 %4"_s.arg(point(line.from + origin), point(line.to + origin),
                                            number(line.width), QColor(line.colour).name());
    }
    QString operator()(const RectangleCommand &rectangle) const
    {
        const QString how = rectangle.filled ? u"filled"_s : number(rectangle.line);
        return u"rectangle %1 %2 %3"_s.arg(boxText(rectangle.box, origin), how,
                                           QColor(rectangle.colour).name());
    }
};

struct BoundingBox
{
    const TextMeasure &measure;

    QRectF operator()(const PictureCommand &picture) const { return picture.box.normalized(); }
    QRectF operator()(const BarsCommand &bars) const { return bars.box.normalized(); }
    QRectF operator()(const RectangleCommand &rectangle) const
    {
        return rectangle.box.normalized();
    }
    QRectF operator()(const LineCommand &line) const
    {
        const double half = line.width / 2;
        return QRectF(line.from, line.to).normalized().adjusted(-half, -half, half, half);
    }
    QRectF operator()(const TextCommand &text) const
    {
        const QRectF line(0, 0, measure.width(text.font, text.text), measure.lineHeight(text.font));
        return turned(line, text.angle).translated(text.at);
    }
};

} // namespace

QString toText(const DrawCommand &command, QPointF origin)
{
    return std::visit(ToText{origin}, command.shape);
}

QRectF boundingBox(const DrawCommand &command, const TextMeasure &measure)
{
    return std::visit(BoundingBox{measure}, command.shape);
}
