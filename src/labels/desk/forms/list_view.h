#pragma once

#include <QTreeView>

/// A list of the label form: whole rows, several may be selected, columns that keep their widths.
class ListView final : public QTreeView
{
    Q_OBJECT

public:
    explicit ListView(QWidget *parent = nullptr);

    /// In their order; empty when none is selected.
    QList<int> selectedRows() const;
    /// The selected row the user is at, −1 when there is none.
    int selectedRow() const;
    /// Selects and shows a row; rows that are not there select nothing.
    void selectRow(int row);
    /// Selects rows and shows the last of them.
    void selectRows(const QList<int> &rows);
    /// Shows a row; selects it unless it is one of those selected. Rows that are not there do
    /// nothing.
    void markRow(int row);
    /// Takes the focus, with a row selected if there is one.
    void enter();
    /// Takes the focus, with the first row selected.
    void enterAtTop();

    /// A list that is filled anew shows its start.
    void reset() override;

    QList<int> widths() const;
    /// Widths in pixels: the kept ones, or else the usual ones. `wideColumn` takes all the room
    /// that is left, whatever was kept of it: the next screen may be narrower.
    void setWidths(const QList<int> &kept, const QList<int> &usual, int wideColumn);

protected:
    /// The list with the focus shows its selection in full colour, the other one pale.
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};
