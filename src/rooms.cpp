#include "rooms.h"

#include "labels/print/forms/baruret.h"
#include "labels/print/forms/fatura.h"
#include "labels/print/forms/fytdegisbul.h"
#include "labels/print/forms/print_progress.h"
#include "labels/print/forms/stkkart.h"
#include "labels/print/forms/yazfrm.h"
#include "labels/print/queue_labels.h"
#include "shell/forms/baglan.h"
#include "shell/forms/kakknd.h"
#include "shell/forms/login.h"
#include "shell/forms/parametre.h"
#include "shell/login_session.h"
#include "shell/settings_session.h"

#include <QApplication>
#include <QMenu>
#include <QToolButton>

namespace {

/// Brings a form up, making it first when it is not there.
template <typename Form, typename Make>
void showForm(QPointer<Form> &form, Make make)
{
    if (!form) {
        form = make();
        form->setAttribute(Qt::WA_DeleteOnClose);
    }
    form->show();
    form->raise();
    form->activateWindow();
}

} // namespace

Rooms::Rooms(Program &program, Autostart &autostart)
    : m_program(program), m_autostart(autostart), m_link(program), m_start(program, m_link),
      m_desk(program), m_invoices(program), m_changes(program), m_print(program),
      m_strt(m_start, m_link), m_tray(QSystemTrayIcon::isSystemTrayAvailable())
{
    connect(&m_link, &HostLink::connectionDialogWanted, this, &Rooms::showConnection);
    connect(&m_link, &HostLink::stockListWanted, this, &Rooms::showStockList);
    connect(&m_start, &StartSession::connectionDialogWanted, this, &Rooms::showConnection);
    connect(&m_start, &StartSession::stockListWanted, this, &Rooms::showStockList);
    connect(&m_strt, &strt::stkkartWanted, this, &Rooms::showStockList);
    connect(&m_strt, &strt::baglanWanted, this, &Rooms::showConnection);
    connect(&m_strt, &strt::loginWanted, this, &Rooms::showLogin);
    connect(&m_strt, &strt::kakkndWanted, this, &Rooms::showAbout);
    connect(&m_strt, &strt::unloaded, this, &Rooms::end);
    connectPrinting();
    connectDocuments();
    QApplication::setQuitOnLastWindowClosed(false);
    connect(qApp, &QGuiApplication::lastWindowClosed, this, &Rooms::endWhenNothingShows,
            Qt::QueuedConnection);
}

Rooms::~Rooms()
{
    delete m_fatura;
    delete m_fytdegisbul;
    delete m_stkkart;
    delete m_baglan;
    delete m_kakknd;
}

/// The queue belongs to the desk and the run to the engine; they meet here.
void Rooms::connectPrinting()
{
    m_progress = std::make_unique<print_progress>(m_print);
    connect(&m_desk, &LabelDesk::printAllRequested, this,
            [this] { m_print.yzdtum(labelRows(m_desk.queue())); });
    connect(&m_desk, &LabelDesk::printSelectedRequested, this,
            [this](int row) { m_print.yzdsec(labelRows(m_desk.queue()), row); });
    connect(&m_desk, &LabelDesk::layoutChoiceRequested, this,
            [this] { m_print.chooseLayout(labelRows(m_desk.queue())); });
    connect(&m_print, &PrintRun::layoutWanted, this, &Rooms::chooseLayout);
    connect(&m_print, &PrintRun::rowStarted, &m_desk, &LabelDesk::rowPrinting);
    connect(&m_print, &PrintRun::statusChanged, &m_desk, &LabelDesk::statusChanged);
}

/// What the loaders find goes into the stock list, and the label form comes up to show it.
void Rooms::connectDocuments()
{
    connect(&m_invoices, &InvoicePicker::transferred, this,
            [this](const QList<InvoiceLine> &lines) {
                showStockList();
                m_desk.listLines(lines);
            });
    connect(&m_changes, &PriceChangeFinder::found, this,
            [this](const QString &fromDate, const QString &toDate, const QString &fromTime,
                   const QString &toTime) {
                showStockList();
                m_desk.fiyatdegisbul(fromDate, toDate, fromTime, toTime);
            });
    connect(&m_desk.numbers(), &NumberDesk::generatorRequested, this, &Rooms::showGenerator);
}

void Rooms::showInvoices()
{
    showForm(m_fatura, [this] { return new fatura(m_invoices); });
}

void Rooms::showPriceChanges()
{
    showForm(m_fytdegisbul, [this] { return new fytdegisbul(m_changes); });
}

void Rooms::showGenerator()
{
    Baruret form(m_desk.numbers(), QApplication::activeWindow());
    form.exec();
}

void Rooms::chooseLayout(PrintMode mode)
{
    yazfrm form(m_print, mode, QApplication::activeWindow());
    form.exec();
}

void Rooms::open()
{
    m_strt.load();
}

void Rooms::showStockList()
{
    showForm(m_stkkart, [this] {
        auto *form = new stkkart(m_desk);
        giveMenu(form->menuButton());
        connect(form, &stkkart::faturaWanted, this, &Rooms::showInvoices);
        connect(form, &stkkart::fytdegisbulWanted, this, &Rooms::showPriceChanges);
        return form;
    });
}

void Rooms::showConnection()
{
    showForm(m_baglan, [this] {
        auto *form = new baglan(m_link);
        giveMenu(form->menuButton());
        connect(form, &baglan::loginWanted, this, &Rooms::showLogin);
        connect(form, &baglan::unloaded, this, &Rooms::connectionUnloaded);
        return form;
    });
}

void Rooms::showLogin()
{
    LoginSession session(m_program);
    login form(session, QApplication::activeWindow());
    if (form.exec() == QDialog::Accepted)
        showSettings();
}

void Rooms::showSettings()
{
    SettingsSession session(m_program);
    connect(&session, &SettingsSession::saved, &m_desk, &LabelDesk::olcuyukle);
    connect(&session, &SettingsSession::saved, this,
            [this, &session] { m_autostart.set(session.values().c1); });
    parametre form(session, QApplication::activeWindow());
    form.exec();
}

void Rooms::showAbout()
{
    showForm(m_kakknd, [] { return new kakknd; });
}

void Rooms::connectionUnloaded()
{
    m_restart = m_link.masterOpen();
    end();
}

/// Ends the program, unless a form has something to ask and is told to stay.
void Rooms::end()
{
    m_print.stop();
    m_invoices.stop();
    if (m_stkkart ? !m_stkkart->close() : !m_desk.mayClose())
        return;
    QApplication::quit();
}

/// Without a tray nobody could reach a program that shows no window.
void Rooms::endWhenNothingShows()
{
    for (const QWidget *window : QApplication::topLevelWidgets())
        if (window->isVisible())
            return;
    if (!m_tray)
        QApplication::quit();
}

void Rooms::giveMenu(QToolButton *button)
{
    button->setMenu(m_strt.men());
    button->setPopupMode(QToolButton::InstantPopup);
    button->setVisible(!m_tray);
}
