#pragma once

#include "sales/sale_line.h"

#include <QList>
#include <QObject>

QT_BEGIN_NAMESPACE
class QTableView;
QT_END_NAMESPACE

/// Widths of a sale list's columns. A figure is never cut off: its column is as wide as the widest
/// figure in it. The name takes what the others leave; where that is too little, columns that the
/// till can do without go first, then the figures stand closer, and at last the list scrolls
/// sideways. A column that the user widened stays.
class SaleColumns final : public QObject
{
    Q_OBJECT

public:
    /// The view has its model.
    explicit SaleColumns(QTableView &view);

    /// Pixels. No widths: the plain ones.
    void setWidths(const QList<int> &widths);
    QList<int> widths() const;

    /// The view's font is another one.
    void fontChanged();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using Widths = std::array<int, kSaleColumns>;

    void measure(int firstRow, int lastRow);
    void userResized(int column, int width);
    void fit();
    int plainWidth(int column) const;
    int room(const Widths &widths, const QList<int> &hidden) const;

    QTableView &m_view;
    QList<int> m_wanted;
    Widths m_needed{}; ///< by the figures and captions, pixels
    bool m_fitting = false;
};
