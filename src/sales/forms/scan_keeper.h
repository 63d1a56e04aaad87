#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <vector>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QWidget;
QT_END_NAMESPACE

/// A key that came while the till could not take it.
struct HeldKey
{
    int key = 0;
    Qt::KeyboardModifiers modifiers;
    QString text;

    void press(QWidget &window) const; ///< in whatever box of it has the focus
};

/// Keeps the keys that reach a window while a box of its own is to open or stands over it: without
/// it they would be lost, and the Enter behind a scan would answer the box. They come out, in their
/// order, when the box has closed and the work is done.
class ScanKeeper final : public QObject
{
    Q_OBJECT

public:
    /// `atWork`: whether the window is in the middle of something; keys at other times are nobody's
    /// business here.
    ScanKeeper(QWidget &window, std::function<bool()> atWork);

    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// A box is to open: takes in what was typed before it could be seen. The toolkit drops keys
    /// for a window beneath a modal box.
    void awaitQuiet();
    void deliver();      ///< the work is done
    void giveToDialog(); ///< that was asked for and has opened now

    /// The same as awaitQuiet(), for a box that opens in the middle of a call: its event loop
    /// begins a moment before it is seen, and nothing can be used meanwhile.
    void takeIn();

Q_SIGNALS:
    void quiet(); ///< no key has come for a moment
    void kept(const std::vector<HeldKey> &keys);

private:
    bool keepsOfBox(const QKeyEvent &event) const;
    bool isHeldBack(const QWidget &target) const;

    QWidget &m_window;
    std::function<bool()> m_atWork;
    std::vector<HeldKey> m_keys;
    QPointer<QWidget> m_dialog; ///< takes them before the window does
    bool m_takesIn = false;
    QTimer m_pause;    ///< runs out when no key has come for a moment
    QTimer m_patience; ///< with somebody who leans on a key
};
