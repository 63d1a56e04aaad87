#pragma once

#include <QLabel>
#include <QProgressBar>

/// Shows what a room with a long task tells: in words how it stands, and on the bar, which is seen
/// only while the task runs, how far it is.
template <typename Room>
void showTask(const Room &room, QLabel *status, QProgressBar *bar)
{
    const auto showBusy = [bar](bool busy) {
        bar->setMaximum(0); // no end in sight before the first answer
        bar->setVisible(busy);
    };
    const auto showProgress = [bar](const QString &, int done, int total) {
        bar->setMaximum(total);
        bar->setValue(done);
    };
    QObject::connect(&room, &Room::busyChanged, bar, showBusy);
    QObject::connect(&room, &Room::progressed, bar, showProgress);
    QObject::connect(&room, &Room::progressed, status, &QLabel::setText);
    QObject::connect(&room, &Room::statusChanged, status, [status](const QString &text) {
        status->setText(text);
        status->repaint(); // a statement may follow that keeps the window waiting
    });
    showBusy(false);
}
