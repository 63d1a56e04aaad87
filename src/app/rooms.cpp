#include "app/rooms.h"

#include "common/settings_database.h"
#include "labels/desk/forms/baruret.h"
#include "labels/desk/forms/fatura.h"
#include "labels/desk/forms/fytdegisbul.h"
#include "labels/desk/forms/saved_queues.h"
#include "labels/desk/forms/shelf_scan_form.h"
#include "labels/desk/forms/stkkart.h"
#include "labels/print/forms/print_problems.h"
#include "labels/print/forms/print_progress.h"
#include "labels/print/forms/yazfrm.h"
#include "platform/machine/window_style.h"
#include "sales/forms/receipt_designer.h"
#include "sales/forms/stfatura.h"
#include "sales/forms/till_book.h"
#include "sales/receipt_editor.h"
#include "shell/cls_style.h"
#include "shell/diagnosis.h"
#include "shell/forms/baglan.h"
#include "shell/forms/diagnosis_dialog.h"
#include "shell/forms/kakknd.h"
#include "shell/forms/login.h"
#include "shell/forms/look.h"
#include "shell/forms/parametre.h"
#include "shell/login_session.h"
#include "shell/settings_session.h"

#include <QApplication>
#include <QMenu>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// Keeps a window over those of other programs, or no longer. One that is as wanted is left alone:
/// a change would show it anew.
void keepOnTop(QWidget &window, bool on)
{
    const auto words = windowStyleOf(window);
    clsStyle style(*words);
    if (style.TopMost() != on)
        style.setTopMost(on);
}

/// Brings up the window that has to be answered first; false when there is none.
bool showModal()
{
    QWidget *const modal = QApplication::activeModalWidget();
    if (modal) {
        modal->raise();
        modal->activateWindow();
    }
    return modal != nullptr;
}

} // namespace

Rooms::Rooms(Program &program, Autostart &autostart, bool tray)
    : m_program(program), m_autostart(autostart), m_tray(tray), m_probe(program.directory()),
      m_link(program), m_start(program, m_link), m_desk(program), m_invoices(program),
      m_changes(program), m_print(program), m_till(program), m_outer([this] {
          return m_print.isRunning() || m_desk.isBusy() || m_invoices.isBusy() ||
                 m_till.work().busy();
      }),
      m_design(program, m_print, m_desk, m_outer), m_setup(program), m_strt(m_start, m_link)
{
    connect(&m_link, &HostLink::connectionDialogWanted, this, &Rooms::showConnection);
    connect(&m_link, &HostLink::stockListWanted, this, &Rooms::showStockList);
    connect(&m_start, &StartSession::connectionDialogWanted, this, &Rooms::showConnection);
    connect(&m_start, &StartSession::stockListWanted, this, &Rooms::showStockList);
    m_program.reopen = [this] { m_link.reopenCompany(); };
    if (m_program.journal)
        m_memory = std::make_unique<TillMemory>(m_program, m_till);
    connectMenu();
    connectPrinting();
    connectDocuments();
    connect(&m_setup, &SetupRoom::changed, this, &Rooms::applySetup);
    QApplication::setQuitOnLastWindowClosed(false);
    connect(qApp, &QGuiApplication::lastWindowClosed, this,
            [this] { m_outer.run([this] { endWhenNothingShows(); }); });
}

Rooms::~Rooms()
{
    m_program.reopen = nullptr;
    for (QWidget *form : std::initializer_list<QWidget *>{
             m_baruret, m_scan, m_savedQueues, m_problems, m_yazfrm, m_diagnosis, m_tillBook,
             m_designer, m_parametre, m_login, m_baglan, m_kakknd, m_fatura, m_fytdegisbul,
             m_stfatura, m_stkkart})
        delete form;
}

bool Rooms::tillOnTop() const
{
    return m_stfatura && m_till.settings().liste.enust;
}

/// Brings a form up, making it first when it is not there.
template <typename Form, typename Make>
void Rooms::showForm(QPointer<Form> &form, Make make)
{
    // A form that was closed while it still worked lives on unseen until it is done; it is not
    // shown again.
    if (!form || !form->isVisible()) {
        const bool onTop = tillOnTop();
        form = make();
        form->setAttribute(Qt::WA_DeleteOnClose);
        fitToScreen(*form);
        if (onTop) // else the till would hide it
            form->setWindowFlag(Qt::WindowStaysOnTopHint);
    }
    form->show();
    form->raise();
    form->activateWindow();
}

/// What the menu asks for happens when its form has finished with the click and the box that is
/// open has been answered.
void Rooms::connectMenu()
{
    const auto onItem = [this](void (strt::*item)(), void (Rooms::*show)()) {
        connect(&m_strt, item, this, [this, show] {
            showModal();
            m_outer.run([this, show] { (this->*show)(); });
        });
    };
    onItem(&strt::stfaturaWanted, &Rooms::showSales);
    onItem(&strt::stkkartWanted, &Rooms::showStockList);
    onItem(&strt::designWanted, &Rooms::showDesigner);
    onItem(&strt::baglanWanted, &Rooms::showConnection);
    onItem(&strt::loginWanted, &Rooms::showLogin);
    onItem(&strt::kakkndWanted, &Rooms::showAbout);
    connect(&m_strt, &strt::unloaded, this, &Rooms::leave);
}

/// The queue belongs to the desk and the run to the engine; they meet here.
void Rooms::connectPrinting()
{
    m_progress = std::make_unique<PrintProgress>(m_print);
    connect(&m_desk.printing(), &LabelPrinting::printWanted, &m_print, &PrintRun::start);
    connect(&m_print, &PrintRun::finished, &m_desk.printing(), &LabelPrinting::runEnded);
    connect(&m_print, &PrintRun::layoutWanted, this, &Rooms::chooseLayout);
    connect(&m_print, &PrintRun::problemsFound, this, &Rooms::showProblems);
    connect(&m_print, &PrintRun::rowStarted, &m_desk, &LabelDesk::rowPrinting);
    connect(&m_print, &PrintRun::statusChanged, &m_desk, &LabelDesk::statusChanged);
}

/// What the loaders find goes into the stock list, and the label form comes up to show it. The list
/// is filled after the key or button that asked for it: their forms may be closed meanwhile.
void Rooms::connectDocuments()
{
    connect(
        &m_invoices, &InvoicePicker::transferred, this,
        [this](const QList<InvoiceLine> &lines) {
            showStockList();
            m_desk.loader().listLines(lines);
        },
        Qt::QueuedConnection);
    connect(
        &m_changes, &PriceChangeRequest::requested, this,
        [this](const QString &fromDate, const QString &toDate, const QString &fromTime,
               const QString &toTime) {
            showStockList();
            m_desk.loader().fiyatdegisbul(fromDate, toDate, fromTime, toTime);
        },
        Qt::QueuedConnection);
    connect(&m_desk.numbers(), &NumberDesk::generatorRequested, this, &Rooms::showGenerator);
    connect(&m_desk, &LabelDesk::scanFormWanted, this, &Rooms::showScan);
}

void Rooms::showInvoices()
{
    showForm(m_fatura, [this] { return new fatura(m_invoices); });
    m_fatura->enter();
}

void Rooms::showPriceChanges()
{
    showForm(m_fytdegisbul, [this] { return new fytdegisbul(m_changes); });
    m_fytdegisbul->enter();
}

void Rooms::showGenerator()
{
    showForm(m_baruret, [this] {
        auto *form = new Baruret(m_desk.numbers(), m_stkkart);
        form->setModal(true);
        return form;
    });
}

void Rooms::showScan()
{
    showForm(m_scan, [this] {
        auto *form = new ShelfScanForm(m_desk, m_stkkart);
        form->setModal(true);
        return form;
    });
}

void Rooms::showSavedQueues()
{
    showForm(m_savedQueues, [this] {
        auto *form = new SavedQueues(m_desk, m_stkkart);
        connect(form, &SavedQueues::chosen, &m_desk, &LabelDesk::openQueue, Qt::QueuedConnection);
        form->setModal(true);
        return form;
    });
}

void Rooms::chooseLayout(const PrintRequest &request)
{
    showForm(m_yazfrm, [&] {
        auto *form = new yazfrm(m_print, request, m_stkkart);
        form->setModal(true);
        connect(
            form, &yazfrm::designWanted, this,
            [this](const QString &layout) { m_design.show(layout, tillOnTop()); },
            Qt::QueuedConnection);
        return form;
    });
}

void Rooms::showDesigner()
{
    m_design.show({}, tillOnTop());
}

void Rooms::showProblems(const std::vector<PrintProblem> &problems)
{
    showForm(m_problems, [&] {
        auto *form = new PrintProblems(m_print, problems, m_stkkart);
        form->setModal(true);
        connect(form, &PrintProblems::rowWanted, &m_desk, &LabelDesk::rowWanted);
        return form;
    });
}

void Rooms::open()
{
    m_desk.keepQueue();
    m_strt.load();
    QMetaObject::invokeMethod(
        &m_design, [this] { m_design.offerRecovery(); }, Qt::QueuedConnection);
}

void Rooms::showStockList()
{
    m_showLast = &Rooms::showStockList;
    showForm(m_stkkart, [this] {
        auto *form = new stkkart(m_desk);
        giveMenu(form->menuButton());
        connect(form, &stkkart::faturaWanted, this, &Rooms::showInvoices);
        connect(form, &stkkart::designWanted, this, &Rooms::showDesigner);
        connect(form, &stkkart::fytdegisbulWanted, this, &Rooms::showPriceChanges);
        connect(form, &stkkart::savedQueuesWanted, this, &Rooms::showSavedQueues);
        return form;
    });
}

void Rooms::showSales()
{
    m_showLast = &Rooms::showSales;
    showForm(m_stfatura, [this] {
        auto *form = new stfatura(m_till);
        giveMenu(form->menuButton());
        keepOnTop(*form, m_till.settings().liste.enust);
        if (m_memory) {
            const auto mark = [this, form] { form->showMark(m_memory->mark()); };
            connect(m_memory.get(), &TillMemory::markChanged, form, mark);
            connect(form, &stfatura::bookWanted, this, &Rooms::showTillBook);
            mark();
        }
        return form;
    });
}

void Rooms::showTillBook(bool incomplete)
{
    showForm(m_tillBook, [this] {
        auto *form = new TillBook(*m_memory, m_till, m_stfatura);
        form->setModal(true);
        return form;
    });
    m_tillBook->open(incomplete);
}

/// The lists of a program that is to start anew wait in the journal for it.
bool Rooms::tillMayClose()
{
    return !m_stfatura || (m_restart && m_memory && m_memory->park()) || m_till.mayClose();
}

/// After its settings or the receipt layout were changed.
void Rooms::reloadTill()
{
    if (!m_stfatura)
        return;
    m_till.load();
    keepOnTop(*m_stfatura, m_till.settings().liste.enust);
}

void Rooms::showConnection()
{
    showForm(m_baglan, [this] {
        auto *form = new baglan(m_link);
        giveMenu(form->menuButton());
        connect(form, &baglan::loginWanted, this, &Rooms::showLoginModal);
        connect(form, &baglan::diagnosisWanted, this, [this, form] {
            const Settings::Server &s = m_link.server();
            showDiagnosis({s.server, s.kuladi, s.sifre, s.msql, s.sql}, form);
        });
        connect(form, &baglan::unloaded, this, &Rooms::connectionUnloaded);
        return form;
    });
}

void Rooms::showLogin()
{
    if (m_parametre && m_parametre->isVisible()) {
        m_parametre->raise();
        m_parametre->activateWindow();
        return;
    }
    showForm(m_login, [this] {
        auto *session = new LoginSession(m_program);
        auto *form = new login(*session);
        session->setParent(form);
        connect(form, &login::accepted, this, &Rooms::showSettings, Qt::QueuedConnection);
        return form;
    });
}

void Rooms::showLoginModal()
{
    showLogin();
    if (m_login) {
        m_login->hide(); // modality takes effect when a window is shown
        m_login->setModal(true);
        m_login->show();
    }
}

void Rooms::showSettings()
{
    showForm(m_parametre, [this] {
        auto *session = new SettingsSession(m_program);
        auto *form = new parametre(*session);
        session->setParent(form);
        connect(session, &SettingsSession::saved, this, [this, session] {
            m_desk.loadPriceNumbers();
            reloadTill();
            m_startWithMachine = session->values().liste.winac;
            m_serverChanged = session->values().server != m_link.server();
        });
        connect(form, &parametre::accepted, this, &Rooms::applySettings, Qt::QueuedConnection);
        connect(form, &parametre::receiptLayoutWanted, this, &Rooms::showReceiptDesigner);
        connect(form, &parametre::setupWanted, this, &Rooms::showSetup, Qt::QueuedConnection);
        connect(form, &parametre::diagnosisWanted, this,
                [this, form](const DiagnosisTarget &target) { showDiagnosis(target, form); });
        form->setModal(true);
        return form;
    });
}

/// What of saved settings may ask the user or wait for a server; the dialog has gone by then.
void Rooms::applySettings()
{
    if (!m_autostart.set(m_startWithMachine))
        m_program.caution(u"Bilgisayar açılınca başlatma ayarı değiştirilemedi."_s);
    applyServer();
}

/// The set-up has written all settings and perhaps the layouts.
void Rooms::applySetup()
{
    m_desk.loadPriceNumbers();
    reloadTill();
    m_serverChanged = settings::read(m_program.files(), {u"server"}).server != m_link.server();
    applyServer();
}

void Rooms::applyServer()
{
    // The connection dialog looks at the master connection only, so a company that did not open
    // while the master is open is tried here.
    if (std::exchange(m_serverChanged, false))
        connectAnew();
    else if (m_link.masterOpen() && !Program::isOpen(m_program.bag))
        m_link.sqlbaglan2();
}

/// Sale lists and queue stay: only the two connections are replaced.
void Rooms::connectAnew()
{
    if (m_program.ask(
            u"Sunucu bilgileri kaydedildi. Yeni sunucuya bağlanana kadar program eskisiyle "
            "çalışır.\n\nŞimdi bağlanılsın mı?"_s)) {
        m_link.sqlbaglan();
        reloadTill(); // its codes may not be in the new ledger
    }
}

void Rooms::showReceiptDesigner()
{
    showForm(m_designer, [this] {
        auto *editor = new ReceiptEditor(m_program);
        auto *form = new ReceiptDesigner(*editor, m_parametre);
        editor->setParent(form);
        connect(editor, &ReceiptEditor::saved, this, &Rooms::reloadTill);
        form->setModal(true);
        return form;
    });
}

void Rooms::showDiagnosis(const DiagnosisTarget &target, QWidget *asker)
{
    showForm(m_diagnosis, [&] {
        auto *diagnosis = new Diagnosis(m_probe);
        auto *form = new DiagnosisDialog(*diagnosis, asker);
        diagnosis->setParent(form);
        diagnosis->start(target);
        form->setModal(true);
        return form;
    });
}

void Rooms::showAbout()
{
    showForm(m_kakknd, [] { return new kakknd; });
}

void Rooms::connectionUnloaded()
{
    m_restart = m_link.masterOpen();
    leave();
}

/// Runs are stopped and the box that is open is answered before the program ends.
void Rooms::leave()
{
    showModal();
    m_print.stop();
    m_invoices.stop();
    m_desk.stop();
    if (!std::exchange(m_ending, true)) // else asked for again while a box is open
        m_outer.run([this] { end(); });
}

/// Ends the program, unless the till holds goods or new numbers are unsaved and the user wants to
/// keep them: then every form stays as it is.
void Rooms::end()
{
    const bool ends = m_desk.mayClose() && tillMayClose() && m_design.close();
    m_ending = false;
    if (!ends) {
        if (m_memory)
            m_memory->unpark();
        m_restart = false;
        return;
    }
    if (m_stkkart)
        m_stkkart->unload();
    m_till.discard(); // else the till would ask once more
    if (m_stfatura)
        m_stfatura->close();
    QCoreApplication::exit(0);
}

void Rooms::showLastWindow()
{
    if (showModal())
        return;
    if (m_baglan && m_baglan->isVisible())
        showConnection();
    else
        (this->*m_showLast)();
}

/// Without a tray nobody could reach a program that shows no window; with one the user is told
/// where it is.
void Rooms::endWhenNothingShows()
{
    for (const QWidget *window : QApplication::topLevelWidgets())
        if (window->isVisible())
            return;
    if (!m_tray)
        leave();
    else if (!std::exchange(m_toldTray, true))
        m_strt.tellWhereItIs();
}

void Rooms::giveMenu(QToolButton *button)
{
    button->setMenu(m_strt.men());
    button->setPopupMode(QToolButton::InstantPopup);
    button->show();
}
