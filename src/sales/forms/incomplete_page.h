#pragma once

#include "sales/journal/sale_journal.h"

#include <QWidget>

#include <memory>

class IncompleteSales;
class TillSession;

namespace Ui {
class IncompletePage;
}

/// The incomplete sales and what is missing of the chosen one; completing, printing and saving it.
class IncompletePage final : public QWidget
{
    Q_OBJECT

public:
    IncompletePage(IncompleteSales &sales, TillSession &till, QWidget *parent = nullptr);
    ~IncompletePage() override;

    void load();

private:
    const JournaledSale *chosen() const;
    void showChosen();
    void complete();
    void closeByHand();
    void save();

    IncompleteSales &m_sales;
    TillSession &m_till;
    std::vector<JournaledSale> m_all;
    std::unique_ptr<Ui::IncompletePage> m_ui;
};
