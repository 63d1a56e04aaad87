#pragma once

#include <QDialog>

#include <memory>

class DayPage;
class IncompletePage;
class ReceiptsPage;
class TillMemory;
class TillSession;

namespace Ui {
class TillBook;
}

/// What the till remembers, to look at: its receipts, its days, and the sales that the ledger does
/// not hold whole.
class TillBook final : public QDialog
{
    Q_OBJECT

public:
    TillBook(TillMemory &memory, TillSession &till, QWidget *parent = nullptr);
    ~TillBook() override;

    /// Turns to the incomplete sales, or to the first page.
    void open(bool incomplete);
    void reject() override;

private:
    std::unique_ptr<Ui::TillBook> m_ui;
    TillMemory &m_memory;
    ReceiptsPage *m_receipts;
    DayPage *m_day;
    IncompletePage *m_incomplete;
};
