#include "labels/desk/forms/stkkart.h"

#include "labels/desk/forms/form_keys.h"
#include "labels/desk/forms/gather_menu.h"
#include "labels/desk/forms/list_menu.h"
#include "labels/desk/forms/queue_menu.h"
#include "labels/desk/forms/text_report.h"
#include "labels/desk/label_desk.h"
#include "ui_stkkart.h"

#include <QCloseEvent>
#include <QFileDialog>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Widths in pixels of a list nobody has arranged yet; the name column takes what is left over.
const QList<int> kStockWidths = {150, 130, 300, 150, 110, 60};
const QList<int> kQueueWidths = {50, 150, 130, 300, 150, 110, 60};

} // namespace

stkkart::stkkart(LabelDesk &desk, QWidget *parent)
    : QMainWindow(parent), m_desk(desk), m_ui(std::make_unique<Ui::stkkart>())
{
    m_ui->setupUi(this);
    m_lastSearch = m_ui->Text1;
    buildLists();
    olcuyukle();
    buildMenus();
    connectSearches();
    connectQueue();
    connectDesk();
    connectNumbers();
    connectKeys();
    m_ui->Text1->setFocus();
}

stkkart::~stkkart() = default;

QToolButton *stkkart::menuButton() const
{
    return m_ui->menuButton;
}

void stkkart::buildLists()
{
    m_ui->l1->setModel(&m_desk.stocks());
    m_ui->l2->setModel(&m_desk.queue());
    m_ui->l1->makeSortable();
    m_ui->l2->makeSortable();
    connect(m_ui->l1, &ListView::sortWanted, &m_desk, &LabelDesk::sortStocks);
    connect(m_ui->l2, &ListView::sortWanted, &m_desk, &LabelDesk::sortQueue);
    m_ui->l1->makeSearchable([this](const QString &text, int from, int step) {
        return m_desk.stocks().find(text, from, step);
    });
    m_ui->l2->makeSearchable([this](const QString &text, int from, int step) {
        return m_desk.queue().find(text, from, step);
    });
    m_ui->splitter->setStretchFactor(0, 5);
    m_ui->splitter->setStretchFactor(1, 3);
}

void stkkart::olcuyukle()
{
    m_desk.loadPriceNumbers();
    m_ui->l1->setWidths(m_desk.stockWidths(), kStockWidths, StockList::name);
    m_ui->l2->setWidths(m_desk.queueWidths(), kQueueWidths, PrintQueue::name);
}

void stkkart::buildMenus()
{
    auto *stockMenu = new ListMenu(u"stklist"_s, m_ui->l1, this);
    for (QAbstractButton *button : {m_ui->addOne, m_ui->ekbr1, m_ui->ekbr2, m_ui->ektm})
        stockMenu->add(button);
    stockMenu->addOrders();

    auto *queueMenu = new ListMenu(u"yzdlst"_s, m_ui->l2, this);
    queueMenu->add(m_ui->printSelected, u"yzdsec"_s);
    queueMenu->add(m_ui->printAll, u"yzdtum"_s);
    queueMenu->add(m_ui->chooseLayout);
    queueMenu->addSeparator();
    queueMenu->add(m_ui->removeOne);
    queueMenu->add(m_ui->clearQueue);
    queueMenu->addOrders();
    auto *menu = new QueueMenu(m_desk, this);
    m_ui->queueMenu->setMenu(menu);
    connect(menu, &QueueMenu::importWanted, this, &stkkart::chooseImport);
    connect(menu, &QueueMenu::savedQueuesWanted, this, &stkkart::savedQueuesWanted);
}

void stkkart::connectSearches()
{
    for (SearchBox *box : {m_ui->Text1, m_ui->Text4, m_ui->Text3}) {
        connect(box, &SearchBox::searched, this, [this, box] { m_lastSearch = box; });
        connect(box, &SearchBox::left, m_ui->l1, &ListView::enterAtTop);
    }
    StockLoader &loader = m_desk.loader();
    connect(m_ui->Text1, &SearchBox::searched, &loader, &StockLoader::stkcinsibul);
    connect(m_ui->Text4, &SearchBox::searched, &loader, &StockLoader::stkkodbul);
    connect(m_ui->Text3, &SearchBox::searched, &loader, &StockLoader::brkdbul);
    connect(m_ui->listAll, &QPushButton::clicked, &loader, &StockLoader::listele);
    connect(m_ui->fatura, &QPushButton::clicked, this, &stkkart::faturaWanted);
    connect(m_ui->fytdegisbul, &QPushButton::clicked, this, &stkkart::fytdegisbulWanted);
    connect(m_ui->tasarim, &QPushButton::clicked, this, &stkkart::designWanted);

    const auto onOption = [&](QAbstractButton *option, UnitChoice units) {
        connect(option, &QAbstractButton::clicked, &loader,
                [&loader, units] { loader.setUnits(units); });
    };
    onOption(m_ui->Option1, UnitChoice::first);
    onOption(m_ui->Option2, UnitChoice::second);
    onOption(m_ui->Option3, UnitChoice::both);
    loader.setUnits(UnitChoice::first);
}

void stkkart::connectQueue()
{
    connect(m_ui->scan, &QPushButton::clicked, &m_desk, &LabelDesk::startScan);
    connect(m_ui->addOne, &QPushButton::clicked, this,
            [this] { m_desk.addRows(m_ui->l1->selectedRows()); });
    connect(m_ui->l1, &QTreeView::doubleClicked, m_ui->addOne, &QPushButton::click);
    connect(m_ui->ekbr1, &QPushButton::clicked, &m_desk, &LabelDesk::ekbr1);
    connect(m_ui->ekbr2, &QPushButton::clicked, &m_desk, &LabelDesk::ekbr2);
    connect(m_ui->ektm, &QPushButton::clicked, &m_desk, &LabelDesk::ektm);

    const auto setOne = [this] { m_desk.setCounts(m_ui->l2->selectedRows(), m_ui->adet->text()); };
    const auto setAll = [this] { m_desk.setAllCounts(m_ui->Text2->text()); };
    connect(m_ui->adet, &QLineEdit::returnPressed, this, setOne);
    connect(m_ui->Text2, &QLineEdit::returnPressed, this, setAll);
    connect(m_ui->setAllCounts, &QPushButton::clicked, this, setAll);
    connect(m_ui->removeOne, &QPushButton::clicked, this, &stkkart::removeSelected);
    connect(m_ui->clearQueue, &QPushButton::clicked, &m_desk, &LabelDesk::clearQueue);
    connect(m_ui->printAll, &QPushButton::clicked, &m_desk, &LabelDesk::yzdtum);
    connect(m_ui->chooseLayout, &QPushButton::clicked, &m_desk, &LabelDesk::chooseLayout);
    connect(m_ui->printSelected, &QPushButton::clicked, this,
            [this] { m_desk.yzdsec(m_ui->l2->selectedRows()); });
    connect(m_ui->l2->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &stkkart::showCount);
    connect(&m_desk.queue(), &PrintQueue::modelReset, this, &stkkart::showCount);
}

void stkkart::connectDesk()
{
    connect(&m_desk, &LabelDesk::busyChanged, this, &stkkart::showCommands);
    m_ui->statusBar->watch(m_desk);
    connect(&m_desk, &LabelDesk::rowsQueued, m_ui->l2, &ListView::selectRows);
    connect(&m_desk, &LabelDesk::rowPrinting, m_ui->l2, &ListView::markRow);
    connect(&m_desk, &LabelDesk::rowWanted, this, [this](int row) {
        m_ui->l2->selectRow(row);
        m_ui->l2->setFocus();
    });
    connect(&m_desk, &LabelDesk::countSet, this, &stkkart::showCount);
    connect(&m_desk, &LabelDesk::importReported, this, [this](const QString &problems) {
        auto *report = new TextReport(u"Dosyadan Ekle"_s,
                                      u"Bu satırlardan etiket çıkmadı; öbürleri kuyruğa eklendi."_s,
                                      problems, this);
        report->setAttribute(Qt::WA_DeleteOnClose);
        report->open();
    });
    connect(&m_desk, &LabelDesk::allCountsSet, this, [this] {
        m_ui->Text2->setText(u"1"_s);
        m_ui->Text2->selectAll();
        showCount();
    });
}

/// While stocks are being numbered, the commands of numbering stand where those of printing do.
void stkkart::connectNumbers()
{
    NumberDesk &numbers = m_desk.numbers();
    m_ui->barkodsuz->setMenu(new GatherMenu(m_desk, this));
    connect(m_ui->brkdurt, &QPushButton::clicked, &numbers, &NumberDesk::brkdurt);
    connect(m_ui->brgnc, &QPushButton::clicked, &numbers, &NumberDesk::brgnc);
    connect(&numbers, &NumberDesk::rowRefused, m_ui->l2, &ListView::selectRow);
    connect(&numbers, &NumberDesk::modeChanged, this, &stkkart::showCommands);
    connect(&numbers, &NumberDesk::summaryChanged, m_ui->numberSummary, &QLabel::setText);
    m_ui->numberSummary->setText(numbers.summary());
    showCommands();
}

void stkkart::connectKeys()
{
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        onKey(m_ui->l1, key, [this] { m_ui->addOne->click(); });
        onKey(m_ui->l2, key, [this] { m_ui->adet->setFocus(Qt::ShortcutFocusReason); });
    }
    onKey(m_ui->l2, Qt::Key_Delete, [this] { m_ui->removeOne->click(); });
    onKey(m_ui->l2, Qt::CTRL | Qt::Key_Delete, [this] { m_ui->clearQueue->click(); });
    onKey(m_ui->adet, Qt::Key_Up, [this] { moveInQueue(-1); });
    onKey(m_ui->adet, Qt::Key_Down, [this] { moveInQueue(1); });

    onKey(this, Qt::Key_F2, [this] { m_ui->scan->click(); });
    onKey(this, Qt::Key_F3, [this] { m_ui->Text1->enter(); });
    onKey(this, Qt::Key_F4, [this] { m_ui->Text4->enter(); });
    onKey(this, Qt::Key_F5, [this] { m_ui->Text3->enter(); });
    onKey(this, Qt::Key_F7, [this] { m_ui->l1->enter(); });
    onKey(this, Qt::Key_F8, [this] { m_ui->l2->enter(); });
    // A button's own shortcut would press it a tenth of a second late, to show it going down.
    const std::pair<QKeySequence, QAbstractButton *> commands[] = {
        {Qt::Key_F6, m_ui->listAll},
        {Qt::CTRL | Qt::Key_F, m_ui->fatura},
        {Qt::CTRL | Qt::Key_D, m_ui->fytdegisbul},
        {Qt::CTRL | Qt::Key_T, m_ui->tasarim},
        {Qt::Key_F9, m_ui->printAll},
        {Qt::SHIFT | Qt::Key_F9, m_ui->printSelected},
        {Qt::CTRL | Qt::Key_F9, m_ui->chooseLayout},
        {Qt::Key_F11, m_ui->brkdurt},
        {Qt::Key_F12, m_ui->brgnc},
        {Qt::CTRL | Qt::Key_1, m_ui->ekbr1},
        {Qt::CTRL | Qt::Key_2, m_ui->ekbr2},
        {Qt::CTRL | Qt::Key_3, m_ui->ektm},
    };
    for (const auto &[keys, button] : commands)
        onKey(this, keys, [pressed = button] { pressed->click(); });
    onKey(this, Qt::Key_Escape, [this] { leave(); });
}

void stkkart::chooseImport()
{
    auto *chooser = new QFileDialog(this, u"Kod ve adet dosyası"_s, {},
                                    u"Kod ve adet (*.csv *.txt);;Bütün dosyalar (*)"_s);
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setFileMode(QFileDialog::ExistingFile);
    connect(chooser, &QFileDialog::fileSelected, &m_desk, &LabelDesk::importCounts,
            Qt::QueuedConnection);
    chooser->open();
}

/// The row that takes the place of the first one removed is the next to be worked on.
void stkkart::removeSelected()
{
    const QList<int> rows = m_ui->l2->selectedRows();
    m_desk.removeRows(rows);
    if (!rows.isEmpty() && m_ui->l2->selectedRow() < 0)
        m_ui->l2->selectRow(std::min(rows.first(), m_desk.queue().size() - 1));
}

void stkkart::moveInQueue(int rows)
{
    const int row = m_ui->l2->selectedRow() + rows;
    if (m_desk.queue().isValidRow(row))
        m_ui->l2->selectRow(row);
    m_ui->adet->selectAll();
}

/// Escape: stops what runs, else goes back to where the user was searching.
void stkkart::leave()
{
    if (m_desk.isBusy())
        m_desk.stop();
    else
        m_lastSearch->enter();
}

/// The count of the selected rows; nothing where they differ.
void stkkart::showCount()
{
    QString shown;
    const QList<int> rows = m_ui->l2->selectedRows();
    const auto countOf = [this](int row) { return m_desk.queue().at(row).count; };
    const bool same = std::all_of(rows.cbegin(), rows.cend(),
                                  [&](int row) { return countOf(row) == countOf(rows.first()); });
    if (!rows.isEmpty() && same)
        shown = QString::number(countOf(rows.first()));
    m_ui->adet->setText(shown);
    m_ui->adet->selectAll();
}

void stkkart::showCommands()
{
    using Commands = std::initializer_list<QWidget *>;
    const Commands adding = {m_ui->scan, m_ui->addOne, m_ui->ekbr1, m_ui->ekbr2, m_ui->ektm};
    const Commands printing = {m_ui->printSelected, m_ui->chooseLayout, m_ui->printAll};
    const Commands numbering = {m_ui->brkdurt, m_ui->brgnc};
    const bool on = m_desk.numbers().isOn();
    for (QWidget *command : adding)
        command->setEnabled(m_desk.isFree());
    for (QWidget *command : printing) {
        command->setEnabled(m_desk.isFree());
        command->setHidden(on);
    }
    for (QWidget *command : numbering) {
        command->setEnabled(on && !m_desk.isBusy());
        command->setVisible(on);
    }
}

void stkkart::unload()
{
    m_agreed = true;
    close();
}

void stkkart::closeEvent(QCloseEvent *event)
{
    if (!m_agreed && !m_desk.mayClose()) {
        event->ignore();
        return;
    }
    m_desk.saveWidths(m_ui->l1->widths(), m_ui->l2->widths());
    m_desk.stop();
    QMainWindow::closeEvent(event);
}
