#pragma once

#include "shell/code_choices.h"
#include "shell/diagnosis_finding.h"

#include <QMap>
#include <QObject>
#include <QTimer>

#include <memory>

class HostProbe;
class RunLink;

/// Databases that a login may open.
struct OpenDatabases
{
    QStringList names;
    QString master;  ///< the only one that looks like it, "" when it cannot be told
    QString company; ///< the same
};

/// The lists of a ledger from which a sale's codes are chosen, by table.
using HostCodes = QMap<QString, std::vector<HostCode>>;

/// Reads for the set-up what a server has to offer, beside the windows and with connections of its
/// own: a server that does not answer keeps nobody waiting.
class SetupLedger final : public QObject
{
    Q_OBJECT

public:
    explicit SetupLedger(HostProbe &probe, QObject *parent = nullptr);
    ~SetupLedger() override;

    /// Begin anew, also while something is read.
    void readDatabases(const DiagnosisTarget &target);
    void readCodes(const DiagnosisTarget &target);

    bool isReading() const { return m_run != nullptr; }

    /// Why the latest reading did not succeed or lacks a list, in words for the user.
    const QString &fault() const { return m_fault; }

    const OpenDatabases &databases() const { return m_databases; }
    const HostCodes &codes() const { return m_codes; }

Q_SIGNALS:
    void changed(); ///< reading has begun or ended

private:
    template <typename Read, typename Take>
    void start(const DiagnosisTarget &target, Read read, Take take);
    void end(const QString &fault);
    void leave();

    HostProbe &m_probe;
    QTimer m_patience;
    std::shared_ptr<RunLink> m_run; ///< null when nothing is read
    QString m_fault;
    OpenDatabases m_databases;
    HostCodes m_codes;
};
