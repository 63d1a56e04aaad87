#pragma once

#include "common/time_slices.h"

#include <QObject>

/// Something long that the user watches and may stop. Between its steps the windows live on, so
/// that a key or a click can reach stop(); whoever runs it keeps a second one from starting.
class LongTask final : public QObject
{
    Q_OBJECT

public:
    /// Runs the task for as long as it lives.
    class Run
    {
    public:
        /// The windows show `text` at once: a statement may keep them waiting.
        Run(LongTask &task, const QString &text);
        ~Run();
        Run(const Run &) = delete;
        Run &operator=(const Run &) = delete;

        QString outcome; ///< told at the end

    private:
        LongTask &m_task;
    };

    /// `failed`: the outcome of a run that an error ends.
    explicit LongTask(QString failed, QObject *parent = nullptr);

    bool isRunning() const { return m_running; }
    void stop() { m_slices.stop(); }

    /// Call between two steps; tells the progress now and then. False: the user wants it to stop.
    /// `total` is not 0.
    bool goOn(const QString &text, qsizetype done, qsizetype total);
    /// The same, and tells the progress at once: the next step may take long.
    bool show(const QString &text, qsizetype done, qsizetype total);

Q_SIGNALS:
    void busyChanged(bool busy);
    /// `text` says in words what is going on, and how far it is.
    void progressed(const QString &text, int done, int total);
    void statusChanged(const QString &text);
    /// Nothing runs any more; what is left to put in order comes before busyChanged(false).
    void ended();

private:
    void tell(const QString &text, qsizetype done, qsizetype total);

    QString m_failed;
    bool m_running = false;
    TimeSlices m_slices;
};

/// Lets a room tell what its task, or a room within it, tells.
template <typename Source, typename Room>
void relay(const Source &source, const Room &room)
{
    QObject::connect(&source, &Source::busyChanged, &room, &Room::busyChanged);
    QObject::connect(&source, &Source::progressed, &room, &Room::progressed);
    QObject::connect(&source, &Source::statusChanged, &room, &Room::statusChanged);
}
