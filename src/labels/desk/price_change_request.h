#pragma once

#include <QDateTime>
#include <QObject>

class Program;

/// Days and times of the day between which prices were changed; the times hold on every day.
struct ChangeRange
{
    QDate from;
    QDate to;
    QTime start;
    QTime end;

    friend bool operator==(const ChangeRange &, const ChangeRange &) = default;
};

/// Asks the label desk for the stocks whose prices were changed in a range.
class PriceChangeRequest final : public QObject
{
    Q_OBJECT

public:
    explicit PriceChangeRequest(Program &program, QObject *parent = nullptr);

    /// This month, from its first to its last day, from midnight to midnight.
    ChangeRange usualRange() const;

public Q_SLOTS:
    void send(const ChangeRange &range);

Q_SIGNALS:
    /// Dates "dd.MM.yyyy", times "HH:mm:ss".
    void requested(const QString &fromDate, const QString &toDate, const QString &fromTime,
                   const QString &toTime);

private:
    Program &m_program;
};
