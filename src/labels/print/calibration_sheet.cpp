#include "labels/print/calibration_sheet.h"

#include "labels/print/print_memory.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kLine = 0.2; ///< mm
constexpr QRgb kBlack = 0xFF000000;

void addLine(CalibrationSheet &sheet, QPointF from, QPointF to)
{
    sheet.commands.push_back({LineCommand{from, to, kLine, kBlack}, {}});
}

void addText(CalibrationSheet &sheet, QPointF at, double points, const QString &text)
{
    sheet.commands.push_back(
        {TextCommand{
             .at = at, .font = {.name = {}, .size = points}, .colour = kBlack, .text = text},
         {}});
}

/// A cross with a tick each millimetre.
void addCross(CalibrationSheet &sheet, QPointF centre, double reach)
{
    addLine(sheet, centre - QPointF(reach, 0), centre + QPointF(reach, 0));
    addLine(sheet, centre - QPointF(0, reach), centre + QPointF(0, reach));
    for (int mm = -static_cast<int>(reach); mm <= static_cast<int>(reach); ++mm) {
        const double half = mm % 5 == 0 ? 1.2 : 0.6;
        addLine(sheet, centre + QPointF(mm, -half), centre + QPointF(mm, half));
        addLine(sheet, centre + QPointF(-half, mm), centre + QPointF(half, mm));
    }
}

/// The row, with a tick each five millimetres.
void addRow(CalibrationSheet &sheet, QPointF start, double points)
{
    addLine(sheet, start, start + QPointF(sheet.row, 0));
    for (int mm = 0; mm <= static_cast<int>(sheet.row); mm += 5) {
        const double height = mm % 10 == 0 ? 3 : 1.5;
        addLine(sheet, start + QPointF(mm, 0), start + QPointF(mm, height));
        if (mm % 50 == 0)
            addText(sheet, start + QPointF(mm + 0.5, 3), points, QString::number(mm));
    }
    addLine(sheet, start + QPointF(sheet.row, 0), start + QPointF(sheet.row, 5));
}

} // namespace

CalibrationSheet calibrationSheet(QSizeF area, QPointF unreached)
{
    const double shorter = std::min(area.width(), area.height());
    CalibrationSheet sheet;
    sheet.unreached = unreached;
    sheet.inset = std::clamp(std::floor(shorter / 10), 3.0, 20.0);
    sheet.row = std::max(std::floor((area.width() - 2 * sheet.inset) / 10) * 10, 10.0);
    const double reach = sheet.inset / 2;
    const double right = area.width() - sheet.inset;
    const double bottom = area.height() - sheet.inset;
    for (const QPointF centre : {QPointF(sheet.inset, sheet.inset), QPointF(right, sheet.inset),
                                 QPointF(sheet.inset, bottom), QPointF(right, bottom)})
        addCross(sheet, centre, reach);
    const double points = shorter < 60 ? 5 : 9;
    const double middle = area.height() / 2;
    addRow(sheet, {sheet.inset, middle}, points);
    addText(sheet, {sheet.inset, middle - 10}, points,
            u"1) Sol üst artıdan kâğıdın sol ve üst kenarına; 2) alttaki çizginin boyunu ölçün."_s);
    return sheet;
}

std::optional<Calibration> calibrated(const Calibration &printed, const CalibrationSheet &sheet,
                                      const SheetReading &reading)
{
    if (!(reading.row > 0) || !(reading.left >= 0) || !(reading.top >= 0))
        return {};
    // Layouts are counted from where the printer counts, a ruler begins at the paper's edge.
    const QPointF at = QPointF(reading.left, reading.top) - sheet.unreached;
    Calibration next;
    next.scale = printed.scale * sheet.row / reading.row;
    next.x = printed.x + sheet.inset * printed.scale - at.x() * next.scale;
    next.y = printed.y + sheet.inset * printed.scale - at.y() * next.scale;
    if (std::abs(next.x) > kMostOffset || std::abs(next.y) > kMostOffset ||
        std::abs(next.scale - 1) > kMostStretch)
        return {};
    return next;
}
