#pragma once

#include "labels/desk/invoice_picker.h"
#include "labels/desk/label_desk.h"
#include "labels/desk/price_change_request.h"
#include "labels/print/print_run.h"

#include <QObject>
#include <QPointer>

class Baruret;
class Forms;
class PrintProblems;
class PrintProgress;
class SavedQueues;
class ShelfScanForm;
class fatura;
class fytdegisbul;
class stkkart;
class yazfrm;

/// The label desk: stock list, queue, documents and new numbers, and the run that prints the queue.
class DeskRoom final : public QObject
{
    Q_OBJECT

public:
    /// Both are kept by reference.
    DeskRoom(Program &program, const Forms &forms);
    ~DeskRoom() override;

    LabelDesk &desk() { return m_desk; }
    PrintRun &print() { return m_print; }

    void show();

    /// True while something runs that lets the windows live between its steps.
    bool isBusy() const;
    void stop();
    void close();

Q_SIGNALS:
    void shown(); ///< the stock list came up, asked for or to show what was found
    void designWanted(const QString &layout);

private:
    void connectPrinting();
    void connectDocuments();
    void showInvoices();
    void showPriceChanges();
    void showGenerator();
    void showScan();
    void showSavedQueues();
    void chooseLayout(const PrintRequest &request);
    void showProblems(const std::vector<PrintProblem> &problems);

    const Forms &m_forms;
    LabelDesk m_desk;
    InvoicePicker m_invoices;
    PriceChangeRequest m_changes;
    PrintRun m_print;
    QPointer<stkkart> m_stkkart;
    QPointer<Baruret> m_baruret;
    QPointer<ShelfScanForm> m_scan;
    QPointer<SavedQueues> m_savedQueues;
    QPointer<PrintProblems> m_problems;
    QPointer<yazfrm> m_yazfrm;
    QPointer<fatura> m_fatura;
    QPointer<fytdegisbul> m_fytdegisbul;
    std::unique_ptr<PrintProgress> m_progress;
};
