#pragma once

#include <QMainWindow>

#include <array>
#include <functional>
#include <memory>
#include <vector>

class CustomerDisplay;
class SalePage;
class TillSession;

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QPushButton;
class QToolButton;
QT_END_NAMESPACE

namespace Ui {
class stfatura;
}

/// The till.
class stfatura final : public QMainWindow
{
    Q_OBJECT

public:
    explicit stfatura(TillSession &session, QWidget *parent = nullptr);
    ~stfatura() override;

    /// Where the main menu goes on a desktop without a tray; hidden until it is shown.
    QToolButton *menuButton() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

    /// A till with a memory: F1 opens its book, and `mark` stands on the screen. Empty: no mark.
    void showMark(const QString &mark);

Q_SIGNALS:
    void bookWanted(bool incomplete); ///< at its receipts, or at its incomplete sales

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    /// Where the keyboard is behind a command.
    enum class Then
    {
        entry,
        nothing ///< the command says so itself, or leaves it where it is
    };
    struct Command
    {
        QKeyCombination key;
        QPushButton *button; ///< may be null
        std::function<void()> what;
        Then then = Then::entry;
    };

    void buildPages();
    std::vector<Command> commands();
    void run(const Command &command);
    void connectButtons();
    void connectSession();
    void connectWork();
    void openBook(bool incomplete);

    bool formKey(const QKeyEvent &event);
    bool enterPressed(QObject *box);
    void acceptCash();
    void closeSale();
    void focusEntry();
    void focusCash();

    void showSettings();
    void showCustomer();
    void showMode();
    void showList(int number);
    SalePage &page() const;

    TillSession &m_session;
    std::unique_ptr<Ui::stfatura> m_ui;
    std::vector<Command> m_commands;
    std::array<SalePage *, 3> m_pages{};
    std::unique_ptr<CustomerDisplay> m_customer;
};
