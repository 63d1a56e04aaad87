#pragma once

#include "shell/diagnosis_finding.h"

#include <QList>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>

class HostProbe;
class RunLink;

/// One line of a diagnosis.
struct DiagnosisStep
{
    enum class State
    {
        waiting,
        running,
        good,
        bad,
        skipped ///< not looked at: what it builds upon is missing, or the user stopped
    };

    QString name;
    State state = State::waiting;
    QString found;
    QString advice;    ///< what to do next; "" when nothing is
    QStringList grant; ///< statements that would mend it
};

/// Looks step by step at why a connection does not work, beside the windows. It uses connections of
/// its own and changes nothing. The password it is given shows in none of its texts.
class Diagnosis final : public QObject
{
    Q_OBJECT

public:
    /// How long one step may take.
    static constexpr std::chrono::milliseconds kPatience{5000};

    explicit Diagnosis(HostProbe &probe, QObject *parent = nullptr,
                       std::chrono::milliseconds patience = kPatience);
    ~Diagnosis() override;

    /// Begins anew, also while it runs.
    void start(const DiagnosisTarget &target);

    /// Begins anew with the same connection.
    void restart() { start(DiagnosisTarget(m_target)); }

    /// What was not looked at yet is skipped.
    void stop();

    bool isRunning() const { return m_run != nullptr; }
    const QList<DiagnosisStep> &steps() const { return m_steps; }

    /// True when every step was looked at and is well.
    bool passed() const;

    /// Steps that are not well.
    int faults() const;

    /// "✓", "✗", "…" or "–".
    static QString mark(DiagnosisStep::State state);

    /// The statements that would grant what is missing, ready to run; "" when nothing is.
    QString grants() const;

    /// All of it for the person who looks after the server, without the password.
    QString text() const;

Q_SIGNALS:
    void started();
    void stepChanged(int step);
    void finished();

private:
    void begin(int step);
    void report(int step, const DiagnosisFinding &finding);
    void end(int step);
    void finish();
    void giveUpStep();
    void leaveRun();

    HostProbe &m_probe;
    DiagnosisTarget m_target;
    QList<DiagnosisStep> m_steps;
    QTimer m_patience;
    int m_current = 0;
    std::shared_ptr<RunLink> m_run; ///< null when nothing runs
};
