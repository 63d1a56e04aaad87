#include "app/desk_room.h"

#include "app/forms.h"
#include "labels/desk/forms/baruret.h"
#include "labels/desk/forms/fatura.h"
#include "labels/desk/forms/fytdegisbul.h"
#include "labels/desk/forms/saved_queues.h"
#include "labels/desk/forms/shelf_scan_form.h"
#include "labels/desk/forms/stkkart.h"
#include "labels/print/forms/print_problems.h"
#include "labels/print/forms/print_progress.h"
#include "labels/print/forms/yazfrm.h"

DeskRoom::DeskRoom(Program &program, const Forms &forms)
    : m_forms(forms), m_desk(program), m_invoices(program), m_changes(program), m_print(program)
{
    connectPrinting();
    connectDocuments();
}

DeskRoom::~DeskRoom()
{
    for (QWidget *form :
         std::initializer_list<QWidget *>{m_baruret, m_scan, m_savedQueues, m_problems, m_yazfrm,
                                          m_fatura, m_fytdegisbul, m_stkkart})
        delete form;
}

/// The queue belongs to the desk and the run to the engine; they meet here.
void DeskRoom::connectPrinting()
{
    m_progress = std::make_unique<PrintProgress>(m_print);
    connect(&m_desk.printing(), &LabelPrinting::printWanted, &m_print, &PrintRun::start);
    connect(&m_print, &PrintRun::finished, &m_desk.printing(), &LabelPrinting::runEnded);
    connect(&m_print, &PrintRun::layoutWanted, this, &DeskRoom::chooseLayout);
    connect(&m_print, &PrintRun::problemsFound, this, &DeskRoom::showProblems);
    connect(&m_print, &PrintRun::rowStarted, &m_desk, &LabelDesk::rowPrinting);
    connect(&m_print, &PrintRun::statusChanged, &m_desk, &LabelDesk::statusChanged);
}

/// What the loaders find goes into the stock list, and the label form comes up to show it. The list
/// is filled after the key or button that asked for it: their forms may be closed meanwhile.
void DeskRoom::connectDocuments()
{
    connect(
        &m_invoices, &InvoicePicker::transferred, this,
        [this](const QList<InvoiceLine> &lines) {
            show();
            m_desk.loader().listLines(lines);
        },
        Qt::QueuedConnection);
    connect(
        &m_changes, &PriceChangeRequest::requested, this,
        [this](const QString &fromDate, const QString &toDate, const QString &fromTime,
               const QString &toTime) {
            show();
            m_desk.loader().fiyatdegisbul(fromDate, toDate, fromTime, toTime);
        },
        Qt::QueuedConnection);
    connect(&m_desk.numbers(), &NumberDesk::generatorRequested, this, &DeskRoom::showGenerator);
    connect(&m_desk, &LabelDesk::scanFormWanted, this, &DeskRoom::showScan);
}

void DeskRoom::show()
{
    m_forms.show(m_stkkart, [this] {
        auto *form = new stkkart(m_desk);
        m_forms.giveMenu(form->menuButton());
        connect(form, &stkkart::faturaWanted, this, &DeskRoom::showInvoices);
        connect(form, &stkkart::designWanted, this, [this] { Q_EMIT designWanted({}); });
        connect(form, &stkkart::fytdegisbulWanted, this, &DeskRoom::showPriceChanges);
        connect(form, &stkkart::savedQueuesWanted, this, &DeskRoom::showSavedQueues);
        return form;
    });
    Q_EMIT shown();
}

void DeskRoom::showInvoices()
{
    m_forms.show(m_fatura, [this] { return new fatura(m_invoices); });
    m_fatura->enter();
}

void DeskRoom::showPriceChanges()
{
    m_forms.show(m_fytdegisbul, [this] { return new fytdegisbul(m_changes); });
    m_fytdegisbul->enter();
}

void DeskRoom::showGenerator()
{
    m_forms.show(m_baruret, [this] {
        auto *form = new Baruret(m_desk.numbers(), m_stkkart);
        form->setModal(true);
        return form;
    });
}

void DeskRoom::showScan()
{
    m_forms.show(m_scan, [this] {
        auto *form = new ShelfScanForm(m_desk, m_stkkart);
        form->setModal(true);
        return form;
    });
}

void DeskRoom::showSavedQueues()
{
    m_forms.show(m_savedQueues, [this] {
        auto *form = new SavedQueues(m_desk, m_stkkart);
        connect(form, &SavedQueues::chosen, &m_desk, &LabelDesk::openQueue, Qt::QueuedConnection);
        form->setModal(true);
        return form;
    });
}

void DeskRoom::chooseLayout(const PrintRequest &request)
{
    m_forms.show(m_yazfrm, [&] {
        auto *form = new yazfrm(m_print, request, m_stkkart);
        form->setModal(true);
        connect(form, &yazfrm::designWanted, this, &DeskRoom::designWanted, Qt::QueuedConnection);
        return form;
    });
}

void DeskRoom::showProblems(const std::vector<PrintProblem> &problems)
{
    m_forms.show(m_problems, [&] {
        auto *form = new PrintProblems(m_print, problems, m_stkkart);
        form->setModal(true);
        connect(form, &PrintProblems::rowWanted, &m_desk, &LabelDesk::rowWanted);
        return form;
    });
}

bool DeskRoom::isBusy() const
{
    return m_print.isRunning() || m_desk.isBusy() || m_invoices.isBusy();
}

void DeskRoom::stop()
{
    m_print.stop();
    m_invoices.stop();
    m_desk.stop();
}

void DeskRoom::close()
{
    if (m_stkkart)
        m_stkkart->unload();
}
