#pragma once

#include "sales/list_look.h"

#include <QWidget>

#include <memory>

class TillSession;

QT_BEGIN_NAMESPACE
class QLineEdit;
class QTableView;
QT_END_NAMESPACE

namespace Ui {
class sale_page;
}

/// One sale list with its totals panel. Its controls bear the suffix of the list: `l1`, `sttop1` …
/// for the first, `l11` … for the second, `l13` … for the third.
class sale_page final : public QWidget
{
    Q_OBJECT

public:
    sale_page(TillSession &session, int number, QWidget *parent = nullptr);
    ~sale_page() override;

    QTableView &list() const;
    QLineEdit &cashBox() const;

    void setLook(const ListLook &look);
    QList<int> columnWidths() const;
    void setColumnWidths(const QList<int> &widths);

Q_SIGNALS:
    void clicked(); ///< the list was clicked

private:
    void nameControls(const QString &suffix);
    void showTotals();
    void showCash();
    void showCurrentRow(int row);

    TillSession &m_session;
    int m_number;
    std::unique_ptr<Ui::sale_page> m_ui;
};
