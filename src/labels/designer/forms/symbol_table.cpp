#include "labels/designer/forms/symbol_table.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int kColumns = 16;
constexpr int kCell = 34; ///< pixels

} // namespace

SymbolTable::SymbolTable(QWidget *parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void SymbolTable::show(const QString &family, const std::vector<QChar> &symbols)
{
    m_font = QFont(family);
    m_font.setPixelSize(kCell * 6 / 10);
    m_symbols = symbols;
    setPlace(0);
    updateGeometry();
    resize(sizeHint());
    update();
}

void SymbolTable::choose(QChar symbol)
{
    const auto found = std::find(m_symbols.begin(), m_symbols.end(), symbol);
    if (found != m_symbols.end())
        setPlace(static_cast<int>(found - m_symbols.begin()));
}

QSize SymbolTable::sizeHint() const
{
    const int rows = (static_cast<int>(m_symbols.size()) + kColumns - 1) / kColumns;
    return {kColumns * kCell + 1, std::max(rows, 1) * kCell + 1};
}

QRect SymbolTable::cell(int place) const
{
    return {place % kColumns * kCell, place / kColumns * kCell, kCell, kCell};
}

void SymbolTable::setPlace(int place)
{
    if (place < 0 || place >= static_cast<int>(m_symbols.size()))
        return;
    m_place = place;
    update();
    Q_EMIT chosen(m_symbols[static_cast<std::size_t>(place)]);
}

void SymbolTable::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setFont(m_font);
    for (int i = 0; i < static_cast<int>(m_symbols.size()); ++i) {
        const QRect box = cell(i);
        const bool here = i == m_place;
        if (here)
            painter.fillRect(box, palette().highlight());
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(box);
        painter.setPen(palette().color(here ? QPalette::HighlightedText : QPalette::Text));
        painter.drawText(box, Qt::AlignCenter, QString(m_symbols[static_cast<std::size_t>(i)]));
    }
}

void SymbolTable::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        return setPlace(m_place - 1);
    case Qt::Key_Right:
        return setPlace(m_place + 1);
    case Qt::Key_Up:
        return setPlace(m_place - kColumns);
    case Qt::Key_Down:
        return setPlace(m_place + kColumns);
    case Qt::Key_Home:
        return setPlace(0);
    case Qt::Key_End:
        return setPlace(static_cast<int>(m_symbols.size()) - 1);
    default:
        QWidget::keyPressEvent(event);
    }
}

void SymbolTable::mousePressEvent(QMouseEvent *event)
{
    const QPoint at = event->position().toPoint();
    if (at.x() >= 0 && at.x() < kColumns * kCell)
        setPlace(at.y() / kCell * kColumns + at.x() / kCell);
}

void SymbolTable::mouseDoubleClickEvent(QMouseEvent *)
{
    Q_EMIT taken();
}
