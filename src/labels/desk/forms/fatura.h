#pragma once

#include "labels/desk/invoice_picker.h"

#include <QDialog>

#include <memory>

namespace Ui {
class fatura;
}

/// The invoice form: lists invoices of a type and a range of days, shows the lines of the checked
/// ones and hands them to the label form. It stays open, so that more can be handed over.
class fatura final : public QDialog
{
    Q_OBJECT

public:
    /// `picker` must outlive the form. Types and tracking filter are read here.
    explicit fatura(InvoicePicker &picker, QWidget *parent = nullptr);
    ~fatura() override;

    /// Starts at the first field, also when the form was in use.
    void enter();

    /// Escape and the window's close button stop a reading that runs, else close the form.
    void reject() override;

private:
    void fill();
    void connectCommands();
    TrackingFilter tracking() const;
    void listInvoices();
    void showBusy(bool busy);

    InvoicePicker &m_picker;
    std::unique_ptr<Ui::fatura> m_ui;
};
