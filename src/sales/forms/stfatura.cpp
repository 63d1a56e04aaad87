#include "sales/forms/stfatura.h"

#include "sales/forms/customer_display.h"
#include "sales/forms/permission_box.h"
#include "sales/forms/sale_page.h"
#include "sales/forms/scan_keeper.h"
#include "sales/forms/till_dialogs.h"
#include "sales/till_session.h"
#include "ui_stfatura.h"

#include <QApplication>
#include <QCloseEvent>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

/// Lira; Ctrl+1 to Ctrl+6.
constexpr std::array<int, 6> kBanknotes = {5, 10, 20, 50, 100, 200};

} // namespace

stfatura::stfatura(TillSession &session, QWidget *parent)
    : QMainWindow(parent), m_session(session), m_ui(std::make_unique<Ui::stfatura>())
{
    m_ui->setupUi(this);
    setWindowState(Qt::WindowMaximized);
    m_ui->notice->setMargin(8);
    m_ui->srvadi->installEventFilter(this);
    buildPages();
    m_customer = std::make_unique<CustomerDisplay>(session);
    for (const auto changed : {&QGuiApplication::screenAdded, &QGuiApplication::screenRemoved})
        connect(
            qApp, changed, this, [this] { m_customer->place(*this); }, Qt::QueuedConnection);
    connectButtons();
    connectSession();
    session.load();
    const QList<int> widths = session.columnWidths();
    for (SalePage *each : m_pages)
        each->setColumnWidths(widths);
    showList(session.activeList());
    showMode();
    m_ui->notice->tell({}, Notice::done);
    focusEntry();
}

stfatura::~stfatura()
{
    m_session.permission = nullptr;
}

QToolButton *stfatura::menuButton() const
{
    return m_ui->menuButton;
}

void stfatura::buildPages()
{
    for (int number = 0; number < kSaleLists; ++number) {
        auto *each = new SalePage(m_session, number, m_ui->pages);
        m_pages.at(static_cast<std::size_t>(number)) = each;
        m_ui->pages->addWidget(each);
        m_ui->tb1->addList(TillSession::caption(number), u"F%1"_s.arg(7 + number));
        each->cashBox().installEventFilter(this);
        connect(each, &SalePage::clicked, this, &stfatura::focusEntry);
    }
    connect(m_ui->tb1, &QTabBar::currentChanged, &m_session, &TillSession::selectList);
}

void stfatura::connectButtons()
{
    const auto act = [this](QPushButton *button, auto &&action) {
        connect(button, &QPushButton::clicked, this, [this, action] {
            action();
            focusEntry();
        });
    };
    connect(m_ui->button1, &QPushButton::clicked, this, &stfatura::closeSale);
    act(m_ui->button2, [this] { askQuantity(m_session, false, this); });
    act(m_ui->button3, [this] { askQuantity(m_session, true, this); });
    act(m_ui->button4, [this] { m_session.toggleEntryMode(); });
    connect(m_ui->button5, &QPushButton::clicked, this, &stfatura::focusCash);
    act(m_ui->button6, [this] { chooseCashier(m_session, this); });
    act(m_ui->button10, [this] { findCustomer(m_session, this); });
    act(m_ui->button9, [this] { findItem(m_session, this); });
    act(m_ui->button7, [this] { m_session.reprint(); });
    act(m_ui->button8, [this] { m_session.sil(); });
    connect(m_ui->bookButton, &QPushButton::clicked, this, [this] { Q_EMIT bookWanted(false); });
    connect(m_ui->mark, &QPushButton::clicked, this, [this] { Q_EMIT bookWanted(true); });
    connect(m_ui->closeButton, &QToolButton::clicked, this, &QWidget::close);
}

void stfatura::connectSession()
{
    connect(&m_session, &TillSession::settingsLoaded, this, &stfatura::showSettings);
    connect(&m_session, &TillSession::entryCleared, m_ui->srvadi, &QLineEdit::clear);
    connect(&m_session, &TillSession::entryRefused, m_ui->srvadi, &QLineEdit::selectAll);
    connect(&m_session, &TillSession::noticed, m_ui->notice, &NoticeLabel::tell);
    connect(&m_session, &TillSession::codesChecked, this, [this](const QStringList &unknown) {
        m_ui->codes->tell(u"Bağlı muhasebede olmayan kodlar: %1."_s.arg(unknown.join(u", "_s)),
                          Notice::warning);
        m_ui->codes->setVisible(!unknown.isEmpty());
    });
    connect(&m_session, &TillSession::activeListChanged, this, &stfatura::showList);
    connect(&m_session, &TillSession::entryModeChanged, this, &stfatura::showMode);
    connect(&m_session, &TillSession::cashierChanged, this,
            [this] { m_ui->statusbar->showCashier(m_session.cashier()); });
    connect(&m_session, &TillSession::customerChanged, this, &stfatura::showCustomer);
    connect(&m_session, &TillSession::totalsChanged, this,
            [this](int number) { m_ui->tb1->mark(number, !m_session.list(number).isEmpty()); });
    connect(&m_session, &TillSession::cashRefused, this, &stfatura::focusCash);
    connect(&m_session, &TillSession::waiting, this, [this](const QString &text) {
        m_ui->notice->tell(text, Notice::warning);
        repaint(); // nothing else draws while the server is waited for
    });
    connect(&m_session, &TillSession::postedIncompletely, this,
            [this](const PostingReport &report) { showReport(m_session, report, this); });
    connect(&m_session, &TillSession::closeAllowed, this, &QWidget::close);
    m_session.permission = [this](const QString &what) {
        return PermissionBox(
                   what, [this](const QString &typed) { return m_session.isPassword(typed); }, this)
                   .exec() == QDialog::Accepted;
    };
    auto *keeper = new ScanKeeper(*this, [this] { return m_session.atWork(); });
    connect(&m_session, &TillSession::boxWaits, keeper, &ScanKeeper::awaitQuiet);
    connect(keeper, &ScanKeeper::quiet, &m_session, &TillSession::openBoxes);
    connect(&m_session, &TillSession::workDone, keeper, &ScanKeeper::deliver, Qt::QueuedConnection);
    connect(keeper, &ScanKeeper::kept, this, [this](const std::vector<HeldKey> &keys) {
        focusEntry();
        enterKept(m_session, *m_ui->srvadi, keys);
    });
}

bool stfatura::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QMainWindow::eventFilter(watched, event);
    const auto &key = static_cast<const QKeyEvent &>(*event);
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        return enterPressed(watched);
    return formKey(key);
}

/// Keys of the form, seen before the box that has the focus. Returns whether the key was used.
bool stfatura::formKey(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        break;
    case Qt::Key_Escape:
        m_ui->srvadi->clear();
        break;
    case Qt::Key_F1:
        if (m_ui->bookButton->isVisible())
            Q_EMIT bookWanted(m_ui->mark->isVisible());
        return true;
    case Qt::Key_F2:
        closeSale();
        return true;
    case Qt::Key_F3:
    case Qt::Key_F4:
        askQuantity(m_session, event.key() == Qt::Key_F4, this);
        break;
    case Qt::Key_F5:
        m_session.toggleEntryMode();
        break;
    case Qt::Key_F6:
        focusCash();
        return true;
    case Qt::Key_F7:
    case Qt::Key_F8:
    case Qt::Key_F9:
        m_session.selectList(event.key() - Qt::Key_F7);
        break;
    case Qt::Key_F10:
        chooseCashier(m_session, this);
        break;
    case Qt::Key_F11:
        findItem(m_session, this);
        break;
    case Qt::Key_Insert:
        m_session.payExactly();
        break;
    case Qt::Key_F12:
        m_session.reprint();
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        m_session.moveSelection(event.key() == Qt::Key_Up ? -1 : 1);
        return true;
    case Qt::Key_Delete:
        m_session.sil();
        break;
    default:
        if (!controlKey(event))
            return false;
    }
    focusEntry();
    return true;
}

/// Ctrl with a letter or digit. Returns whether the key was used.
bool stfatura::controlKey(const QKeyEvent &event)
{
    if (event.modifiers() != Qt::ControlModifier)
        return false;
    const auto note = static_cast<std::size_t>(event.key() - Qt::Key_1);
    if (event.key() == Qt::Key_M)
        findCustomer(m_session, this);
    else if (event.key() == Qt::Key_K)
        m_session.togglePayment();
    else if (event.key() >= Qt::Key_1 && note < kBanknotes.size())
        m_session.addBanknote(kBanknotes.at(note));
    else
        return false;
    return true;
}

bool stfatura::enterPressed(QObject *box)
{
    if (box == m_ui->srvadi)
        m_session.enterCode(m_ui->srvadi->text());
    else
        acceptCash();
    return true;
}

void stfatura::acceptCash()
{
    const auto taken = m_session.acceptCash(m_session.activeList());
    if (taken == TillSession::CashEntry::refused)
        focusCash();
    else
        focusEntry();
}

void stfatura::closeSale()
{
    focusEntry();
    m_session.post(m_ui->srvadi->text());
}

void stfatura::focusEntry()
{
    // A dialog that closed does not hand the keyboard back on every system.
    if (isVisible() && !isActiveWindow() && !QApplication::activeModalWidget())
        activateWindow();
    m_ui->srvadi->setFocus();
}

void stfatura::focusCash()
{
    page().cashBox().setFocus();
    page().cashBox().selectAll();
}

void stfatura::showSettings()
{
    const Settings &settings = m_session.settings();
    const ListLook look = listLook(settings);
    for (SalePage *each : m_pages)
        each->setLook(look);
    m_ui->title->setText(settings.liste.title);
    m_ui->statusbar->showPrinter(settings.yazici.yazici1);
    showCustomer();
    setWindowState(windowState().setFlag(Qt::WindowFullScreen, settings.liste.tmekran));
    QMetaObject::invokeMethod( // once the till knows its own screen
        this, [this] { m_customer->place(*this); }, Qt::QueuedConnection);
    m_ui->closeButton->setVisible(settings.liste.tmekran); // there is no title bar then
}

void stfatura::showMark(const QString &mark)
{
    m_ui->bookButton->show();
    m_ui->mark->setText(mark);
    m_ui->mark->setVisible(!mark.isEmpty());
}

/// A sale that goes to an account of its own says so in large type; the usual one stands below.
void stfatura::showCustomer()
{
    const Customer customer = m_session.customer();
    m_ui->statusbar->showCustomer(customer);
    const bool usual = customer.code == m_session.settings().stok.carikod;
    m_ui->customer->setVisible(!usual);
    m_ui->customer->setText(customer.code + u"  "_s + customer.name);
}

void stfatura::showMode()
{
    const bool stock = m_session.entryMode() == TillSession::EntryMode::stockCode;
    m_ui->button4->setText(stock ? u"F5\nBARKOD"_s : u"F5\nSTOK KODU"_s);
    m_ui->mode->showMode(stock ? u"STOK KODU"_s : u"BARKOD"_s, !stock);
    m_ui->srvadi->setPlaceholderText(stock ? u"Stok kodunu yazın"_s : u"Barkodu okutun"_s);
}

void stfatura::showList(int number)
{
    m_ui->tb1->setCurrentIndex(number);
    m_ui->pages->setCurrentIndex(number);
    focusEntry();
}

SalePage &stfatura::page() const
{
    return *m_pages.at(static_cast<std::size_t>(m_session.activeList()));
}

void stfatura::closeEvent(QCloseEvent *event)
{
    if (m_session.holdsGoods()) {
        event->ignore();
        m_session.askToClose();
        return;
    }
    m_session.saveColumnWidths(m_pages[0]->columnWidths());
    m_session.discard();
    event->accept();
}

void stfatura::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        focusEntry();
}

void stfatura::mousePressEvent(QMouseEvent *event)
{
    QMainWindow::mousePressEvent(event);
    focusEntry();
}
