#include "sales/forms/sale_page.h"

#include "sales/forms/amount_validator.h"
#include "sales/till_session.h"
#include "ui_sale_page.h"

#include <numeric>

using namespace Qt::StringLiterals;

namespace {

/// Width of each column before the shop changed it, in digits of the list's font.
constexpr std::array<double, kSaleColumns> kPlainDigits = {13.5, 8, 18, 5, 6, 9, 6, 9.5, 7.5, 9.5};
constexpr int kCellPadding = 8; ///< pixels beside a cell's text
constexpr int kNameColumn = static_cast<int>(SaleColumn::name) - 1;
constexpr int kLeastName = 260; ///< pixels

/// What a narrow window does without, first to go first.
constexpr std::array kDispensable = {SaleColumn::stockCode, SaleColumn::unit,
                                     SaleColumn::barcode,   SaleColumn::vatRate,
                                     SaleColumn::discount,  SaleColumn::amount};

/// Type sizes of the totals panel in points: figures, cash box, large figures.
struct PanelSizes
{
    double figure;
    double cash;
    double large;
};
constexpr PanelSizes kTall = {17, 24, 36};
constexpr PanelSizes kLow = {13, 17, 26};
constexpr int kTallPanel = 440; ///< pixels; a lower panel takes the smaller sizes

void setPoints(QWidget &widget, double points)
{
    QFont font = widget.font();
    font.setPointSizeF(points);
    widget.setFont(font);
}

constexpr int kRowPadding = 10; ///< pixels above and below a row's text together

} // namespace

SalePage::SalePage(TillSession &session, int number, QWidget *parent)
    : QWidget(parent), m_session(session), m_number(number), m_ui(std::make_unique<Ui::SalePage>())
{
    m_ui->setupUi(this);
    m_ui->l->setModel(&session.list(number));
    m_ui->nkit->setValidator(new AmountValidator(this));
    m_ui->l->viewport()->installEventFilter(this);
    m_ui->l->horizontalHeader()->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
    nameControls(number == 0 ? u"1"_s : u"1%1"_s.arg(number == 1 ? 1 : 3));

    const auto forThis = [this](auto &&show) {
        return [this, show](int changed) {
            if (changed == m_number)
                show();
        };
    };
    connect(&session, &TillSession::totalsChanged, this, forThis([this] { showTotals(); }));
    connect(&session, &TillSession::cashChanged, this, forThis([this] { showCash(); }));
    connect(&session, &TillSession::currentRowChanged, this, [this](int changed, int row) {
        if (changed == m_number)
            showCurrentRow(row);
    });
    connect(m_ui->nkit, &QLineEdit::textEdited, this,
            [this](const QString &text) { m_session.setCash(m_number, text); });
    connect(m_ui->l, &QTableView::clicked, this, [this](const QModelIndex &index) {
        m_session.selectRow(m_number, index.row());
        Q_EMIT clicked();
    });
    showTotals();
    showCash();
}

SalePage::~SalePage() = default;

void SalePage::nameControls(const QString &suffix)
{
    for (QWidget *control :
         std::initializer_list<QWidget *>{m_ui->l, m_ui->sttop, m_ui->indtop, m_ui->kdvtop,
                                          m_ui->gentop, m_ui->nkit, m_ui->prust})
        control->setObjectName(control->objectName() + suffix);
}

QTableView &SalePage::list() const
{
    return *m_ui->l;
}

QLineEdit &SalePage::cashBox() const
{
    return *m_ui->nkit;
}

void SalePage::setLook(const ListLook &look)
{
    QPalette palette = m_ui->l->palette();
    palette.setColor(QPalette::Base, look.row);
    palette.setColor(QPalette::AlternateBase, look.alternate);
    palette.setColor(QPalette::Text, look.text);
    // The current line stays marked although the entry box has the focus.
    for (const QPalette::ColorRole role : {QPalette::Highlight, QPalette::HighlightedText})
        palette.setColor(QPalette::Inactive, role, palette.color(QPalette::Active, role));
    m_ui->l->setPalette(palette);
    m_ui->l->setFont(look.font);
    m_ui->l->verticalHeader()->setDefaultSectionSize(QFontMetrics(look.font).height() +
                                                     kRowPadding);
}

QList<int> SalePage::columnWidths() const
{
    QList<int> widths = m_widths;
    for (int column = 0; column < widths.size(); ++column)
        if (!m_ui->l->isColumnHidden(column))
            widths[column] = m_ui->l->columnWidth(column);
    return widths;
}

void SalePage::setColumnWidths(const QList<int> &widths)
{
    m_widths = widths;
    if (m_widths.isEmpty())
        for (const double digits : kPlainDigits)
            m_widths +=
                qRound(digits * m_ui->l->fontMetrics().horizontalAdvance(u'0')) + kCellPadding;
    for (int column = 0; column < kSaleColumns; ++column)
        m_ui->l->setColumnWidth(column, m_widths.at(column));
    fitColumns();
}

/// The name takes what the other columns leave; when that is too little, columns go until it fits.
void SalePage::fitColumns()
{
    m_widths = columnWidths();
    if (m_widths.isEmpty())
        return;
    int needed = std::accumulate(m_widths.cbegin(), m_widths.cend(), 0) - m_widths.at(kNameColumn) +
                 kLeastName;
    for (const SaleColumn dispensable : kDispensable) {
        const int column = static_cast<int>(dispensable) - 1;
        const bool hide = needed > m_ui->l->viewport()->width();
        if (hide)
            needed -= m_widths.at(column);
        if (hide != m_ui->l->isColumnHidden(column))
            m_ui->l->setColumnHidden(column, hide);
    }
}

void SalePage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const PanelSizes &sizes = height() < kTallPanel ? kLow : kTall;
    for (QLabel *figure : {m_ui->sttop, m_ui->indtop, m_ui->kdvtop})
        setPoints(*figure, sizes.figure);
    setPoints(*m_ui->nkit, sizes.cash);
    setPoints(*m_ui->gentop, sizes.large);
    setPoints(*m_ui->prust, sizes.large);
}

bool SalePage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        fitColumns();
    return QWidget::eventFilter(watched, event);
}

void SalePage::showTotals()
{
    const pricing::Totals &totals = m_session.totals(m_number);
    m_ui->sttop->setText(totals.gross);
    m_ui->indtop->setText(totals.discount);
    m_ui->kdvtop->setText(totals.vat);
    m_ui->gentop->setText(totals.grand);
}

void SalePage::showCash()
{
    const QString &cash = m_session.cash(m_number);
    if (m_ui->nkit->text() != cash)
        m_ui->nkit->setText(cash);
    m_ui->prust->setText(m_session.change(m_number));
}

void SalePage::showCurrentRow(int row)
{
    if (row < 0) {
        m_ui->l->clearSelection();
        return;
    }
    m_ui->l->selectRow(row);
    m_ui->l->scrollTo(m_ui->l->model()->index(row, 0));
}
