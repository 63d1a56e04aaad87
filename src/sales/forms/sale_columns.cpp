#include "sales/forms/sale_columns.h"

#include "sales/forms/name_delegate.h"

#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableView>

#include <algorithm>

namespace {

/// Width of each column before the shop changed it, in digits of the list's font.
constexpr std::array<double, kSaleColumns> kPlainDigits = {13.5, 8, 18, 5, 6, 9, 6, 9.5, 7.5, 9.5};
constexpr int kCellPadding = 8; ///< pixels beside a cell's text
constexpr int kName = static_cast<int>(SaleColumn::name) - 1;
constexpr int kEasyName = 200;  ///< pixels; below it, other columns give way
constexpr int kLeastName = 100; ///< pixels

/// What a narrow window does without, first to go first.
constexpr std::array kDispensable = {static_cast<int>(SaleColumn::stockCode) - 1,
                                     static_cast<int>(SaleColumn::barcode) - 1,
                                     static_cast<int>(SaleColumn::unit) - 1};

bool isFigure(int column)
{
    const auto which = static_cast<SaleColumn>(column + 1);
    return which == SaleColumn::vatRate || which >= SaleColumn::price;
}

} // namespace

SaleColumns::SaleColumns(QTableView &view) : QObject(&view), m_view(view)
{
    const QAbstractItemModel *model = view.model();
    connect(model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &, int first, int last) { measure(first, last); });
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &first, const QModelIndex &last) {
                measure(first.row(), last.row());
            });
    connect(model, &QAbstractItemModel::modelReset, this, &SaleColumns::fontChanged);
    connect(view.horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { userResized(column, width); });
    view.setItemDelegateForColumn(kName, new NameDelegate(&view));
    view.viewport()->installEventFilter(this);
}

int SaleColumns::plainWidth(int column) const
{
    const double digits = kPlainDigits.at(static_cast<std::size_t>(column));
    return qRound(digits * m_view.fontMetrics().horizontalAdvance(u'0')) + kCellPadding;
}

void SaleColumns::setWidths(const QList<int> &widths)
{
    m_wanted = widths;
    for (int column = 0; m_wanted.size() < kSaleColumns; ++column)
        m_wanted += plainWidth(column);
    fontChanged();
}

QList<int> SaleColumns::widths() const
{
    QList<int> widths = m_wanted;
    if (!widths.isEmpty())
        widths[kName] = m_view.columnWidth(kName);
    return widths;
}

void SaleColumns::fontChanged()
{
    for (int column = 0; column < kSaleColumns; ++column)
        m_needed.at(static_cast<std::size_t>(column)) =
            m_view.horizontalHeader()->sectionSizeHint(column);
    measure(0, m_view.model()->rowCount() - 1);
}

void SaleColumns::measure(int firstRow, int lastRow)
{
    const QFontMetrics metrics = m_view.fontMetrics();
    for (int row = firstRow; row <= lastRow; ++row) {
        for (int column = 0; column < kSaleColumns; ++column) {
            if (!isFigure(column))
                continue;
            const QString text = m_view.model()->index(row, column).data().toString();
            int &needed = m_needed.at(static_cast<std::size_t>(column));
            needed = std::max(needed, metrics.horizontalAdvance(text) + 2 * kCellPadding);
        }
    }
    fit();
}

void SaleColumns::userResized(int column, int width)
{
    if (m_fitting || m_wanted.isEmpty() || width == 0)
        return;
    m_wanted[column] = width;
    fit();
}

/// What is left for the name.
int SaleColumns::room(const Widths &widths, const QList<int> &hidden) const
{
    int left = m_view.viewport()->width();
    for (int column = 0; column < kSaleColumns; ++column)
        if (column != kName && !hidden.contains(column))
            left -= widths.at(static_cast<std::size_t>(column));
    return left;
}

void SaleColumns::fit()
{
    if (m_wanted.isEmpty())
        return;
    Widths widths{};
    for (int column = 0; column < kSaleColumns; ++column) {
        const auto at = static_cast<std::size_t>(column);
        widths.at(at) =
            isFigure(column) ? std::max(m_wanted.at(column), m_needed.at(at)) : m_wanted.at(column);
    }
    // What the user widened is as the user wants it.
    const auto plain = [this](int column) { return m_wanted.at(column) <= plainWidth(column); };
    QList<int> hidden;
    const auto tight = [&] { return room(widths, hidden) < kEasyName; };
    const auto doWithout = [&](int column) {
        if (tight() && plain(column))
            hidden += column;
    };
    doWithout(kDispensable.front());
    for (int column = 0; column < kSaleColumns && tight(); ++column)
        if (isFigure(column) && plain(column))
            widths.at(static_cast<std::size_t>(column)) =
                m_needed.at(static_cast<std::size_t>(column));
    std::for_each(kDispensable.begin() + 1, kDispensable.end(), doWithout);
    widths.at(kName) = std::max(room(widths, hidden), kLeastName);

    const QScopedValueRollback fitting(m_fitting, true);
    for (int column = 0; column < kSaleColumns; ++column) {
        m_view.setColumnHidden(column, hidden.contains(column));
        if (!hidden.contains(column))
            m_view.setColumnWidth(column, widths.at(static_cast<std::size_t>(column)));
    }
}

bool SaleColumns::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        fit();
    return QObject::eventFilter(watched, event);
}
