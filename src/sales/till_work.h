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
    bool busy() const { return m_steps > 0 || !m_boxes.empty(); }

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
    };

    /// Leaves a box, or what asks in one, to openBoxes().
    void later(std::function<void()> box);

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
    void openBoxes(); ///< those that wait, one after the other

Q_SIGNALS:
    void waiting(const QString &text); ///< the server keeps the till waiting
    void boxWaits(); ///< for openBoxes(), when nobody types: keys are lost beneath a box
    void done();     ///< and no box waits

private:
    Program &m_program;
    int m_steps = 0; ///< under way; more than one while a box of the first is open
    std::deque<std::function<void()>> m_boxes;
};
