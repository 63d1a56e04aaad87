#pragma once

#include "sales/journal/till_memory.h"

#include <QObject>
#include <QPointer>

class Forms;
class ReceiptDesigner;
class TillBook;
class stfatura;

/// The till: the sale form, its book and the layout of its receipts.
class TillRoom final : public QObject
{
    Q_OBJECT

public:
    /// Both are kept by reference.
    TillRoom(Program &program, const Forms &forms);
    ~TillRoom() override;

    void show();

    /// `asker`: the form that it is opened from.
    void showReceiptDesigner(QWidget *asker);

    /// After its settings, the ledger or the receipt layout were changed.
    void reload();

    /// True while the till is there and the settings keep it over other windows.
    bool isOnTop() const;

    bool atWork() { return m_till.work().busy(); }

    /// False when its lists hold goods and the user wants to keep them. Those of a program that
    /// starts anew wait in the journal for it.
    bool mayClose(bool startsAnew);
    void stay(); ///< the program goes on after all
    void close();

private:
    void showBook(bool incomplete);

    Program &m_program;
    const Forms &m_forms;
    TillSession m_till;
    std::unique_ptr<TillMemory> m_memory; ///< null: a program without a journal
    QPointer<stfatura> m_form;
    QPointer<TillBook> m_book;
    QPointer<ReceiptDesigner> m_designer;
};
