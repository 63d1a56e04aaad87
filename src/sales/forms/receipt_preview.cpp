#include "sales/forms/receipt_preview.h"

#include "paper/command_painter.h"
#include "paper/millimetres.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int kMargin = 16;      ///< pixels around the paper
constexpr double kLargest = 6.0; ///< pixels in a millimetre
constexpr double kDpi = 600;     ///< texts are fitted as on a printer of this resolution

} // namespace

void ReceiptPreview::show(const ReceiptPage &page)
{
    m_page = page;
    setMinimumHeight(heightForWidth(width()));
    updateGeometry();
    update();
}

double ReceiptPreview::dotsPerMm(int width) const
{
    const double room = std::max(width - 2 * kMargin, 50);
    return m_page.width > 0.0 ? std::min(room / m_page.width, kLargest) : 1.0;
}

int ReceiptPreview::heightForWidth(int width) const
{
    return qRound(m_page.length * dotsPerMm(width)) + 2 * kMargin;
}

void ReceiptPreview::paintEvent(QPaintEvent *)
{
    const double scale = dotsPerMm(width());
    const double left = (width() - m_page.width * scale) / 2;
    QPainter painter(this);
    painter.translate(left, kMargin);
    painter.fillRect(QRectF(0, 0, m_page.width * scale, m_page.length * scale), Qt::white);
    const DeviceFonts fonts({kDpi, kDpi});
    PictureStore pictures({});
    painter.scale(scale * kMmPerInch / kDpi, scale * kMmPerInch / kDpi);
    CommandPainter(painter, fonts, pictures).paint(receiptCommands(m_page, fonts));
}
