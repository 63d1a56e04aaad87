#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <deque>
#include <functional>
#include <vector>

/// The outermost event loop. There no box is open and no run under way, so no handler of a form is
/// half done: forms go, and what the menu asks for begins, only there. Its menu can be reached from
/// the tray while a box waits for its answer.
class OuterLoop final : public QObject
{
    Q_OBJECT

public:
    /// `runs`: whether a run is under way that lets the windows live between its steps.
    explicit OuterLoop(std::function<bool()> runs, QObject *parent = nullptr);

    /// Does something there, in the order asked for.
    void run(std::function<void()> act);

    /// Lets every window that is to be deleted later live until then.
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// The loop has ended: deletes the windows that still waited for it.
    void deleteWaiting();

private:
    bool isThere() const;
    void next();

    std::function<bool()> m_runs;
    std::vector<std::function<void()>> m_acts;
    std::deque<QPointer<QObject>> m_leaving; ///< windows whose deletion is among the acts
    QTimer m_timer;                          ///< looks again whether the box has been answered
};
