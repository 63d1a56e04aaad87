#include "paper/paged_canvas.h"

#include <QPagedPaintDevice>

QSizeF resolution(const QPaintDevice &device)
{
    return {static_cast<double>(device.logicalDpiX()), static_cast<double>(device.logicalDpiY())};
}

PagedCanvas::PagedCanvas(QPagedPaintDevice &device, const QString &pictures)
    : m_device(device), m_fonts(resolution(device)), m_pictures(pictures)
{}

bool PagedCanvas::begin()
{
    if (!m_painter.begin(&m_device))
        return false;
    m_commands.emplace(m_painter, m_fonts, m_pictures);
    return true;
}

bool PagedCanvas::newPage()
{
    return m_device.newPage();
}

bool PagedCanvas::end()
{
    m_commands.reset();
    return m_painter.end();
}

void PagedCanvas::paint(std::span<const DrawCommand> commands, QPointF origin)
{
    m_commands->paint(commands, origin);
}
