#pragma once

#include "app/design_room.h"
#include "app/desk_room.h"
#include "app/forms.h"
#include "app/outer_loop.h"
#include "app/setup_room.h"
#include "app/till_room.h"
#include "common/autostart.h"
#include "common/program.h"
#include "platform/host/system_probe.h"
#include "shell/forms/strt.h"
#include "shell/host_link.h"
#include "shell/start_session.h"

#include <QObject>
#include <QPointer>

class DiagnosisDialog;
class baglan;
class kakknd;
class login;
class parametre;
struct DiagnosisTarget;

/// Connects the rooms that need each other and keeps the forms of the shell. Forms are made on
/// first use and unloaded when they are closed; the start form lives for the whole run.
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
    void showDesigner() { m_design.show(); }
    void showSales();
    void showConnection();
    void showLogin();
    void showAbout();

    /// The set-up with today's values.
    void showSetup() { m_setup.show(m_forms); }

    /// Brings up the window used last, for a user who starts the program although it runs.
    void showLastWindow();

    /// True when the program ended with its connection open: it is to start anew, so that a shop
    /// that has just corrected its server is not left without a window.
    bool restartWanted() const { return m_restart; }

private:
    void connectMenu();
    void showLoginModal();
    void showSettings();
    void applySettings();
    void applySetup();
    void applyServer();
    void connectAnew();
    void showDiagnosis(const DiagnosisTarget &target, QWidget *asker);
    void connectionUnloaded();
    void leave();
    void end();
    void endWhenNothingShows();

    Program &m_program;
    Autostart &m_autostart;
    bool m_tray;
    SystemProbe m_probe;
    HostLink m_link;
    StartSession m_start;
    strt m_strt;
    Forms m_forms;
    DeskRoom m_desk;
    TillRoom m_till;
    OuterLoop m_outer;
    DesignRoom m_design;
    SetupRoom m_setup;
    QPointer<baglan> m_baglan;
    QPointer<login> m_login;
    QPointer<parametre> m_parametre;
    QPointer<DiagnosisDialog> m_diagnosis;
    QPointer<kakknd> m_kakknd;
    void (Rooms::*m_showLast)() = &Rooms::showStockList; ///< the main window used last
    bool m_toldTray = false;         ///< where the program is when no window shows
    bool m_startWithMachine = false; ///< as the settings were saved last
    bool m_serverChanged = false;    ///< by the settings that were saved last
    bool m_ending = false;           ///< the end was asked for
    bool m_restart = false;
};
