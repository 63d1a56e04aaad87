#pragma once

#include <QMainWindow>

#include <memory>

QT_BEGIN_NAMESPACE
class QToolButton;
QT_END_NAMESPACE

class LabelDesk;
class SearchBox;

namespace Ui {
class stkkart;
}

/// The label form, the shop's working screen: searches, stock list, print queue.
class stkkart final : public QMainWindow
{
    Q_OBJECT

public:
    /// `desk` must outlive the form. The price numbers and column widths are read here.
    explicit stkkart(LabelDesk &desk, QWidget *parent = nullptr);
    ~stkkart() override;

    /// Closes without asking: the user has agreed to the end of the program.
    void unload();

    /// Where the main menu goes on a desktop without a tray; hidden until it is shown.
    QToolButton *menuButton() const;

Q_SIGNALS:
    /// Stocks are to be listed from invoices, or by their price changes.
    void faturaWanted();
    void fytdegisbulWanted();
    /// Queues are to be saved, or opened, by name.
    void savedQueuesWanted();
    /// The label designer is wanted.
    void designWanted();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void buildLists();
    /// What was kept from the last time: price numbers, column widths.
    void olcuyukle();
    void buildMenus();
    void connectSearches();
    void connectQueue();
    void connectDesk();
    void connectNumbers();
    void connectKeys();

    void chooseImport();
    void removeSelected();
    void moveInQueue(int rows);
    void leave();
    void showCount();
    void showCommands();

    LabelDesk &m_desk;
    std::unique_ptr<Ui::stkkart> m_ui;
    SearchBox *m_lastSearch; ///< the search box used last; Escape goes back to it
    bool m_agreed = false;   ///< to its end, with numbers that are not saved
};
