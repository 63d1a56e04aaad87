#pragma once

#include "common/connection_string.h"
#include "shell/diagnosis_finding.h"

#include <functional>
#include <span>

/// The steps of a diagnosis, each on what those before it have found. They wait for the network:
/// they run beside the windows. Nothing is written anywhere.
class DiagnosisSteps
{
public:
    struct Step
    {
        QStringView name;
        QStringView silence; ///< what to do when nothing answers in this step
        void (DiagnosisSteps::*look)();
    };

    /// Where findings go: the number of a step, which may be an earlier one that is seen better
    /// now.
    using Report = std::function<void(int, const DiagnosisFinding &)>;

    /// Those that make sense for a server, or for the files of the demo shop.
    static std::span<const Step> of(const DiagnosisTarget &target);

    DiagnosisSteps(HostTools &tools, DiagnosisTarget target, Report report);

    /// Looks at one step. Nothing is reported when what it builds upon is missing.
    void run(int step);

private:
    /// Steps of a server that a later one may see better.
    enum Number : int
    {
        port = 1,
        encryption = 2
    };

    void findName();
    void reachPort();
    void greet();
    void logIn();
    void readMaster();
    void readVatClasses();
    void openCompany();
    void findTables();
    void findRights();
    void readDateOrder();
    void readCollation();
    void readVersions();

    void tell(const DiagnosisFinding &finding);
    void tell(const QString &fault, const QString &advice);
    QString words(const HostError &error) const;
    std::unique_ptr<HostConnection> open(const QString &database);
    std::unique_ptr<HostConnection> openDatabase(const QString &database,
                                                 host_tables::Database kind);
    void tellClosed(const QString &database, host_tables::Database kind, const HostError &error);
    QString openable();
    QVariant accessTo(const QString &database);

    HostTools &m_tools;
    DiagnosisTarget m_target;
    Report m_report;
    int m_step = 0;
    ServerAddress m_address;
    QStringList m_places; ///< numeric addresses of the server
    QString m_place;      ///< the one that answers
    int m_port = 0;
    bool m_near = false; ///< the server is this machine
    bool m_reached = false;
    bool m_greeted = false;
    bool m_loggedIn = false;
    QStringList m_absent;                     ///< tables that are not there
    std::unique_ptr<HostConnection> m_server; ///< on the server's own database
    std::unique_ptr<HostConnection> m_master;
    std::unique_ptr<HostConnection> m_company;
};
