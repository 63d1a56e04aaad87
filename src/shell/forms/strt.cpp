#include "shell/forms/strt.h"

#include "shell/forms/connecting_notice.h"
#include "shell/forms/look.h"
#include "shell/host_link.h"
#include "shell/start_session.h"
#include "ui_strt.h"

#include <QCursor>
#include <QMenu>

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
    connect(m_ui->tasarim, &QAction::triggered, this, &strt::designWanted);
    connect(m_ui->cikis, &QAction::triggered, this, &strt::kpt);

    sys1.setIcon(programIcon());
    sys1.setToolTip(u"Tezgâh"_s);
    connect(&sys1, &QSystemTrayIcon::activated, this, [this] {
        men()->popup(QCursor::pos());
        men()->activateWindow(); // else Windows leaves it open when the user clicks elsewhere
    });

    Timer1.setSingleShot(true);
    connect(&Timer1, &QTimer::timeout, &m_session, &StartSession::firstTick);
    connect(&link, &HostLink::connecting, this, [this](const QString &server) {
        m_connecting =
            std::make_unique<ConnectingNotice>(u"%1 sunucusuna bağlanılıyor…"_s.arg(server));
    });
    connect(&link, &HostLink::connected, this, [this] { m_connecting.reset(); });
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

void strt::tellWhereItIs()
{
    sys1.showMessage(u"Tezgâh"_s,
                     u"Program saatin yanında çalışmayı sürdürüyor. Menüsü simgesine tıklayınca "
                     "açılır; kapatmak için menüden Çıkış'ı seçin."_s);
}

void strt::kpt()
{
    Q_EMIT unloaded();
}
