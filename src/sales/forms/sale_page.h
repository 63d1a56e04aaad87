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
    /// Pixels, also of columns that a narrow window leaves out. No widths: the plain ones.
    QList<int> columnWidths() const;
    void setColumnWidths(const QList<int> &widths);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void clicked(); ///< the list was clicked

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void fitColumns();
    void nameControls(const QString &suffix);
    void showTotals();
    void showCash();
    void showCurrentRow(int row);

    TillSession &m_session;
    int m_number;
    QList<int> m_widths;
    std::unique_ptr<Ui::SalePage> m_ui;
};
