#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <vector>

/// How millimetres of the label lie on the pixels of the canvas.
class CanvasView
{
public:
    static constexpr double kLeastZoom = 0.05; ///< 1 = as large as on paper
    static constexpr double kMostZoom = 32;

    /// `pixelsPerMm`: of the screen, for a zoom of 1.
    void setScreen(double pixelsPerMm) { m_screen = pixelsPerMm; }

    double zoom() const { return m_zoom; }
    double scale() const { return m_zoom * m_screen; } ///< pixels per mm
    QPointF origin() const { return m_origin; }        ///< pixel of the label's corner

    QPointF toPixels(QPointF mm) const { return mm * scale() + m_origin; }
    QRectF toPixels(const QRectF &mm) const
    {
        return {toPixels(mm.topLeft()), mm.size() * scale()};
    }
    QPointF toMm(QPointF pixels) const { return (pixels - m_origin) / scale(); }
    QRectF toMm(const QRectF &pixels) const
    {
        return {toMm(pixels.topLeft()), pixels.size() / scale()};
    }

    /// Sets the zoom within its limits; what lies at `fixed` (pixels) stays there.
    void zoomAt(QPointF fixed, double zoom);
    /// One step of a wheel or key: in or out to the next of the usual zooms.
    void zoomStep(QPointF fixed, int steps);
    /// Shows all of a rectangle (mm) in the middle, with a margin of pixels around it.
    void fit(const QRectF &mm, QSizeF pixels, double margin);
    void pan(QPointF pixels) { m_origin += pixels; }

private:
    double m_screen = 96 / 25.4;
    double m_zoom = 1;
    QPointF m_origin;
};

/// Marks of a ruler.
struct RulerMark
{
    double mm = 0;
    int rank = 0; ///< 0 shortest; marks of rank 2 bear their number
};

/// The marks between two places, spaced so that they can be told apart. `pixelsPerMm` of the
/// canvas.
std::vector<RulerMark> rulerMarks(double fromMm, double toMm, double pixelsPerMm);

/// Distance of the grid's lines that are drawn: those of `step` mm, or every fifth, tenth, … when
/// they would lie closer than a few pixels.
double shownGridStep(double step, double pixelsPerMm);
