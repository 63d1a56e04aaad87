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
    QStringList masters;   ///< those of them with the tables of the accounting system's own
    QStringList companies; ///< those with the tables of a company

    /// All of them; those that fit come first.
    QStringList mastersFirst() const { return masters + without(masters); }
    QStringList companiesFirst() const { return companies + without(companies); }

private:
    QStringList without(const QStringList &first) const;
};

/// The lists of a ledger from which a sale's codes are chosen, by table.
struct HostLists
{
    QMap<QString, std::vector<HostCode>> codes;
    QStringList closed; ///< tables that the login may not read
};

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

    /// Why the latest reading did not succeed, in words for the user.
    const QString &fault() const { return m_fault; }

    const OpenDatabases &databases() const { return m_databases; }
    const HostLists &lists() const { return m_lists; }

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
    HostLists m_lists;
};
