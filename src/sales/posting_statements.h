#pragma once

#include "sales/sale.h"

#include <array>

/// Texts of the ledger's statements. Every value stands between single quotes as it is; amounts
/// are plain decimals with a point.
namespace ledger {

/// "1234,5" → "1234.5".
QString decimal(QString displayText);

/// A computed amount with two decimals and no grouping: 1234.5 → "1234.50".
QString amountText(double value);

/// A balance with as many decimals as it needs: 2.5 → "2.5".
QString balanceText(double value);

/// Amount of an invoice summary row, without a zero before the point: 0.5 → ".50".
QString summaryText(double value);

/// What the statements of one posting share.
struct Header
{
    QString today; ///< dd.MM.yyyy
    QString year;
    QString month;
    QString time; ///< hour:minute as plain numbers, "14:5"
    QString warehouse;
    QString priceNumber;
    QString customerCode;
    QString customerName;
    QString stockSlipType;
    QString accountSlipType;
    QString cashierCode;

    QString gross;
    QString discount;
    QString vat;
    QString grand;
    QString vatRate; ///< the rate all lines share, else "0"

    QString stockNumber; ///< document numbers
    QString accountNumber;
    QString invoiceNumber;
    QString stockCounter; ///< the stock counter as it was read

    QString stockReference; ///< empty: could not be drawn
    QString accountReference;
    QString invoiceReference;
};

/// One sale line with the figures the ledger wants beside those of the screen.
struct Line
{
    Line(const SaleLine &line, int number);

    QString number; ///< from 1
    QString barcode, stockCode, name, unit, vatRate, price, quantity, amount, discount, net;
    std::array<QString, 3> percent;
    std::array<QString, 3> discounts;
    QString vatBase, vatAmount, total, netPrice;
};

/// One of the three counters a sale draws document numbers from. The host numbers its modules: 1
/// invoices, 2 stock slips, 3 current-account slips.
struct Counter
{
    QStringView module;
    QStringView sequence;
};
inline constexpr Counter kStockCounter{u"2", u"3"};
inline constexpr Counter kAccountCounter{u"3", u"2"};
inline constexpr Counter kInvoiceCounter{u"1", u"2"};

QString counterRow(const Counter &counter);
QString advanceCounter(const Counter &counter, const QString &newValue);

/// Highest reference number of a table, as field TOTAL.
QString highestReference(QStringView column, QStringView table);

QString stockSlip(const Header &h);
QString stockBalance(const QString &stockCode, double balance);
QString stockMonth(const Header &h, const QString &stockCode, QStringView kind);
QString updateStockMonth(const Header &h, const QString &stockCode, QStringView kind, double value);
QString insertStockMonth(const Header &h, const QString &stockCode, QStringView kind, double value);
QString stockMovement(const Header &h, const Line &line);

QString accountSlip(const Header &h);
QString accountMonth(const Header &h, QStringView kind);
QString updateAccountMonth(const Header &h, QStringView kind, double value);
QString insertAccountMonth(const Header &h, QStringView kind, double value);
QString account(const Header &h);
QString accountBalance(const Header &h, double debit, double balance);

QString invoice(const Header &h);
QString invoiceLine(const Header &h, const Line &line);

/// One summary row of the invoice; `vatRate` is the value of its rate column.
struct Summary
{
    QString subject;
    QString heading;
    double amount = 0.0;
    double base = 0.0;
    QString vatRate;
};
QString invoiceSummary(const Header &h, const Summary &row);

QString accountMovement(const Header &h);

} // namespace ledger
