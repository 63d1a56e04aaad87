#include "labels/print/text_alignment.h"

#include <array>

using namespace Qt::StringLiterals;

QPointF sag0(QPointF at, double room)
{
    return {at.x() + room, at.y()};
}

QPointF sag90(QPointF at, double room)
{
    return {at.x(), at.y() - room};
}

QPointF sag180(QPointF at, double room)
{
    return {at.x() - room, at.y()};
}

QPointF sag270(QPointF at, double room)
{
    return {at.x(), at.y() + room};
}

QPointF ort0(QPointF at, double room)
{
    return sag0(at, room / 2);
}

QPointF ort90(QPointF at, double room)
{
    return sag90(at, room / 2);
}

QPointF ort180(QPointF at, double room)
{
    return sag180(at, room / 2);
}

QPointF ort270(QPointF at, double room)
{
    return sag270(at, room / 2);
}

QPointF alignText(QPointF at, const QString &alignment, double angle, double room)
{
    struct Rule
    {
        double angle;
        QPointF (*right)(QPointF, double);
        QPointF (*centre)(QPointF, double);
    };
    static constexpr std::array<Rule, 4> rules = {
        {{0, sag0, ort0}, {90, sag90, ort90}, {180, sag180, ort180}, {270, sag270, ort270}}};

    for (const Rule &rule : rules) {
        if (rule.angle != angle)
            continue;
        if (alignment == u"3"_s)
            return rule.right(at, room);
        if (alignment == u"2"_s)
            return rule.centre(at, room);
    }
    return at;
}
