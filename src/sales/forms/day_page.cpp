#include "sales/forms/day_page.h"

#include "sales/journal/kurus.h"
#include "ui_day_page.h"

#include <QCalendarWidget>
#include <QFileDialog>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

DayPage::DayPage(DayEnd &day, QWidget *parent)
    : QWidget(parent), m_day(day), m_ui(std::make_unique<Ui::DayPage>())
{
    m_ui->setupUi(this);
    setFocusProxy(m_ui->from);
    connect(&m_day, &DayEnd::changed, this, &DayPage::showReport);
    connect(m_ui->todayButton, &QPushButton::clicked, this,
            [this] { showDays(m_day.today(), m_day.today()); });
    connect(m_ui->yesterdayButton, &QPushButton::clicked, this, [this] {
        const QDate yesterday = m_day.today().addDays(-1);
        showDays(yesterday, yesterday);
    });
    connect(m_ui->monthButton, &QPushButton::clicked, this, [this] {
        const QDate today = m_day.today();
        showDays(QDate(today.year(), today.month(), 1), today);
    });
    for (QDateEdit *date : {m_ui->from, m_ui->to}) {
        date->calendarWidget()->setDateEditEnabled(false); // they are typed in their box
        date->setKeyboardTracking(false);                  // and read when they are typed whole
    }
    connect(m_ui->from, &QDateEdit::dateChanged, this, &DayPage::readDays);
    connect(m_ui->to, &QDateEdit::dateChanged, this, &DayPage::readDays);
    connect(m_ui->counted, &QLineEdit::textChanged, this, &DayPage::showCounted);
    connect(m_ui->compareButton, &QPushButton::clicked, this, &DayPage::compare);
    connect(&m_day, &DayEnd::comparing, this, [this](QDate at) {
        m_ui->compared->setText(
            u"Karşılaştırılıyor: %1 (Esc durdurur)"_s.arg(at.toString(u"dd.MM.yyyy"_s)));
    });
    connect(m_ui->printButton, &QPushButton::clicked, this, [this] {
        readTyped();
        m_day.print();
    });
    connect(m_ui->pdfButton, &QPushButton::clicked, this, [this] {
        if (const QString path = askPath(u"pdf"_s, u"PDF dosyası (*.pdf)"_s); !path.isEmpty())
            m_day.savePdf(path);
    });
    connect(m_ui->csvButton, &QPushButton::clicked, this, [this] {
        if (const QString path = askPath(u"csv"_s, u"CSV dosyası (*.csv)"_s); !path.isEmpty())
            m_day.saveCsv(path);
    });
}

DayPage::~DayPage() = default;

void DayPage::load()
{
    showDays(m_day.today(), m_day.today());
}

void DayPage::showDays(QDate from, QDate to)
{
    {
        const QSignalBlocker quiet(m_ui->from);
        const QSignalBlocker still(m_ui->to);
        m_ui->from->setDate(from);
        m_ui->to->setDate(to);
    }
    readDays();
}

void DayPage::readDays()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor); // a year takes a second
    m_day.read(m_ui->from->date(), m_ui->to->date());
    QGuiApplication::restoreOverrideCursor();
}

/// A button may be pressed by its letter while a day is being typed.
void DayPage::readTyped()
{
    m_ui->from->interpretText();
    m_ui->to->interpretText();
}

void DayPage::compare()
{
    if (stop())
        return;
    readTyped();
    setBusy(true);
    m_day.compare();
    setBusy(false);
}

bool DayPage::stop()
{
    if (!m_day.isComparing())
        return false;
    m_day.stop();
    return true;
}

void DayPage::hideEvent(QHideEvent *event)
{
    stop();
    QWidget::hideEvent(event);
}

void DayPage::setBusy(bool busy)
{
    for (QWidget *control : std::initializer_list<QWidget *>{
             m_ui->from, m_ui->to, m_ui->todayButton, m_ui->yesterdayButton, m_ui->monthButton,
             m_ui->printButton, m_ui->pdfButton, m_ui->csvButton})
        control->setEnabled(!busy);
    m_ui->compareButton->setText(busy ? u"Durdur"_s : u"&Muhasebeyle karşılaştır"_s);
    if (busy)
        m_ui->compareButton->setFocus();
    Q_EMIT busyChanged(busy);
}

void DayPage::showReport()
{
    const DayFigures &figures = m_day.report().figures;
    QTableWidget &table = *m_ui->figures;
    const std::vector<day_report::Row> captions = day_report::rows(figures.all, figures.all.rates);
    const int columns = static_cast<int>(figures.cashiers.size()) + 1;
    table.setRowCount(static_cast<int>(captions.size()));
    table.setColumnCount(columns);
    for (int column = 0; column < columns; ++column) {
        const CashierFigures &one =
            column == 0 ? figures.all : figures.cashiers[static_cast<std::size_t>(column) - 1];
        table.setHorizontalHeaderItem(
            column, new QTableWidgetItem(day_report::columnName(one, column == 0)));
        const std::vector<day_report::Row> rows = day_report::rows(one, figures.all.rates);
        for (int row = 0; row < table.rowCount(); ++row) {
            auto *item = new QTableWidgetItem(rows[static_cast<std::size_t>(row)].value);
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            table.setItem(row, column, item);
        }
    }
    for (int row = 0; row < table.rowCount(); ++row)
        table.setVerticalHeaderItem(
            row, new QTableWidgetItem(captions[static_cast<std::size_t>(row)].caption));
    table.resizeColumnsToContents();
    for (int column = 0; column < columns; ++column) // room beside the figures
        table.setColumnWidth(column, table.columnWidth(column) + 16);
    m_ui->hours->show(figures.all.hours);
    m_ui->differences->clear();
    m_ui->differences->addItems(m_day.report().differences);
    m_ui->differences->setVisible(!m_day.report().differences.isEmpty());
    m_ui->compared->setText(!m_day.report().compared               ? QString()
                            : m_day.report().differences.isEmpty() ? u"Muhasebeyle fark yok."_s
                                                                   : u"Muhasebeyle farklar:"_s);
    showCounted();
}

void DayPage::showCounted()
{
    if (!m_day.setCounted(m_ui->counted->text()))
        m_ui->over->setText(u"Tutar okunamadı."_s);
    else if (!m_day.report().counted)
        m_ui->over->clear();
    else
        m_ui->over->setText(u"Fark: %1"_s.arg(kurus::text(m_day.report().over())));
}

QString DayPage::askPath(const QString &ending, const QString &kind)
{
    readTyped();
    const DayFigures &figures = m_day.report().figures;
    QString days = figures.from.toString(Qt::ISODate);
    if (figures.to != figures.from)
        days += u'_' + figures.to.toString(Qt::ISODate);
    const QString name = u"gun-sonu-%1.%2"_s.arg(days, ending);
    return QFileDialog::getSaveFileName(this, u"Gün sonunu kaydet"_s, name, kind);
}
