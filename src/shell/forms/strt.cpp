#include "shell/forms/strt.h"

#include "shell/forms/look.h"
#include "shell/host_link.h"
#include "shell/start_session.h"
#include "ui_strt.h"

#include <QApplication>
#include <QLabel>
#include <QScreen>

using namespace Qt::StringLiterals;

strt::strt(StartSession &session, HostLink &link, QWidget *parent)
    : QMainWindow(parent), m_ui(std::make_unique<Ui::strt>()), m_session(session)
{
    m_ui->setupUi(this);
    connect(m_ui->stftr, &QAction::triggered, this, &strt::stfaturaWanted);
    connect(m_ui->sqlbag, &QAction::triggered, this, &strt::baglanWanted);
    connect(m_ui->ayr, &QAction::triggered, this, &strt::loginWanted);
    connect(m_ui->hknd, &QAction::triggered, this, &strt::kakkndWanted);
    connect(m_ui->stkkrt, &QAction::triggered, this, &strt::stkkartWanted);
    connect(m_ui->cikis, &QAction::triggered, this, &strt::kpt);

    sys1.setIcon(programIcon());
    sys1.setToolTip(u"Tezgâh"_s);
    connect(&sys1, &QSystemTrayIcon::activated, this, [this] {
        men()->popup(QCursor::pos());
        men()->activateWindow(); // else Windows leaves it open when the user clicks elsewhere
    });

    Timer1.setSingleShot(true);
    connect(&Timer1, &QTimer::timeout, &m_session, &StartSession::firstTick);
    connect(&link, &HostLink::connecting, this, &strt::showConnecting);
    connect(&link, &HostLink::connected, this, &strt::hideConnecting);
}

strt::~strt() = default;

void strt::load()
{
    sys1.show();
    m_session.load();
    Timer1.start(0);
}

QMenu *strt::men() const
{
    return m_ui->men;
}

void strt::kpt()
{
    Q_EMIT unloaded();
}

/// Connecting blocks for up to ten seconds, so the notice is painted before it begins.
void strt::showConnecting(const QString &server)
{
    auto notice = std::make_unique<QLabel>(u"%1 sunucusuna bağlanılıyor…"_s.arg(server), nullptr,
                                           Qt::SplashScreen | Qt::WindowStaysOnTopHint);
    notice->setTextFormat(Qt::PlainText);
    notice->setFrameShape(QFrame::Box);
    notice->setMargin(28);
    notice->adjustSize();
    notice->move(screen()->availableGeometry().center() - notice->rect().center());
    notice->show();
    m_connecting = std::move(notice);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_connecting->repaint();
}

void strt::hideConnecting()
{
    if (!m_connecting)
        return;
    m_connecting.reset();
    QApplication::restoreOverrideCursor();
}
