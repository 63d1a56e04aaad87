#pragma once

#include "labels/desk/queue_file.h"

#include <QObject>
#include <QTimer>

class Program;

/// Keeps the print queue over a restart, and queues that the shop gave names for another day.
///
/// The queue is written to the file `kuyruk.csv` of the working folder soon after every change,
/// named ones lie in the folder `kuyruklar`, and what was printed last in `sonbasilan.csv`.
class QueueStore final : public QObject
{
    Q_OBJECT

public:
    /// Both are kept by reference.
    QueueStore(Program &program, PrintQueue &queue, QObject *parent = nullptr);
    /// Writes what has not been written yet.
    ~QueueStore() override;

    /// Fills the queue with what was kept, and keeps it from now on.
    void start();

    std::vector<QueueRow> lastPrinted();
    void keepPrinted(const std::vector<QueueRow> &rows);

    /// Names of the kept queues, in the order of the alphabet.
    QStringList names() const;
    bool exists(const QString &name) const;
    /// What is kept under a name; what cannot be read of it is told.
    queue_file::Content read(const QString &name) { return readFile(path(name)); }
    /// Keeps the queue under a name. False, and told, when it could not.
    bool save(const QString &name);
    void remove(const QString &name);

Q_SIGNALS:
    void statusChanged(const QString &text);

private:
    void write();
    QString keptName(const QString &name) const;
    QString path(const QString &name) const;
    bool writeTo(const QString &path) const;
    queue_file::Content readFile(const QString &path);

    Program &m_program;
    PrintQueue &m_queue;
    QTimer m_soon;
    bool m_failed = false; ///< the last try to write the queue
};
