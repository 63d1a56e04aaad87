#pragma once

#include "sales/cashier.h"
#include "sales/finder.h"
#include "sales/item_lookup.h"
#include "sales/ledger_codes.h"
#include "sales/posting_report.h"
#include "sales/posting_witness.h"
#include "sales/till_lists.h"
#include "sales/till_work.h"

#include <functional>
#include <memory>

class Program;

/// The till: its sale lists and the road from a scan to a receipt.
class TillSession final : public TillLists
{
    Q_OBJECT

public:
    /// Which box Enter feeds.
    enum class EntryMode
    {
        barcode,
        stockCode
    };

    explicit TillSession(Program &program, QObject *parent = nullptr);

    /// What it is busy with; its boxes wait for whoever knows that nobody types.
    TillWork &work() { return m_work; }

    /// Who stands beside the postings from now on; null: nobody.
    void setWitness(PostingWitness *witness) { m_witness = witness ? witness : &m_nobody; }

    /// The number of the next receipt, drawn for good.
    QString drawReceiptNumber();

    /// Reads the settings and the receipt layout; again after they were changed.
    void load();

    const Settings &settings() const { return m_settings; }
    EntryMode entryMode() const { return m_mode; }
    const Cashier &cashier() const { return m_cashier; }

    const ReceiptLayout &receiptLayout() const { return m_layout; }

    /// What Enter or F2 found in a list's cash box.
    enum class CashEntry
    {
        taken,
        scan,   ///< a code that had been scanned into it: entered as one, the cash is 0,00 again
        refused ///< not an amount, the cashier was told
    };
    CashEntry acceptCash(int number);

    /// Account that the sale of the active list is booked on; the one of the settings when none was
    /// chosen.
    Customer customer() const;

    /// The code that the lost server left in the entry box; empty: none.
    const QString &refusedCode() const { return m_refusedCode; }

    /// Tells what was typed behind a box but could not be entered.
    void tellNotEntered(const QStringList &texts);

    /// Prints a report on the receipt printer, or saves it; a fault is told.
    void printReport(const PostingReport &report);
    void saveReport(const PostingReport &report, const QString &path);

    /// What the cashier dialog works with, read; a fault of the host is told. Connect its chosen()
    /// to setCashier().
    std::unique_ptr<CashierChoice> cashierChoice();

    /// What the windows that find stocks and customers work with; none may outlive the till.
    std::unique_ptr<Finder> itemFinder() const;
    std::unique_ptr<Finder> customerFinder() const;
    /// Searches with one; a fault of the host is told.
    void search(Finder &finder, const QString &text);

    /// Warns of lists that still hold lines; true when the form may close.
    bool mayClose();

    /// Empties all lists and forgets the cashier; the till was closed.
    void discard();

    QList<int> columnWidths() const;
    void saveColumnWidths(const QList<int> &widths);

    /// Asks for the settings password before what the shop does not leave to every cashier;
    /// `what`: "Satır silmek". False: not given. Set by the form.
    std::function<bool(const QString &what)> permission;

    /// Whether it is the settings password.
    bool isPassword(const QString &typed) const;

public Q_SLOTS:
    void enterCode(const QString &code);  ///< Enter in the entry box
    void enterStock(const QString &code); ///< a stock code, whatever the box takes
    void toggleEntryMode();
    void sil();                                 ///< deletes the current line of the active list
    void setCustomer(const Customer &customer); ///< of the active list's sale
    void setCashier(const Cashier &cashier);
    /// Posts the active list and prints its receipt. `unentered`: what stands in the entry box; a
    /// code that nobody entered keeps the sale from being posted.
    void post(const QString &unentered = {});
    void reprint(); ///< prints the last receipt of the active list again
    void askToClose();

Q_SIGNALS:
    void settingsLoaded();
    void entryModeChanged();
    void entryCleared(); ///< the entry box is to be emptied
    void entryRefused(); ///< the text stays, selected: the next scan replaces it
    void cashRefused();  ///< the cash box of the active list holds no amount
    void closeAllowed(); ///< the lists were given up
    void postedIncompletely(const PostingReport &report);
    void cashierChanged();
    void codesChecked(const QStringList &unknown); ///< codes of the settings the ledger lacks

private:
    void enter(const QString &code, EntryMode mode);
    void askForFreeLine(int number, int row);
    bool permitted(const QString &what) const;

    Sale capture(int number) const;
    bool mayPost(const QString &unentered);
    bool mayPostOnCodes();
    void postActive();
    void postList(int number, PostingProgress &progress);
    void tellEmpty(int number);
    void print(const Receipt &receipt);
    void tellOutcome(int number, const Sale &sale, const PostingResult &result);

    Program &m_program;
    TillWork m_work;
    PostingWitness m_nobody;
    PostingWitness *m_witness = &m_nobody;
    Settings m_settings;
    ReceiptLayout m_layout;
    ScanSounds m_sounds;
    ItemLookup m_lookup;
    EntryMode m_mode = EntryMode::barcode;
    Cashier m_cashier;
    LedgerCodes m_codes;
    QString m_refusedCode;
};
