#include "sales/forms/sale_tabs.h"

#include <QPainter>

namespace {

constexpr int kDot = 10; ///< pixels

QPixmap dot(const QColor &colour)
{
    QPixmap picture(kDot, kDot);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(picture.rect());
    return picture;
}

} // namespace

void SaleTabs::addList(const QString &caption, const QString &key)
{
    setIconSize(QSize(kDot, kDot));
    const int number = addTab(caption);
    setTabToolTip(number, key);
    mark(number, false);
}

void SaleTabs::mark(int number, bool goods)
{
    setTabIcon(number, dot(goods ? palette().color(QPalette::Highlight) : Qt::transparent));
}
