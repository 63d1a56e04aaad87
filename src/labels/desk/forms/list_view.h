#pragma once

#include <QTreeView>

/// A list of the label form: whole rows, one selected, columns that keep their widths.
class ListView final : public QTreeView
{
    Q_OBJECT

public:
    explicit ListView(QWidget *parent = nullptr);

    /// −1 when none is selected.
    int selectedRow() const;
    /// Selects and shows a row; rows that are not there select nothing.
    void selectRow(int row);
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
