#include "paper/paged_canvas.h"

#include "paper/millimetres.h"

#include <QPagedPaintDevice>

namespace {

constexpr double kBottomTolerance = 0.5; ///< mm; rounding of the paper's length to whole dots

} // namespace

void paintCalibrated(CommandPainter &painter, std::span<const DrawCommand> commands, QPointF origin,
                     const Calibration &calibration)
{
    if (calibration.scale == 1) {
        painter.paint(commands, calibration.isNone() ? origin : calibration.place(origin));
        return;
    }
    std::vector<DrawCommand> drawn;
    drawn.reserve(commands.size());
    for (const DrawCommand &command : commands)
        drawn.push_back(scaled(command, calibration.scale));
    painter.paint(drawn, calibration.place(origin));
}

QSizeF resolution(const QPaintDevice &device)
{
    return {static_cast<double>(device.logicalDpiX()), static_cast<double>(device.logicalDpiY())};
}

PagedCanvas::PagedCanvas(QPagedPaintDevice &device, const QString &pictures,
                         const Calibration &calibration)
    : m_device(device), m_fonts(resolution(device)), m_pictures(pictures),
      m_calibration(calibration)
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
    paintCalibrated(*m_commands, commands, origin, m_calibration);
}

bool PagedCanvas::paintStrip(const std::vector<DrawCommand> &commands)
{
    const double sheet =
        toMillimetres({0, static_cast<double>(m_device.height())}, m_fonts.dpi()).y();
    double top = 0;
    for (const DrawCommand &command : commands) {
        const QRectF box = boundingBox(command, m_fonts);
        if (box.bottom() - top > sheet + kBottomTolerance && box.top() > top) {
            if (!newPage())
                return false;
            top = box.top();
        }
        paint({&command, 1}, {0, -top});
    }
    return true;
}
