#pragma once

#include "app/design_room.h"
#include "app/outer_loop.h"
#include "app/setup_room.h"
#include "common/autostart.h"
#include "common/program.h"
#include "labels/desk/invoice_picker.h"
#include "labels/desk/label_desk.h"
#include "labels/desk/price_change_request.h"
#include "labels/print/print_run.h"
#include "platform/host/system_probe.h"
#include "sales/journal/till_memory.h"
#include "shell/forms/strt.h"
#include "shell/host_link.h"
#include "shell/start_session.h"

#include <QObject>
#include <QPointer>

class Baruret;
class SavedQueues;
class ShelfScanForm;
class baglan;
class DiagnosisDialog;
class fatura;
class fytdegisbul;
class kakknd;
class login;
class parametre;
class PrintProblems;
class PrintProgress;
class ReceiptDesigner;
class TillBook;
class stfatura;
class stkkart;
class yazfrm;
struct DiagnosisTarget;
QT_BEGIN_NAMESPACE
class QToolButton;
QT_END_NAMESPACE

/// Opens each form on first use and connects the rooms that need each other. Forms are unloaded
/// when they are closed; the start form lives for the whole run.
class Rooms final : public QObject
{
    Q_OBJECT

public:
    /// `tray`: whether the desktop shows the tray icon; without it the program ends with its last
    /// window.
    Rooms(Program &program, Autostart &autostart,
          bool tray = QSystemTrayIcon::isSystemTrayAvailable());
    ~Rooms() override;

    /// Opens the host database and the first window.
    void open();

    void showStockList();
    void showDesigner();
    void showSales();
    void showConnection();
    void showLogin();
    void showAbout();

    /// The set-up with today's values.
    void showSetup() { m_setup.show(); }

    /// Brings up the window used last, for a user who starts the program although it runs.
    void showLastWindow();

    /// True when the program ended with its connection open: it is to start anew, so that a shop
    /// that has just corrected its server is not left without a window.
    bool restartWanted() const { return m_restart; }

private:
    bool tillOnTop() const;
    template <typename Form, typename Make>
    void showForm(QPointer<Form> &form, Make make);
    void connectMenu();
    void connectPrinting();
    void connectDocuments();
    void showInvoices();
    void showPriceChanges();
    void showGenerator();
    void showScan();
    void showSavedQueues();
    void chooseLayout(const PrintRequest &request);
    void showProblems(const std::vector<PrintProblem> &problems);
    void showLoginModal();
    void showSettings();
    void applySettings();
    void applySetup();
    void applyServer();
    void connectAnew();
    void reloadTill();
    void showReceiptDesigner();
    void showTillBook(bool incomplete);
    bool tillMayClose();
    void showDiagnosis(const DiagnosisTarget &target, QWidget *asker);
    void connectionUnloaded();
    void leave();
    void end();
    void endWhenNothingShows();
    void giveMenu(QToolButton *button);

    Program &m_program;
    Autostart &m_autostart;
    bool m_tray;
    SystemProbe m_probe;
    HostLink m_link;
    StartSession m_start;
    LabelDesk m_desk;
    InvoicePicker m_invoices;
    PriceChangeRequest m_changes;
    PrintRun m_print;
    TillSession m_till;
    std::unique_ptr<TillMemory> m_memory; ///< null: a program without a journal
    OuterLoop m_outer;
    DesignRoom m_design;
    SetupRoom m_setup;
    strt m_strt;
    QPointer<stkkart> m_stkkart;
    QPointer<stfatura> m_stfatura;
    QPointer<TillBook> m_tillBook;
    QPointer<Baruret> m_baruret;
    QPointer<ShelfScanForm> m_scan;
    QPointer<SavedQueues> m_savedQueues;
    QPointer<PrintProblems> m_problems;
    QPointer<yazfrm> m_yazfrm;
    QPointer<fatura> m_fatura;
    QPointer<fytdegisbul> m_fytdegisbul;
    QPointer<baglan> m_baglan;
    QPointer<login> m_login;
    QPointer<parametre> m_parametre;
    QPointer<ReceiptDesigner> m_designer;
    QPointer<DiagnosisDialog> m_diagnosis;
    QPointer<kakknd> m_kakknd;
    std::unique_ptr<PrintProgress> m_progress;
    void (Rooms::*m_showLast)() = &Rooms::showStockList; ///< the main window used last
    bool m_toldTray = false;         ///< where the program is when no window shows
    bool m_startWithMachine = false; ///< as the settings were saved last
    bool m_serverChanged = false;    ///< by the settings that were saved last
    bool m_ending = false;           ///< the end was asked for
    bool m_restart = false;
};
