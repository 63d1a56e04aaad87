#include "sales/forms/hour_bars.h"

#include "sales/journal/kurus.h"

#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

void HourBars::show(const std::array<HourFigures, 24> &hours)
{
    m_hours = hours;
    QStringList told;
    for (std::size_t hour = 0; hour < hours.size(); ++hour)
        if (hours[hour].sales > 0)
            told += u"%1:00  %2 satış, %3"_s.arg(QString::number(hour),
                                                 amount::whole(hours[hour].sales),
                                                 kurus::text(hours[hour].total));
    setToolTip(told.join(u'\n'));
    setAccessibleDescription(told.join(u", "_s));
    update();
}

namespace {

/// Over the middle of a bar's end.
void drawCount(QPainter &painter, QPointF at, bool upright, const QString &count)
{
    const QFontMetrics metrics = painter.fontMetrics();
    const double wide = metrics.horizontalAdvance(count) + 2;
    const double tall = metrics.height();
    painter.save();
    painter.translate(at);
    if (upright) {
        painter.drawText(QRectF(-wide / 2, -tall, wide, tall), Qt::AlignCenter, count);
    } else {
        painter.rotate(-90);
        painter.drawText(QRectF(0, -tall / 2, wide, tall), Qt::AlignLeft | Qt::AlignVCenter, count);
    }
    painter.restore();
}

} // namespace

void HourBars::paintEvent(QPaintEvent *)
{
    qint64 most = 1;
    for (const HourFigures &hour : m_hours)
        most = std::max(most, hour.total);
    int widest = 0;
    for (const HourFigures &hour : m_hours)
        widest = std::max(widest, fontMetrics().horizontalAdvance(amount::whole(hour.sales)));
    QPainter painter(this);
    const int foot = fontMetrics().height() + 4;
    const double column = static_cast<double>(width()) / 24;
    const bool upright = widest <= column; // the sales of a year stand on end over their bars
    const int head = upright ? fontMetrics().height() : widest;
    const double room = std::max(height() - foot - head - 4, 10);
    const bool allHours = column > fontMetrics().horizontalAdvance(u"00 "_s);
    for (int hour = 0; hour < 24; ++hour) {
        const HourFigures &figures = m_hours.at(static_cast<std::size_t>(hour));
        const double tall = room * static_cast<double>(std::max<qint64>(figures.total, 0)) /
                            static_cast<double>(most);
        const double x = column * hour;
        painter.fillRect(QRectF(x + 2, height() - foot - tall, column - 4, tall),
                         palette().highlight());
        if (allHours || hour % 3 == 0)
            painter.drawText(QRectF(x - column, height() - foot, 3 * column, foot), Qt::AlignCenter,
                             QString::number(hour));
        if (figures.sales > 0)
            drawCount(painter, QPointF(x + column / 2, height() - foot - tall - 2), upright,
                      amount::whole(figures.sales));
    }
}
