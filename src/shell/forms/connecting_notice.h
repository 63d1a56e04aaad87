#pragma once

#include <QWindow>

/// Says that a connection is being tried while the program waits for it. It is painted by hand as
/// soon as it is made: nothing may be delivered in the middle of the call that waits.
class ConnectingNotice final : public QWindow
{
    Q_OBJECT

public:
    /// Shows the notice in the middle of the screen; it goes with this object.
    explicit ConnectingNotice(const QString &text);
    ~ConnectingNotice() override;

private:
    void paint(const QString &text);
};
