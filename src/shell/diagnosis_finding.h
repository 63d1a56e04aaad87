#pragma once

#include "common/host_error.h"
#include "common/host_probe.h"
#include "shell/host_check.h"

#include <QStringList>

/// Whose connection is looked at.
struct DiagnosisTarget
{
    QString server; ///< as the user typed it
    QString user;
    QString password;
    QString master;
    QString company;

    bool isEmbedded() const;
    QString connectionTo(const QString &database) const;

    /// What a driver said; it is not known to repeat a password, but that is its own matter.
    QString withoutPassword(QString text) const;
};

/// A database of the server's own that every login may open.
inline constexpr QStringView kServerDatabase = u"master";

/// What a step of the diagnosis found.
struct DiagnosisFinding
{
    bool good = true;
    QString found;     ///< what was seen
    QString advice;    ///< what to do next; "" when nothing is
    QStringList grant; ///< statements that would mend it, for whoever looks after the server
};

/// What is said of what was found, and what to do next.
namespace diagnosis_finding {

DiagnosisFinding good(const QString &found);
DiagnosisFinding bad(const QString &found, const QString &advice, const QStringList &grant = {});

DiagnosisFinding ofPort(PortState state, int port);
DiagnosisFinding ofUnknownInstance(const QString &host, const QString &instance);
DiagnosisFinding ofGreeting(const PortGreeting &greeting, int port);

/// `words`: what the driver said.
DiagnosisFinding ofEncryption(const QString &words);
DiagnosisFinding ofLogin(HostError::Cause cause, const QString &words);

/// `openable`: a sentence with the databases that the user may open, "" when they are not known.
DiagnosisFinding ofTables(const host_check::Missing &missing, const QString &company,
                          const QString &openable);
DiagnosisFinding ofRights(const host_check::Rights &rights, const DiagnosisTarget &target);
DiagnosisFinding ofNoDatabase(const QString &database, const QString &openable);
DiagnosisFinding ofClosedDatabase(host_tables::Database kind, const QString &database,
                                  const DiagnosisTarget &target, const QString &words,
                                  const QString &openable);
DiagnosisFinding ofVatRight(const DiagnosisTarget &target);

/// `dayFirst`: whether the server reads dates as the program writes them.
DiagnosisFinding ofDateOrder(bool dayFirst, const DiagnosisTarget &target);
DiagnosisFinding ofCollation(const QString &collation);

/// For a fault whose only explanation is the driver's.
DiagnosisFinding ofWords(const QString &what, const QString &words);

} // namespace diagnosis_finding
