#pragma once

#include "sales/journal/sale_journal.h"
#include "sales/ledger_writer.h"

#include <QStringList>

class Prompt;

/// Brings what a sale left missing into the ledger: its rows are looked for before they are
/// inserted, figures are read anew and raised by what is missing, a counter is never set back. What
/// it sends is the posting's own, in its order, and every step is logged as one.
///
/// How it is told whether something was written:
///   rows       by their reference, line and stock, and the figures that make them this sale's
///   figures    one that was never sent was not raised, unless something later of the sale stands;
///              when the power went or the journal stopped, that cannot be told of those behind
///              the last row that stands and before the first that lacks; one whose answer was
///              lost by the figure a later line of the same stock was reckoned from, or by what
///              stands there now while nobody else has moved the stock or the account since; else
///              the user is asked
///   counters   by their value: at or above the next number they were advanced
/// Numbers and references that no written record bears are drawn anew when others took them. Names
/// with an apostrophe, which no statement of a posting can carry, are written too.
class Completion
{
public:
    /// Ports and log are kept by reference.
    Completion(CompanyDatabase &company, Prompt &prompt, JournaledSale sale, PostingLog &log);

    struct Result
    {
        bool reached = false;        ///< something of the sale stands in the ledger
        bool undecided = false;      ///< the user put off an answer
        bool connectionLost = false; ///< what is missing may be completed later
        QStringList missing;         ///< what is still missing and why
        QStringList doubled;         ///< documents whose number another one bears too
        int written = 0;
    };

    /// A sale of which nothing stands in the ledger is left alone. Throws HostError when the host
    /// cannot be reached.
    Result run();

private:
    enum class State
    {
        done,
        missing,
        foreign, ///< its number is that of somebody else's document
        undecided
    };

    RecordMark *markOf(const ledger::Record &record);
    State &stateOf(const ledger::Record &record) { return m_states[record.key()]; }

    void findReference(ledger::Document document);
    void decideRows();
    void decideFigures();
    State rowState(const ledger::Record &row);
    State search(const ledger::Record &row);
    State figureState(const ledger::Record &figure);
    std::optional<bool> toldByLaterLine(const ledger::Record &figure, double from);
    std::optional<bool> toldByValue(const ledger::Record &figure, const RecordMark &mark,
                                    const std::optional<double> &now);
    State askUser(const ledger::Record &figure, double now);
    bool laterStands(const ledger::Record &figure);
    bool earlierRowLacks(const ledger::Record &figure);

    void settleReference(ledger::Document document);
    void settleNumber(ledger::Document document);
    void write(const ledger::Record &record);
    void advance(ledger::Document document);
    void tellDouble(ledger::Document document);
    void found(const ledger::Record &record);
    template <typename Step>
    void step(const ledger::Record &record, Step &&body);

    CompanyDatabase &m_company;
    Prompt &m_prompt;
    JournaledSale m_journaled;
    ledger::LedgerSale m_sale;
    std::vector<ledger::Record> m_records;
    PostingLog &m_log;
    LedgerWriter m_writer;
    std::map<QString, State> m_states;
    bool m_endLacks = false; ///< the journal lacks the end of the posting
    Result m_result;
};
