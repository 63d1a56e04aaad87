#include "shell/cls_style.h"

#include <QMouseEvent>

clsStyle::clsStyle(WindowStyle &window, QObject *parent) : QObject(parent), m_window(window)
{}

void clsStyle::setClient(QObject *client)
{
    if (m_client)
        m_client->removeEventFilter(this);
    m_client = client;
    if (m_client)
        m_client->installEventFilter(this);
}

bool clsStyle::eventFilter(QObject *watched, QEvent *event)
{
    const auto button = [event] { return static_cast<QMouseEvent *>(event)->button(); };
    if (m_autoDrag && event->type() == QEvent::MouseButtonPress && button() == Qt::LeftButton) {
        m_window.startDrag();
        return true;
    }
    if (m_autoSysMenu && event->type() == QEvent::MouseButtonRelease &&
        button() == Qt::RightButton) {
        ShowSysMenu(static_cast<QMouseEvent *>(event)->globalPosition().toPoint());
        return true;
    }
    return QObject::eventFilter(watched, event);
}
