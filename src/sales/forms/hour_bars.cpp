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
                                                 QString::number(hours[hour].sales),
                                                 kurus::text(hours[hour].total));
    setToolTip(told.join(u'\n'));
    setAccessibleDescription(told.join(u", "_s));
    update();
}

void HourBars::paintEvent(QPaintEvent *)
{
    qint64 most = 1;
    for (const HourFigures &hour : m_hours)
        most = std::max(most, hour.total);
    QPainter painter(this);
    const int foot = fontMetrics().height() + 4;
    const double column = static_cast<double>(width()) / 24;
    const double room = std::max(height() - foot - fontMetrics().height() - 4, 10);
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
            painter.drawText(QRectF(x, height() - foot - tall - fontMetrics().height() - 2, column,
                                    fontMetrics().height()),
                             Qt::AlignCenter, QString::number(figures.sales));
    }
}
