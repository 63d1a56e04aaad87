#pragma once

#include "sales/journal/day_end.h"
#include "sales/journal/incomplete_sales.h"
#include "sales/journal/journal_file.h"
#include "sales/journal/list_journal.h"
#include "sales/journal/receipt_archive.h"
#include "sales/journal/sale_keeper.h"
#include "sales/journal/sold_search.h"
#include "sales/posting_witness.h"
#include "sales/till_session.h"

#include <QTimer>

/// What the till remembers of itself, in `kasa.dbs`. It watches a session: every change of a list
/// is written down before the next key, every posting before its first statement and after each;
/// what the end of the program left behind comes back when the till is opened first.
class TillMemory final : public QObject, public PostingWitness
{
    Q_OBJECT

public:
    TillMemory(Program &program, TillSession &till, QObject *parent = nullptr);
    ~TillMemory() override;

    IncompleteSales &incomplete() { return m_incomplete; }
    ReceiptArchive &receipts() { return m_receipts; }
    DayEnd &dayEnd() { return m_dayEnd; }

    /// Why nothing is remembered; empty: all is well.
    QString fault() const;

    /// Opens a file that failed once more, before its time has come.
    void tryAgain();

    /// What the mark on the till's screen says; empty: all is well.
    QString mark() const;

    /// Leaves the lists in the journal for the program's next start, whatever becomes of them now.
    /// False when there is no journal to leave them in.
    bool park();
    void unpark() { m_parked = false; } ///< the program goes on after all

    bool mayBegin(int list) override;
    void begun(const Sale &sale, const ledger::LedgerSale &inLedger) override;
    void drawn(const ledger::LedgerSale &sale) override;
    void sending(const ledger::Record &record, const QString &statement,
                 std::optional<double> from) override;
    void answered(const ledger::Record &record, Sent sent, const QString &words) override;
    void ended(const PostingResult &result) override;
    void numbered(const QString &receipt) override;

Q_SIGNALS:
    void markChanged();

private:
    void open();
    void prune();
    void restore();
    int freeList(int list);
    void judgeCutOff(const JournaledSale &sale);
    void greet();
    void watch();
    void watchList(int list);
    void listReset(int list);
    void cashChanged(int list);
    void customersChanged();
    Sale given(int list) const;
    void snapshot();
    void reopen();
    bool mayPost(const IncompleteSales::Outcome &outcome);
    bool wasSoldBefore(int list);
    void enter(int list, const sold_search::Found &found);
    void conclude(const JournaledSale &sale);
    void settle(); ///< soon
    void health();

    Program &m_program;
    TillSession &m_till;
    JournalFile m_file;
    ListJournal m_lists;
    SaleJournal m_sales;
    IncompleteSales m_incomplete;
    ReceiptArchive m_receipts;
    DayEnd m_dayEnd;
    QTimer m_settle; ///< brings the journal to the disk
    QTimer m_prune;
    std::array<Sale, kSaleLists> m_given; ///< cash, payment and customer, as they are written down
    std::array<Sale, kSaleLists> m_back;  ///< what came back into the lists, until it is sold
    SaleKeeper m_keeper;
    int m_list = 0;  ///< of the posting under way
    int m_sold = -1; ///< list that is about to be cleared because it was sold
    bool m_watching = false;
    bool m_restored = false; ///< what the end of the program left has come back
    bool m_parked = false;
    QStringList m_greeting;
    QDateTime m_tried; ///< when the file was opened last
};
