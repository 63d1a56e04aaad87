#pragma once

#include "sales/list_look.h"

#include <QWidget>

#include <memory>

class SaleColumns;
class TillSession;

QT_BEGIN_NAMESPACE
class QLineEdit;
class QTableView;
QT_END_NAMESPACE

namespace Ui {
class SalePage;
}

/// One sale list with its totals panel. Its controls bear the suffix of the list: `l1`, `sttop1` …
/// for the first, `l11` … for the second, `l13` … for the third.
class SalePage final : public QWidget
{
    Q_OBJECT

public:
    SalePage(TillSession &session, int number, QWidget *parent = nullptr);
    ~SalePage() override;

    QTableView &list() const;
    QLineEdit &cashBox() const;

    void setLook(const ListLook &look);
    /// As SaleColumns has them.
    QList<int> columnWidths() const;
    void setColumnWidths(const QList<int> &widths);

Q_SIGNALS:
    void clicked(); ///< the list was clicked

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void nameControls(const QString &suffix);
    void fitTotals();
    void showTotals();
    void showCash();
    void showCurrentRow(int row);

    TillSession &m_session;
    int m_number;
    SaleColumns *m_columns;
    std::unique_ptr<Ui::SalePage> m_ui;
};
