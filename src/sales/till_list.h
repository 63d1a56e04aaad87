#pragma once

#include "sales/receipt_commands.h"
#include "sales/sale_list.h"

#include <optional>

/// One of the till's sale lists with what its customer owes and gave: values and arithmetic,
/// without a word to anybody. TillSession tells of what changes.
class TillList
{
public:
    SaleList lines;
    std::optional<Receipt> lastReceipt;

    const pricing::Totals &totals() const { return m_totals; }
    const QString &cash() const { return m_cash; }
    const QString &change() const { return m_change; }
    const QString &postedTotal() const { return m_postedTotal; }
    int currentRow() const { return m_currentRow; }

    /// The line that keys work on; null when there is none.
    const SaleLine *currentLine() const;
    void makeCurrent(int row); ///< the nearest one there is
    void setCurrentQuantity(double quantity);

    /// Brings the totals up to date; true when the change was too, as cash had been given.
    bool recompute();
    /// Cash was given: the sale is not paid by card.
    void setCash(const QString &text);
    /// By card nothing is given and nothing comes back.
    void setPayment(Payment payment);
    Payment payment() const { return m_payment; }

    /// The account chosen for this sale; empty: the one of the settings.
    const Customer &customer() const { return m_customer; }
    void setCustomer(const Customer &customer) { m_customer = customer; }

    void beginSale(); ///< no cash was given yet, the customer is the usual one

    /// Total and change of the sale that was just posted stay on screen: the change is handed out
    /// after the list was cleared.
    void showPosted(const Sale &sale);
    /// The customer has gone. True when there was a posted sale to forget.
    bool forgetPosted();

    /// What is posted of it; who sells and when is for the caller to say.
    Sale capture() const;

private:
    pricing::Totals m_totals;
    QString m_cash = QStringLiteral("0,00");
    QString m_change = QStringLiteral("0,00");
    QString m_postedTotal;
    Payment m_payment = Payment::cash;
    Customer m_customer;
    bool m_cashGiven = false; ///< the cash box was changed during this sale
    int m_currentRow = -1;
};
