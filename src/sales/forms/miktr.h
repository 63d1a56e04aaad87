#pragma once

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class miktr;
}

/// Asks for a quantity of the current line.
class miktr final : public QDialog
{
    Q_OBJECT

public:
    /// `accept`: takes the typed text and says why it is refused, "" when it was taken.
    using Taker = std::function<QString(const QString &)>;

    miktr(const QString &item, const QString &caption, const QString &quantity, Taker taker,
          QWidget *parent = nullptr);
    ~miktr() override;

    void accept() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    std::unique_ptr<Ui::miktr> m_ui;
    Taker m_taker;
};
