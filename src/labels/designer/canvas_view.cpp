#include "labels/designer/canvas_view.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kWheelStep = 1.25;
constexpr double kClosestMarks = 5;    ///< pixels
constexpr double kClosestNumbers = 45; ///< pixels
constexpr double kClosestGrid = 6;     ///< pixels
constexpr std::size_t kMostMarks = 4000;

constexpr std::array kSpacings = {0.1, 0.5, 1.0, 5.0, 10.0, 50.0, 100.0, 500.0};

/// The closest of the usual spacings that lies at least `least` pixels apart.
double spacing(double pixelsPerMm, double least)
{
    const auto *const found = std::find_if(kSpacings.begin(), kSpacings.end(),
                                           [&](double mm) { return mm * pixelsPerMm >= least; });
    return found != kSpacings.end() ? *found : kSpacings.back();
}

bool isMultiple(double value, double of)
{
    return std::abs(value / of - std::round(value / of)) < 1e-6;
}

} // namespace

void CanvasView::zoomAt(QPointF fixed, double zoom)
{
    const QPointF mm = toMm(fixed);
    m_zoom = std::clamp(zoom, kLeastZoom, kMostZoom);
    m_origin += fixed - toPixels(mm);
}

void CanvasView::zoomStep(QPointF fixed, int steps)
{
    // Steps count from 100 %, so that in and out again is where one was.
    const double now = std::log(m_zoom) / std::log(kWheelStep);
    const double next = steps > 0 ? std::floor(now + 1e-6) + steps : std::ceil(now - 1e-6) + steps;
    zoomAt(fixed, std::pow(kWheelStep, next));
}

void CanvasView::fit(const QRectF &mm, QSizeF pixels, double margin)
{
    const QSizeF room(std::max(pixels.width() - 2 * margin, 1.0),
                      std::max(pixels.height() - 2 * margin, 1.0));
    if (mm.isEmpty())
        return;
    const double zoom = std::min(room.width() / mm.width(), room.height() / mm.height()) / m_screen;
    m_zoom = std::clamp(zoom, kLeastZoom, kMostZoom);
    const QPointF middle(pixels.width() / 2, pixels.height() / 2);
    m_origin = middle - mm.center() * scale();
}

std::vector<RulerMark> rulerMarks(double fromMm, double toMm, double pixelsPerMm)
{
    const double small = spacing(pixelsPerMm, kClosestMarks);
    const double numbered = spacing(pixelsPerMm, kClosestNumbers);
    const double half = std::max(small, numbered / 2);
    std::vector<RulerMark> marks;
    for (double i = std::ceil(fromMm / small); i * small <= toMm && marks.size() < kMostMarks;
         i += 1) {
        const double mm = i * small;
        marks.push_back({mm, isMultiple(mm, numbered) ? 2 : isMultiple(mm, half) ? 1 : 0});
    }
    return marks;
}

double shownGridStep(double step, double pixelsPerMm)
{
    double shown = step;
    for (int i = 0; shown > 0 && shown * pixelsPerMm < kClosestGrid; ++i)
        shown *= i % 2 == 0 ? 5 : 2;
    return shown;
}
