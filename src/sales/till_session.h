#pragma once

#include "sales/cashier.h"
#include "sales/finder.h"
#include "sales/item_lookup.h"
#include "sales/ledger_codes.h"
#include "sales/notice.h"
#include "sales/posting_report.h"
#include "sales/posting_witness.h"
#include "sales/till_list.h"

#include <QObject>

#include <deque>
#include <functional>
#include <memory>

class Program;

inline constexpr int kSaleLists = 3;

/// The till: three sale lists of which one is active, the road from a scan to a receipt. Lists are
/// numbered 0 to 2 for SATIS1 to SATIS3; out-of-range numbers are ignored.
class TillSession final : public QObject
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

    /// Who stands beside the postings from now on; null: nobody.
    void setWitness(PostingWitness *witness) { m_witness = witness ? witness : &m_nobody; }

    /// Puts the lines of a sale into an empty list, with its cash, payment and customer.
    void restore(int number, const Sale &left);

    /// The account chosen for a list's sale; empty: the one of the settings.
    const Customer &chosenCustomer(int number) const { return at(number).customer(); }

    /// Empties a list whose sale stands in the ledger; its total and change stay on screen.
    void clearSold(int number, const Sale &sale);

    /// The number of the next receipt, drawn for good.
    QString drawReceiptNumber();

    /// Reads the settings and the receipt layout; again after they were changed.
    void load();

    const Settings &settings() const { return m_settings; }
    SaleList &list(int number) { return at(number).lines; }
    const pricing::Totals &totals(int number) const { return at(number).totals(); }
    const QString &cash(int number) const { return at(number).cash(); }
    const QString &change(int number) const { return at(number).change(); }
    Payment payment(int number) const { return at(number).payment(); }
    int currentRow(int number) const { return at(number).currentRow(); }
    int activeList() const { return m_active; }
    EntryMode entryMode() const { return m_mode; }
    const Cashier &cashier() const { return m_cashier; }

    const ReceiptLayout &receiptLayout() const { return m_layout; }

    /// "SATIS1" to "SATIS3".
    static QString caption(int number);

    /// The current line of the active list; null when there is none.
    const SaleLine *currentLine() const { return at(m_active).currentLine(); }

    /// Sets, or adds to, the quantity of the current line. Returns why the typed text is refused,
    /// "" when the line was changed.
    QString miktargir(const QString &typed);
    QString miktarekle(const QString &typed);

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

    /// Grand total of the sale that was just posted from a list; its change stands beside it until
    /// the next code or cash. Empty: none.
    const QString &postedTotal(int number) const { return at(number).postedTotal(); }

    /// True while a key or button is being worked on or a box waits to open. The box was caused by
    /// the till, and keys that arrive belong behind it.
    bool atWork() const { return m_works > 0 || !m_boxes.empty(); }

    /// The code that the lost server left in the entry box; empty: none.
    const QString &refusedCode() const { return m_refusedCode; }

    /// Tells what was typed behind a box but could not be entered.
    void tellNotEntered(const QStringList &texts);

    /// Prints a report on the receipt printer, or saves it; a fault is told.
    void printReport(const PostingReport &report);
    void saveReport(const PostingReport &report, const QString &path);

    /// What the cashier dialog works with; connect its chosen() to setCashier().
    std::unique_ptr<CashierChoice> cashierChoice() const;

    /// What the windows that find stocks and customers work with; none may outlive the till.
    std::unique_ptr<Finder> itemFinder() const;
    std::unique_ptr<Finder> customerFinder() const;
    /// Searches with one; a fault of the host is told.
    void search(Finder &finder, const QString &text);

    /// Warns of lists that still hold lines; true when the form may close.
    bool mayClose();
    bool holdsGoods() const { return !listsWithGoods().isEmpty(); }

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
    void selectList(int number);
    void selectRow(int number, int row);           ///< in that list
    void moveSelection(int rows);                  ///< in the active list
    void sil();                                    ///< deletes the current line of the active list
    void setCash(int number, const QString &text); ///< the cash box was edited
    void payExactly();                             ///< the customer gives what is asked for
    void addBanknote(int lira);                    ///< to the cash of the active list
    void togglePayment();                          ///< cash or card
    void setCustomer(const Customer &customer);    ///< of the active list's sale
    void setCashier(const Cashier &cashier);
    /// Posts the active list and prints its receipt. `unentered`: what stands in the entry box; a
    /// code that nobody entered keeps the sale from being posted.
    void post(const QString &unentered = {});
    void reprint(); ///< prints the last receipt of the active list again
    void askToClose();
    void openBoxes(); ///< those that wait, one after the other

Q_SIGNALS:
    void settingsLoaded();
    void totalsChanged(int number);
    void cashChanged(int number); ///< cash set by the program, or change recomputed
    void currentRowChanged(int number, int row);
    void activeListChanged(int number);
    void entryModeChanged();
    void entryCleared(); ///< the entry box is to be emptied
    void entryRefused(); ///< the text stays, selected: the next scan replaces it
    void cashRefused();  ///< the cash box of the active list holds no amount
    void noticed(const QString &text, Notice kind); ///< one line for the cashier
    void waiting(const QString &text);              ///< the server keeps the till waiting
    void boxWaits();     ///< for openBoxes(), when nobody types: keys are lost beneath a box
    void workDone();     ///< and no box waits
    void closeAllowed(); ///< the lists were given up
    void postedIncompletely(const PostingReport &report);
    void cashierChanged();
    void customerChanged(); ///< of the active list, or another list is active
    void codesChecked(const QStringList &unknown); ///< codes of the settings the ledger lacks

private:
    const TillList &at(int number) const { return m_lists.at(static_cast<std::size_t>(number)); }
    TillList &at(int number) { return m_lists.at(static_cast<std::size_t>(number)); }
    TillList &active() { return at(m_active); }

    /// Marks the till as working, and tells of a server that takes its time.
    class Work;

    /// Leaves a box, or what asks in one, to openBoxes().
    void later(std::function<void()> box);
    template <typename Step>
    void guarded(Step step);
    QString listsWithGoods() const;

    void enter(const QString &code, EntryMode mode);
    void askForFreeLine(int number, int row);
    bool permitted(const QString &what) const;
    void hesapla(int number);
    void resetCash(int number);
    void forgetPosted(int number);
    void makeCurrent(int number, int row);
    void changeQuantity(double quantity);
    QString refusedQuantity(const QString &typed) const;

    Sale capture(int number) const;
    bool mayPost(const QString &unentered);
    bool mayPostOnCodes();
    void postActive();
    void postList(int number, PostingProgress &progress);
    void tellEmpty(int number);
    void clearList(int number);
    void print(const Receipt &receipt);
    void tellOutcome(int number, const Sale &sale, const PostingResult &result);

    Program &m_program;
    PostingWitness m_nobody;
    PostingWitness *m_witness = &m_nobody;
    Settings m_settings;
    ReceiptLayout m_layout;
    ScanSounds m_sounds;
    ItemLookup m_lookup;
    std::array<TillList, kSaleLists> m_lists;
    int m_active = 0;
    EntryMode m_mode = EntryMode::barcode;
    Cashier m_cashier;
    LedgerCodes m_codes;
    int m_works = 0; ///< handlers under way; more than one while a box of the first is open
    std::deque<std::function<void()>> m_boxes;
    QString m_refusedCode;
};
