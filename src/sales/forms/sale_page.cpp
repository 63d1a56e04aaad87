#include "sales/forms/sale_page.h"

#include "sales/forms/amount_validator.h"
#include "sales/forms/sale_columns.h"
#include "sales/till_session.h"
#include "ui_sale_page.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Type of the totals panel in points, on a panel of the usual size; it grows and shrinks with it.
constexpr double kCaptionPoints = 13;
constexpr double kFigurePoints = 17;
constexpr double kCashPoints = 24;
constexpr QSizeF kUsualPanel(420, 580); ///< pixels
constexpr double kLeastGrowth = 0.72;
constexpr double kMostGrowth = 2.2;
constexpr double kPanelShare = 0.31; ///< of the page's width; the list wants the rest for its names
constexpr int kLeastPanel = 290;     ///< pixels

/// The total is read from two metres on every screen: as large as this stands in the panel, and no
/// taller than this part of it.
const QString kUsualTotal = u"88.888,88"_s;
constexpr double kTotalHeight = 0.115;

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
    m_columns = new SaleColumns(*m_ui->l);
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
    const auto onClick = [this](QPushButton *button, auto &&action) {
        connect(button, &QPushButton::clicked, this, [this, action] {
            action();
            Q_EMIT clicked();
        });
    };
    onClick(m_ui->exact, [this] { m_session.payExactly(); });
    onClick(m_ui->card, [this] { m_session.togglePayment(); });
    for (QPushButton *note : {m_ui->note50, m_ui->note100, m_ui->note200})
        onClick(note, [this, lira = note->text().section(u'\n', 0, 0).toInt()] {
            m_session.addBanknote(lira);
        });
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
    m_columns->fontChanged();
}

QList<int> SalePage::columnWidths() const
{
    return m_columns->widths();
}

void SalePage::setColumnWidths(const QList<int> &widths)
{
    m_columns->setWidths(widths);
}

void SalePage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const int panel = std::max(qRound(width() * kPanelShare), kLeastPanel);
    m_ui->totalsFrame->setFixedWidth(panel);
    const double room = std::min(panel / kUsualPanel.width(), height() / kUsualPanel.height());
    const double growth = std::clamp(room, kLeastGrowth, kMostGrowth);
    for (QLabel *caption : {m_ui->grandLabel, m_ui->cashLabel, m_ui->changeLabel})
        setPoints(*caption, kCaptionPoints * std::max(growth, 0.9));
    for (QLabel *figure : {m_ui->sttop, m_ui->indtop, m_ui->kdvtop})
        setPoints(*figure, kFigurePoints * growth);
    setPoints(*m_ui->nkit, kCashPoints * growth);
    fitTotals();
}

void SalePage::fitTotals()
{
    const QMargins margins = m_ui->totalsColumn->contentsMargins();
    const int room = m_ui->totalsFrame->maximumWidth() - margins.left() - margins.right() - 4;
    for (QLabel *total : {m_ui->gentop, m_ui->prust}) {
        QFont font = total->font();
        font.setPixelSize(100);
        const QFontMetrics metrics(font);
        const int text = std::max(metrics.horizontalAdvance(total->text()),
                                  metrics.horizontalAdvance(kUsualTotal));
        font.setPixelSize(std::min(qRound(height() * kTotalHeight), 100 * room / text));
        total->setFont(font);
    }
}

void SalePage::showTotals()
{
    const pricing::Totals &totals = m_session.totals(m_number);
    m_ui->sttop->setText(totals.gross);
    m_ui->indtop->setText(totals.discount);
    m_ui->kdvtop->setText(totals.vat);
    m_ui->gentop->setText(totals.grand);
    fitTotals();
}

void SalePage::showCash()
{
    const QString &cash = m_session.cash(m_number);
    if (m_ui->nkit->text() != cash)
        m_ui->nkit->setText(cash);
    m_ui->prust->setText(m_session.change(m_number));
    const bool card = m_session.payment(m_number) == Payment::card;
    m_ui->card->setChecked(card);
    m_ui->cashLabel->setText(card ? u"KART İLE"_s : u"NAKİT  (F6)"_s);
    // The customer's change stands until the next one is served, with the total it belongs to.
    const QString &posted = m_session.postedTotal(m_number);
    m_ui->changeLabel->setText(posted.isEmpty() ? u"PARA ÜSTÜ"_s
                                                : u"PARA ÜSTÜ   (satış %1)"_s.arg(posted));
    fitTotals();
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
