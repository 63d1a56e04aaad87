#pragma once

#include "paper/calibration.h"
#include "paper/command_painter.h"

#include <QPainter>

#include <optional>

QT_BEGIN_NAMESPACE
class QPagedPaintDevice;
QT_END_NAMESPACE

/// Draws commands as a calibrated device does, their zero point at `origin` (mm).
void paintCalibrated(CommandPainter &painter, std::span<const DrawCommand> commands, QPointF origin,
                     const Calibration &calibration);

/// Dots per inch of a device, across and down.
QSizeF resolution(const QPaintDevice &device);

/// The pages of a printer or of a PDF file, painted one after another.
class PagedCanvas
{
public:
    /// `device` is kept by reference. `pictures`: folder of the pictures, "" for none.
    explicit PagedCanvas(QPagedPaintDevice &device, const QString &pictures = {},
                         const Calibration &calibration = {});

    /// Starts the first page; false when the device refuses. Nothing may be painted before.
    bool begin();
    bool newPage();
    /// Ends the last page; false when the device could not take all of it.
    bool end();

    /// Draws on the current page, the commands' zero point at `origin` (mm).
    void paint(std::span<const DrawCommand> commands, QPointF origin = {});

    /// Draws a strip from its upper end down, with a new page wherever a command would no longer go
    /// on the paper; false when the device refuses a page.
    bool paintStrip(const std::vector<DrawCommand> &commands);

    const DeviceFonts &fonts() const { return m_fonts; }

private:
    QPagedPaintDevice &m_device;
    DeviceFonts m_fonts;
    PictureStore m_pictures;
    Calibration m_calibration;
    QPainter m_painter;
    std::optional<CommandPainter> m_commands;
};
