#include "labels/print/draw_commands.h"

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

QString styleText(const LabelFont &font, QRgb colour)
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
        const bool ean8 = bars.symbol.symbology == ean::Symbology::ean8;
        return u"bars %1 %2 %3 %4"_s.arg(boxText(bars.box, origin), ean8 ? u"EAN-8" : u"EAN-13",
                                         bars.symbol.digits, styleText(bars.font, bars.colour));
    }
    QString operator()(const TextCommand &text) const
    {
        return u"text %1 angle %2 %3 \"%4\""_s.arg(point(text.at + origin),
                                                   QString::number(text.angle),
                                                   styleText(text.font, text.colour), text.text);
    }
};

} // namespace

QString toText(const DrawCommand &command, QPointF origin)
{
    return std::visit(ToText{origin}, command);
}
