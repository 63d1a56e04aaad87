#pragma once

#include <QDialog>

#include <memory>

class CashierChoice;

namespace Ui {
class PER;
}

/// Chooses the cashier by name or by personal code.
class PER final : public QDialog
{
    Q_OBJECT

public:
    explicit PER(CashierChoice &choice, QWidget *parent = nullptr);
    ~PER() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void askAgain();

    CashierChoice &m_choice;
    std::unique_ptr<Ui::PER> m_ui;
};
