#pragma once

#include "labels/desk/price_change_finder.h"

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
    /// `finder` must outlive the form.
    explicit fytdegisbul(PriceChangeFinder &finder, QWidget *parent = nullptr);
    ~fytdegisbul() override;

private:
    void find();

    PriceChangeFinder &m_finder;
    std::unique_ptr<Ui::fytdegisbul> m_ui;
};
