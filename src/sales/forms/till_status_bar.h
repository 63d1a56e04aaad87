#pragma once

#include <QStatusBar>

struct Cashier;
struct Customer;

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

/// The foot of the till: the customer account sales go to (`cr1` its code, `cr2` its name), the
/// receipt printer, and in `panel4` who stands at the till.
class TillStatusBar final : public QStatusBar
{
    Q_OBJECT

public:
    explicit TillStatusBar(QWidget *parent = nullptr);

    void showCustomer(const Customer &customer);
    void showPrinter(const QString &printer);

    /// The panel's text is the name, its property `tag` the code.
    void showCashier(const Cashier &cashier);

private:
    QLabel *addPanel(const QString &name, const QString &caption, int stretch);

    QLabel *m_code;
    QLabel *m_name;
    QLabel *m_printer;
    QLabel *m_cashier;
};
