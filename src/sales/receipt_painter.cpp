#include "sales/receipt_painter.h"

#include "paper/millimetres.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSmallestShare = 0.8; ///< of its size, for a text that may be shortened instead
constexpr double kNameGap = 1.0; ///< mm between a name that fills its room and the next column
constexpr double kBottomTolerance = 0.5; ///< mm; rounding of the paper's length to whole dots

QFont fontOf(const ReceiptText &text, double dpi)
{
    QFont font;
    if (!text.font.isEmpty())
        font.setFamilies({text.font});
    font.setPixelSize(std::max(1, qRound(text.points * dpi / kPointsPerInch)));
    font.setBold(text.bold);
    return font;
}

/// Columns must not be pushed apart: what is too long for its room is written smaller, and a name
/// that would become unreadable is shortened in its middle, for the size of the pack stands at its
/// end. Figures are never cut.
QString fit(QFont &font, const ReceiptText &text, double room)
{
    const double wanted = QFontMetricsF(font).horizontalAdvance(text.text);
    if (wanted <= room)
        return text.text;
    double share = room / wanted;
    if (text.mayShorten)
        share = std::max(share, kSmallestShare);
    font.setPixelSize(std::max(1, static_cast<int>(std::floor(font.pixelSize() * share))));
    const QFontMetricsF metrics(font);
    return text.mayShorten ? metrics.elidedText(text.text, Qt::ElideMiddle, room) : text.text;
}

} // namespace

void paintText(QPainter &painter, const ReceiptText &text, QSizeF dpi, double top)
{
    QFont font = fontOf(text, dpi.height());
    const double ascent = QFontMetricsF(font).ascent();
    const double room = text.width - (text.mayShorten ? kNameGap : 0.0);
    const QString shown = fit(font, text, room * dpi.width() / kMmPerInch);
    painter.setFont(font);
    painter.drawText(QPointF(std::round(text.x * dpi.width() / kMmPerInch),
                             std::round((text.y - top) * dpi.height() / kMmPerInch + ascent)),
                     shown);
}

void paintReceipt(QPainter &painter, const ReceiptPage &page, QSizeF dpi)
{
    painter.setPen(Qt::black);
    for (const ReceiptText &text : page.texts)
        paintText(painter, text, dpi, 0.0);
}

bool paintReceipt(QPagedPaintDevice &device, const ReceiptPage &page)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.setPen(Qt::black);
    const QSizeF dpi(device.logicalDpiX(), device.logicalDpiY());
    const double sheet = device.height() * kMmPerInch / dpi.height() + kBottomTolerance;
    double top = 0.0;
    for (const ReceiptText &text : page.texts) {
        const double bottom = text.y + lineHeight(text.points);
        if (bottom - top > sheet && text.y > top) {
            if (!device.newPage())
                return false;
            top = text.y;
        }
        paintText(painter, text, dpi, top);
    }
    return painter.end();
}
