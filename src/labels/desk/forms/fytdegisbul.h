#pragma once

#include "labels/desk/price_change_request.h"

#include <QDialog>

#include <memory>

namespace Ui {
class fytdegisbul;
}

/// The price-change form: asks for the stocks changed in a range of days and times. It stays open,
/// so that the range can be corrected; Escape closes it.
class fytdegisbul final : public QDialog
{
    Q_OBJECT

public:
    /// `request` must outlive the form.
    explicit fytdegisbul(PriceChangeRequest &request, QWidget *parent = nullptr);
    ~fytdegisbul() override;

    /// Starts at the first field, also when the form was in use.
    void enter();

private:
    void find();

    PriceChangeRequest &m_request;
    std::unique_ptr<Ui::fytdegisbul> m_ui;
};
