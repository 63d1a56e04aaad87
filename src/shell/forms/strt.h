#pragma once

#include <QMainWindow>
#include <QSystemTrayIcon>
#include <QTimer>

#include <memory>

class ConnectingNotice;
class HostLink;
class StartSession;
QT_BEGIN_NAMESPACE
class QMenu;
QT_END_NAMESPACE

namespace Ui {
class strt;
}

/// The start form: it lives for the whole run, stays hidden behind its tray icon and owns the main
/// menu.
class strt final : public QMainWindow
{
    Q_OBJECT

public:
    strt(StartSession &session, HostLink &link, QWidget *parent = nullptr);
    ~strt() override;

    /// Opens the host database and, with the first tick of the timer, the first window.
    void load();

    /// The main menu, also for desktops without a tray.
    QMenu *men() const;

    /// Says beside the clock that the program goes on there.
    void tellWhereItIs();

    /// Unloads the start form: the program ends.
    void kpt();

Q_SIGNALS:
    void stfaturaWanted();
    void baglanWanted();
    void loginWanted();
    void kakkndWanted();
    void stkkartWanted();
    void designWanted();
    void unloaded();

private:
    std::unique_ptr<Ui::strt> m_ui;
    StartSession &m_session;
    QSystemTrayIcon sys1;
    QTimer Timer1;
    std::unique_ptr<ConnectingNotice> m_connecting; ///< there while a connection is being tried
};
