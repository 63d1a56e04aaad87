#pragma once

#include <QDialog>

#include <memory>

class NumberDesk;

namespace Ui {
class Baruret;
}

/// The number generator: symbology, the number to count on from, and how the complete number looks.
class Baruret final : public QDialog
{
    Q_OBJECT

public:
    /// `numbers` is kept by reference.
    explicit Baruret(NumberDesk &numbers, QWidget *parent = nullptr);
    ~Baruret() override;

    /// Escape and the window's close button stop the numbering that runs, else close the form.
    void reject() override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void choose(int index);
    void generate();
    void showNumber();
    void showBusy(bool busy);

    NumberDesk &m_numbers;
    std::unique_ptr<Ui::Baruret> m_ui;
};
