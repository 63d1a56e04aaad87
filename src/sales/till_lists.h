#pragma once

#include "sales/notice.h"
#include "sales/till_list.h"

#include <QObject>

#include <array>

inline constexpr int kSaleLists = 3;

/// The till's three sale lists, of which one is active: their lines, what their customers owe and
/// gave. Lists are numbered 0 to 2 for SATIS1 to SATIS3; out-of-range numbers are ignored.
class TillLists : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// "SATIS1" to "SATIS3".
    static QString caption(int number);

    SaleList &list(int number) { return at(number).lines; }
    const pricing::Totals &totals(int number) const { return at(number).totals(); }
    const QString &cash(int number) const { return at(number).cash(); }
    const QString &change(int number) const { return at(number).change(); }
    Payment payment(int number) const { return at(number).payment(); }
    int currentRow(int number) const { return at(number).currentRow(); }
    int activeList() const { return m_active; }

    /// The account chosen for a list's sale; empty: the one of the settings.
    const Customer &chosenCustomer(int number) const { return at(number).customer(); }

    /// Grand total of the sale that was just posted from a list; its change stands beside it until
    /// the next code or cash. Empty: none.
    const QString &postedTotal(int number) const { return at(number).postedTotal(); }

    /// The current line of the active list; null when there is none.
    const SaleLine *currentLine() const { return at(m_active).currentLine(); }

    /// Sets, or adds to, the quantity of the current line. Returns why the typed text is refused,
    /// "" when the line was changed.
    QString miktargir(const QString &typed);
    QString miktarekle(const QString &typed);

    /// Puts the lines of a sale into an empty list, with its cash, payment and customer.
    void restore(int number, const Sale &left);

    /// Empties a list whose sale stands in the ledger; its total and change stay on screen.
    void clearSold(int number, const Sale &sale);

    bool holdsGoods() const { return !listsWithGoods().isEmpty(); }

public Q_SLOTS:
    void selectList(int number);
    void selectRow(int number, int row);           ///< in that list
    void moveSelection(int rows);                  ///< in the active list
    void setCash(int number, const QString &text); ///< the cash box was edited
    void payExactly();                             ///< the customer gives what is asked for
    void addBanknote(int lira);                    ///< to the cash of the active list
    void togglePayment();                          ///< cash or card

Q_SIGNALS:
    void totalsChanged(int number);
    void cashChanged(int number); ///< cash set by the program, or change recomputed
    void currentRowChanged(int number, int row);
    void activeListChanged(int number);
    void customerChanged(); ///< of the active list, or another list is active
    void noticed(const QString &text, Notice kind); ///< one line for the cashier

protected:
    const TillList &at(int number) const { return m_lists.at(static_cast<std::size_t>(number)); }
    TillList &at(int number) { return m_lists.at(static_cast<std::size_t>(number)); }
    TillList &active() { return at(m_active); }

    QString listsWithGoods() const; ///< their captions, each in brackets
    void hesapla(int number);
    void resetCash(int number);
    void forgetPosted(int number); ///< the customer has gone: the change leaves the screen
    void makeCurrent(int number, int row);
    void removeLine(int number, int row);
    void clearList(int number);

private:
    void changeQuantity(double quantity);
    QString refusedQuantity(const QString &typed) const;

    std::array<TillList, kSaleLists> m_lists;
    int m_active = 0;
};
