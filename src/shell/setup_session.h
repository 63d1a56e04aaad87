#pragma once

#include "common/program.h"
#include "shell/diagnosis.h"
#include "shell/other_till.h"
#include "shell/setup_ledger.h"
#include "shell/setup_step.h"

#include <QObject>

#include <optional>

class SetupPrinting;

/// What the user has answered so far.
struct SetupAnswers
{
    SetupWay way = SetupWay::ownLedger;
    std::optional<OtherTill> other;
    Settings settings;     ///< server, codes, receipt printer and password
    QString passwordAgain; ///< the settings password, typed once more
    QString layout;        ///< the label layout of every day
    QString labelPrinter;
};

/// The way from an installed program to its first sale: questions one by one, back and forth.
/// Nothing is written before the last of them.
class SetupSession final : public QObject
{
    Q_OBJECT

public:
    /// At the first start the demo shop is offered too; later the answers are those of today.
    enum class Occasion
    {
        firstStart,
        later
    };

    SetupSession(Program &program, HostProbe &probe, SetupPrinting &printing, Occasion occasion,
                 QObject *parent = nullptr);

    Occasion occasion() const { return m_occasion; }
    SetupStep step() const { return m_steps.at(m_current); }
    int number() const { return m_current + 1; }
    int count() const { return static_cast<int>(m_steps.size()); }

    const SetupAnswers &answers() const { return m_answers; }
    const SetupLedger &ledger() const { return m_ledger; }
    Diagnosis &diagnosis() { return m_diagnosis; }
    CodeChoices &choices() { return m_choices; }

    /// The code and name that a step's question is answered with at present.
    HostCode chosen(const CodeQuestion &question) const;

    QStringList printers() const { return m_program.printers.names(); }
    QStringList layouts() const;

    /// What the till will do, in words.
    QString summary() const;

    /// Whether the step has nothing to choose from, although it ought to.
    bool mayReadAgain() const;

    /// Asks whether the answers so far may be dropped; true when there are none.
    bool mayAbandon();

    // Answers, as they are typed and chosen.
    void setServer(const QString &server, const QString &user, const QString &password);
    void setDatabases(const QString &master, const QString &company);
    void choose(int row); ///< of choices(); −1: none
    void search(const QString &text);
    void setReceiptPrinter(const QString &printer, bool afterSale);
    void setLabelPrinter(const QString &layout, const QString &printer);
    void setPassword(const QString &password, const QString &again);

public Q_SLOTS:
    void chooseWay(SetupWay way);
    void takeFolder(const QString &path); ///< and go on, when it is another till's
    void next();
    void back();
    void printTest(); ///< of the step's printer
    void readAgain(); ///< the ledger's lists

Q_SIGNALS:
    void stepChanged();
    void ledgerChanged();
    void refused(const QString &why); ///< "" when there is no longer a reason
    void told(const QString &what);
    void finished(SetupWay way);

private:
    void go(int by);
    void enter();
    bool mayLeave();
    bool mayLackCodes();
    QString refusal() const;
    QString codeRefusal(const CodeQuestion &question) const;
    void showChoices();
    void tellLedger();
    QString listFault(const CodeQuestion &question) const;
    QString databasesFault() const;
    QString databasesWord() const;
    void finish();
    QString layoutsFrom() const;
    DiagnosisTarget target() const;

    Program &m_program;
    SetupPrinting &m_printing;
    Occasion m_occasion;
    SetupAnswers m_answers;
    QList<SetupStep> m_steps;
    int m_current = 0;
    SetupLedger m_ledger;
    Diagnosis m_diagnosis;
    CodeChoices m_choices;
    QString m_codesOf;              ///< the connection whose lists were read
    bool m_lackingAccepted = false; ///< codes that could not be read, by the user
    QString m_databasesOf;          ///< the server whose databases were read
};
