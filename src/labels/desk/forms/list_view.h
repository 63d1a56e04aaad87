#pragma once

#include <QTreeView>

#include <functional>

class ListFinder;

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

    /// Lets the user find rows by typing. `find(text, from, step)`: the next row from `from` on, −1
    /// when there is none.
    using Find = std::function<int(const QString &text, int from, int step)>;
    void makeSearchable(const Find &find);
    int findRow(const QString &text, int from, int step) const { return m_find(text, from, step); }
    void keyboardSearch(const QString &text) override;
    /// Lets the user sort by a click on a column's caption.
    void makeSortable();
    /// Asks for the order of a column and stays at its row.
    void sortBy(int column);

    QList<int> widths() const;
    /// Widths in pixels: the kept ones, or else the usual ones. `wideColumn` takes all the room
    /// that is left, whatever was kept of it: the next screen may be narrower.
    void setWidths(const QList<int> &kept, const QList<int> &usual, int wideColumn);

Q_SIGNALS:
    void sortWanted(int column);

protected:
    void resizeEvent(QResizeEvent *event) override;
    /// The list with the focus shows its selection in full colour, the other one pale.
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    Find m_find;
    ListFinder *m_finder = nullptr;
};
