#include "shell/forms/connecting_notice.h"

#include <QApplication>
#include <QBackingStore>
#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QScreen>

namespace {

constexpr int kMargin = 28; ///< pixels around the text

} // namespace

ConnectingNotice::ConnectingNotice(const QString &text)
{
    // The window manager would want an answer before it shows the window.
    setFlags(Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
             Qt::WindowDoesNotAcceptFocus | Qt::BypassWindowManagerHint);
    const QFontMetrics metrics(QApplication::font());
    QRect box = metrics.boundingRect(text).adjusted(-kMargin, -kMargin, kMargin, kMargin);
    box.moveCenter(screen()->availableGeometry().center());
    setGeometry(box);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    show();
    paint(text);
}

ConnectingNotice::~ConnectingNotice()
{
    QGuiApplication::restoreOverrideCursor();
}

void ConnectingNotice::paint(const QString &text)
{
    QBackingStore store(this);
    const QRect area({}, size());
    store.resize(size());
    store.beginPaint(area);
    {
        QPainter painter(store.paintDevice());
        const QPalette palette = QApplication::palette();
        painter.fillRect(area, palette.color(QPalette::Window));
        painter.setPen(palette.color(QPalette::WindowText));
        painter.drawRect(area.adjusted(0, 0, -1, -1));
        painter.setFont(QApplication::font());
        painter.drawText(area, Qt::AlignCenter, text);
    }
    store.endPaint();
    store.flush(area);
}
