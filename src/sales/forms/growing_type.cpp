#include "sales/forms/growing_type.h"

#include <QEvent>
#include <QWidget>

#include <algorithm>

namespace {

constexpr double kUsualWidth = 1366; ///< pixels of the window
constexpr double kMostGrowth = 2.0;

} // namespace

double typeGrowth(const QWidget &window)
{
    return std::clamp(window.width() / kUsualWidth, 1.0, kMostGrowth);
}

GrowingType::GrowingType(QWidget &window, std::initializer_list<QWidget *> widgets)
    : QObject(&window), m_window(window)
{
    for (QWidget *widget : widgets)
        m_points.emplace_back(widget, widget->font().pointSizeF());
    window.installEventFilter(this);
}

bool GrowingType::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_window && event->type() == QEvent::Resize)
        for (const auto &[widget, points] : m_points) {
            QFont font = widget->font();
            font.setPointSizeF(points * typeGrowth(m_window));
            widget->setFont(font);
        }
    return QObject::eventFilter(watched, event);
}
