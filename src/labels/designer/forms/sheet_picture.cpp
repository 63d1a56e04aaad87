#include "labels/designer/forms/sheet_picture.h"

#include "common/amount.h"
#include "labels/designer/canvas_view.h"
#include "labels/designer/forms/canvas_overlay.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr double kMargin = 26; ///< pixels around the sheet, room for its size

} // namespace

SheetPicture::SheetPicture(QWidget *parent) : QWidget(parent)
{}

void SheetPicture::show(const SheetAround &sheet)
{
    m_sheet = sheet;
    update();
}

void SheetPicture::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    CanvasView view;
    QRectF all = m_sheet.paper;
    for (const QRectF &cell : m_sheet.cells)
        all |= cell;
    view.fit(all, size(), kMargin);
    paintPaper(painter, view, m_sheet);
    painter.setPen(palette().color(QPalette::Text));
    if (!m_sheet.paper.isNull())
        painter.drawText(QRectF(0, height() - kMargin, width(), kMargin), Qt::AlignCenter,
                         u"%1 × %2 mm"_s.arg(amount::plain(m_sheet.paper.width()),
                                             amount::plain(m_sheet.paper.height())));
}
