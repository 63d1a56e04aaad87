#include "app/rooms.h"

#include "common/settings_database.h"
#include "shell/diagnosis.h"
#include "shell/forms/baglan.h"
#include "shell/forms/diagnosis_dialog.h"
#include "shell/forms/kakknd.h"
#include "shell/forms/login.h"
#include "shell/forms/parametre.h"
#include "shell/login_session.h"
#include "shell/settings_session.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

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
      m_link(program), m_start(program, m_link), m_strt(m_start, m_link),
      m_forms(m_strt.men(), [this] { return m_till.isOnTop(); }), m_desk(program, m_forms),
      m_till(program, m_forms), m_outer([this] { return m_desk.isBusy() || m_till.atWork(); }),
      m_design(program, m_desk.print(), m_desk.desk(), m_forms), m_setup(program)
{
    connect(&m_link, &HostLink::connectionDialogWanted, this, &Rooms::showConnection);
    connect(&m_link, &HostLink::stockListWanted, this, &Rooms::showStockList);
    connect(&m_start, &StartSession::connectionDialogWanted, this, &Rooms::showConnection);
    connect(&m_start, &StartSession::stockListWanted, this, &Rooms::showStockList);
    m_program.reopen = [this] { m_link.reopenCompany(); };
    connectMenu();
    connect(&m_desk, &DeskRoom::shown, this, [this] { m_showLast = &Rooms::showStockList; });
    connect(&m_desk, &DeskRoom::designWanted, &m_design, &DesignRoom::show);
    connect(&m_setup, &SetupRoom::changed, this, &Rooms::applySetup);
    QApplication::setQuitOnLastWindowClosed(false);
    connect(qApp, &QGuiApplication::lastWindowClosed, this,
            [this] { m_outer.run([this] { endWhenNothingShows(); }); });
}

Rooms::~Rooms()
{
    m_program.reopen = nullptr;
    m_outer.deleteWaiting();
    for (QWidget *form :
         std::initializer_list<QWidget *>{m_diagnosis, m_parametre, m_login, m_baglan, m_kakknd})
        delete form;
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

void Rooms::open()
{
    m_desk.desk().keepQueue();
    m_strt.load();
    QMetaObject::invokeMethod(
        &m_design, [this] { m_design.offerRecovery(); }, Qt::QueuedConnection);
}

void Rooms::showStockList()
{
    m_desk.show();
}

void Rooms::showSales()
{
    m_showLast = &Rooms::showSales;
    m_till.show();
}

void Rooms::showConnection()
{
    m_forms.show(m_baglan, [this] {
        auto *form = new baglan(m_link);
        m_forms.giveMenu(form->menuButton());
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
    m_forms.show(m_login, [this] {
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
    m_forms.show(m_parametre, [this] {
        auto *session = new SettingsSession(m_program);
        auto *form = new parametre(*session);
        session->setParent(form);
        connect(session, &SettingsSession::saved, this, [this, session] {
            m_desk.desk().loadPriceNumbers();
            m_till.reload();
            m_startWithMachine = session->values().liste.winac;
            m_serverChanged = session->values().server != m_link.server();
        });
        connect(form, &parametre::accepted, this, &Rooms::applySettings, Qt::QueuedConnection);
        connect(form, &parametre::receiptLayoutWanted, &m_till,
                [this, form] { m_till.showReceiptDesigner(form); });
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
    m_desk.desk().loadPriceNumbers();
    m_till.reload();
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
        m_till.reload(); // its codes may not be in the new ledger
    }
}

void Rooms::showDiagnosis(const DiagnosisTarget &target, QWidget *asker)
{
    m_forms.show(m_diagnosis, [&] {
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
    m_forms.show(m_kakknd, [] { return new kakknd; });
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
    m_desk.stop();
    if (!std::exchange(m_ending, true)) // else asked for again while a box is open
        m_outer.run([this] { end(); });
}

/// Ends the program, unless the till holds goods or new numbers are unsaved and the user wants to
/// keep them: then every form stays as it is.
void Rooms::end()
{
    const bool ends = m_desk.desk().mayClose() && m_till.mayClose(m_restart) && m_design.close();
    m_ending = false;
    if (!ends) {
        m_till.stay();
        m_restart = false;
        return;
    }
    m_desk.close();
    m_till.close();
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
        if (window->isVisible() && window->testAttribute(Qt::WA_QuitOnClose)) // unlike a tray icon
            return;
    if (!m_tray)
        leave();
    else if (!std::exchange(m_toldTray, true))
        m_strt.tellWhereItIs();
}
