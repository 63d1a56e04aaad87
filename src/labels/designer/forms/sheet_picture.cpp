#include "labels/designer/forms/sheet_picture.h"

#include "common/amount.h"
#include "labels/designer/forms/canvas_overlay.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double kMargin = 26; ///< pixels around the sheet, room for its size

} // namespace

SheetPicture::SheetPicture(QWidget *parent) : QWidget(parent)
{}

void SheetPicture::show(const SheetAround &sheet, qint64 firstPlace)
{
    m_sheet = sheet;
    const auto before = static_cast<std::size_t>(std::max<qint64>(firstPlace, 1) - 1);
    m_used = before < sheet.cells.size() ? before : 0;
    update();
}

CanvasView SheetPicture::view() const
{
    CanvasView view;
    QRectF all = m_sheet.paper;
    for (const QRectF &cell : m_sheet.cells)
        all |= cell;
    view.fit(all, size(), kMargin);
    return view;
}

void SheetPicture::mousePressEvent(QMouseEvent *event)
{
    const QPointF mm = view().toMm(event->position());
    for (std::size_t i = 0; i < m_sheet.cells.size(); ++i)
        if (m_sheet.cells[i].contains(mm)) {
            Q_EMIT placeChosen(static_cast<qint64>(i) + 1);
            return;
        }
}

void SheetPicture::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const CanvasView view = this->view();
    paintPaper(painter, view, m_sheet);
    for (std::size_t i = 0; i < m_used; ++i)
        painter.fillRect(view.toPixels(m_sheet.cells[i]).adjusted(1, 1, -1, -1),
                         palette().color(QPalette::Mid));
    painter.setPen(palette().color(QPalette::Text));
    if (!m_sheet.paper.isNull())
        painter.drawText(QRectF(0, height() - kMargin, width(), kMargin), Qt::AlignCenter,
                         u"%1 × %2 mm"_s.arg(amount::plain(m_sheet.paper.width()),
                                             amount::plain(m_sheet.paper.height())));
}
