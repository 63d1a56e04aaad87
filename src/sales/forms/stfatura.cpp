#include "sales/forms/stfatura.h"

#include "sales/forms/customer_display.h"
#include "sales/forms/growing_type.h"
#include "sales/forms/permission_box.h"
#include "sales/forms/sale_page.h"
#include "sales/forms/scan_keeper.h"
#include "sales/forms/till_dialogs.h"
#include "sales/till_session.h"
#include "ui_stfatura.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPointer>
#include <QTableView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Lira; Ctrl+1 to Ctrl+6.
constexpr std::array<int, 6> kBanknotes = {5, 10, 20, 50, 100, 200};

} // namespace

stfatura::stfatura(TillSession &session, QWidget *parent)
    : QMainWindow(parent), m_session(session), m_ui(std::make_unique<Ui::stfatura>())
{
    m_ui->setupUi(this);
    m_commands = commands();
    new GrowingType(*this, {m_ui->title, m_ui->mark, m_ui->bookButton, m_ui->listKeys, m_ui->tb1,
                            m_ui->mode, m_ui->srvadi, m_ui->button1, m_ui->button2, m_ui->button3,
                            m_ui->button4, m_ui->button5, m_ui->button6, m_ui->button7,
                            m_ui->button8, m_ui->button9, m_ui->button10});
    setWindowState(Qt::WindowMaximized);
    for (NoticeLabel *line : {m_ui->notice, m_ui->codes})
        line->setMargin(8);
    m_ui->srvadi->installEventFilter(this);
    buildPages();
    m_customer = std::make_unique<CustomerDisplay>(session);
    for (const auto changed : {&QGuiApplication::screenAdded, &QGuiApplication::screenRemoved})
        connect(
            qApp, changed, this, [this] { m_customer->place(*this); }, Qt::QueuedConnection);
    connectButtons();
    connectSession();
    connectWork();
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
    m_session.work().settle = nullptr;
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

/// What a key of the till and its button, when it has one, both do.
std::vector<stfatura::Command> stfatura::commands()
{
    const auto list = [this](int number) { return [=, this] { m_session.selectList(number); }; };
    const auto book = [this] {
        if (m_ui->bookButton->isVisible())
            openBook(m_ui->mark->isVisible());
    };
    std::vector<Command> all = {
        {Qt::Key_Escape, nullptr, [this] { m_ui->srvadi->clear(); }},
        {Qt::Key_F1, nullptr, book, Then::nothing},
        {Qt::Key_F2, m_ui->button1, [this] { closeSale(); }, Then::nothing},
        {Qt::Key_F3, m_ui->button2, [this] { askQuantity(m_session, false, this); }},
        {Qt::Key_F4, m_ui->button3, [this] { askQuantity(m_session, true, this); }},
        {Qt::Key_F5, m_ui->button4, [this] { m_session.toggleEntryMode(); }},
        {Qt::Key_F6, m_ui->button5, [this] { focusCash(); }, Then::nothing},
        {Qt::Key_F7, nullptr, list(0)},
        {Qt::Key_F8, nullptr, list(1)},
        {Qt::Key_F9, nullptr, list(2)},
        {Qt::Key_F10, m_ui->button6, [this] { chooseCashier(m_session, this); }},
        {Qt::Key_F11, m_ui->button9, [this] { findItem(m_session, this); }},
        {Qt::Key_F12, m_ui->button7, [this] { m_session.reprint(); }},
        {Qt::Key_Delete, m_ui->button8, [this] { m_session.sil(); }},
        {Qt::Key_Insert, nullptr, [this] { m_session.payExactly(); }},
        {Qt::Key_Up, nullptr, [this] { m_session.moveSelection(-1); }, Then::nothing},
        {Qt::Key_Down, nullptr, [this] { m_session.moveSelection(1); }, Then::nothing},
        {Qt::CTRL | Qt::Key_M, m_ui->button10, [this] { findCustomer(m_session, this); }},
        {Qt::CTRL | Qt::Key_K, nullptr, [this] { m_session.togglePayment(); }},
    };
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab})
        all.push_back({key, nullptr, [] {}});
    for (std::size_t i = 0; i < kBanknotes.size(); ++i)
        all.push_back({QKeyCombination(Qt::CTRL, Qt::Key(Qt::Key_1 + int(i))), nullptr,
                       [this, note = kBanknotes.at(i)] { m_session.addBanknote(note); }});
    return all;
}

void stfatura::run(const Command &command)
{
    command.what();
    if (command.then == Then::entry)
        focusEntry();
}

void stfatura::connectButtons()
{
    for (const Command &each : m_commands)
        if (each.button)
            connect(each.button, &QPushButton::clicked, this, [this, &each] { run(each); });
    connect(m_ui->bookButton, &QPushButton::clicked, this, [this] { openBook(false); });
    connect(m_ui->mark, &QPushButton::clicked, this, [this] { openBook(true); });
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
    connect(&m_session, &TillSession::postedIncompletely, this,
            [this](const PostingReport &report) { showReport(m_session, report, this); });
    connect(&m_session, &TillSession::closeAllowed, this, &QWidget::close);
    m_session.permission = [this](const QString &what) {
        return PermissionBox(
                   what, [this](const QString &typed) { return m_session.isPassword(typed); }, this)
                   .exec() == QDialog::Accepted;
    };
}

void stfatura::connectWork()
{
    TillWork &work = m_session.work();
    connect(&work, &TillWork::waiting, this, [this](const QString &text) {
        m_ui->notice->tell(text, Notice::warning);
        repaint(); // nothing else draws while the server is waited for
    });
    auto *keeper = new ScanKeeper(*this, [&work] { return work.busy(); });
    connect(&work, &TillWork::boxWaits, keeper, &ScanKeeper::awaitQuiet);
    connect(keeper, &ScanKeeper::quiet, &work, &TillWork::openBoxes);
    connect(&work, &TillWork::done, keeper, &ScanKeeper::deliver, Qt::QueuedConnection);
    connect(&work, &TillWork::dialogOpens, keeper, &ScanKeeper::giveToDialog, Qt::QueuedConnection);
    connect(&work, &TillWork::dialogClosed, this, &stfatura::focusEntry);
    work.settle = [keeper] { keeper->takeIn(); };
    QMetaObject::invokeMethod( // those that waited when an earlier till went
        &work, &TillWork::openBoxes, Qt::QueuedConnection);
    connect(keeper, &ScanKeeper::kept, this, [this](const std::vector<HeldKey> &keys) {
        focusEntry();
        enterKept(m_session, *m_ui->srvadi, keys);
    });
}

void stfatura::openBook(bool incomplete)
{
    m_session.work().later([form = QPointer(this), incomplete] {
        if (form)
            Q_EMIT form->bookWanted(incomplete);
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
    // A key of its own counts whatever is held beside it; letters and digits want Ctrl alone.
    const auto command =
        std::find_if(m_commands.begin(), m_commands.end(), [&event](const Command &each) {
            const Qt::KeyboardModifiers with = each.key.keyboardModifiers();
            return each.key.key() == event.key() && (!with || with == event.modifiers());
        });
    if (command == m_commands.end())
        return false;
    run(*command);
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
    m_ui->customer->tell(customer.name, Notice::warning); // its code stands below
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
