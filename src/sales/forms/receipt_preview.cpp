#include "sales/forms/receipt_preview.h"

#include "paper/millimetres.h"
#include "sales/receipt_painter.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int kMargin = 16;      ///< pixels around the paper
constexpr double kLargest = 6.0; ///< pixels in a millimetre

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
    paintReceipt(painter, m_page, QSizeF(scale * kMmPerInch, scale * kMmPerInch));
}
