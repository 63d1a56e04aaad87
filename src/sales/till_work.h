#pragma once

#include <QObject>

#include <deque>
#include <exception>
#include <functional>

class Program;

/// What the till is busy with: the keys and buttons that are being worked on, and the boxes that
/// wait until nobody types. A box beneath which keys arrive was caused by the till, and the keys
/// belong behind it.
class TillWork final : public QObject
{
    Q_OBJECT

public:
    explicit TillWork(Program &program) : m_program(program) {}

    /// True while a key or button is being worked on or a box waits to open.
    bool busy() const { return m_steps > 0 || !m_boxes.empty() || m_dialog; }

    /// Marks the till as busy while it lives, and tells of a server that takes its time.
    class Step
    {
    public:
        /// `doing`: what the server is waited for.
        Step(TillWork &work, std::function<QString()> doing);
        ~Step();
        Step(const Step &) = delete;
        Step &operator=(const Step &) = delete;

    private:
        TillWork &m_work;
        std::function<void()> m_waiting;
        std::function<void()> m_beforeBox;
    };

    /// Leaves a box, or what asks in one, to openBoxes().
    void later(std::function<void()> box);

    /// Leaves a dialog that the cashier asked for to openBoxes(), behind the boxes. What was typed
    /// behind the key that asked is meant for it; the till is not busy while it is open.
    void dialog(std::function<void()> open);

    /// Takes in what was typed before a box can be seen that opens in the middle of a step. Set by
    /// the form.
    std::function<void()> settle;

    /// Runs a step; its error is told when the step is over.
    template <typename Run>
    void guarded(Run run)
    {
        try {
            run();
        } catch (const std::exception &) {
            later([fault = std::current_exception()] { std::rethrow_exception(fault); });
        }
    }

public Q_SLOTS:
    void openBoxes(); ///< the one that has waited longest; none in the middle of a step

Q_SIGNALS:
    void waiting(const QString &text); ///< the server keeps the till waiting
    void boxWaits();    ///< for openBoxes(), when nobody types: keys are lost beneath a box
    void dialogOpens(); ///< in the next moment, and takes what was typed
    void dialogClosed();
    void done(); ///< and no box waits

private:
    Program &m_program;
    int m_steps = 0; ///< under way; more than one while a box of the first is open
    std::deque<std::function<void()>> m_boxes;
    std::function<void()> m_dialog;
};
