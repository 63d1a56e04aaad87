#include "shell/forms/baglan.h"

#include "shell/host_link.h"
#include "ui_baglan.h"

#include <QCloseEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTickMs = 500;

} // namespace

baglan::baglan(HostLink &link, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::baglan>()), m_link(link)
{
    m_ui->setupUi(this);
    m_ui->button1->setEnabled(!m_link.masterOpen());
    showState();
    connect(m_ui->button1, &QPushButton::clicked, this, &baglan::connectToHost);
    connect(m_ui->button2, &QPushButton::clicked, this, &baglan::loginWanted);
    connect(m_ui->diagnose, &QPushButton::clicked, this, &baglan::diagnosisWanted);
    connect(&m_timer, &QTimer::timeout, this, &baglan::tick);
    m_timer.start(kTickMs);
}

baglan::~baglan() = default;

void baglan::showState()
{
    QString state = u"%1 sunucusuna bağlantı açık."_s;
    if (!m_link.masterOpen())
        state = u"%1 sunucusundaki veritabanına ulaşılamıyor.\n"
                "Sunucu açıksa yeniden bağlanın; adresi değiştiyse ayarlardan düzeltin."_s;
    state = state.arg(m_link.server().server);
    if (m_link.server().server.isEmpty())
        state =
            u"Sunucu adı boş: hangi sunucuya bağlanılacağını ayarlarda, Sunucu sayfasına yazın."_s;
    else if (!m_link.failure().isEmpty())
        state += u"\n\n"_s + m_link.failure();
    m_ui->durum->setText(state);
}

QToolButton *baglan::menuButton() const
{
    return m_ui->menuButton;
}

void baglan::tick()
{
    if (m_link.masterOpen()) {
        close();
    } else if (!m_ui->button1->isEnabled()) {
        m_ui->button1->setEnabled(true);
        m_ui->button1->setDefault(true); // Enter tries again
        m_ui->button1->setFocus();
    }
}

void baglan::connectToHost()
{
    m_ui->button1->setEnabled(false);
    m_link.sqlbaglan();
    showState();
}

void baglan::done(int)
{
    close(); // Escape unloads the dialog as the close box does
}

void baglan::closeEvent(QCloseEvent *event)
{
    m_timer.stop();
    event->accept();
    if (!std::exchange(m_unloaded, true))
        Q_EMIT unloaded();
}
