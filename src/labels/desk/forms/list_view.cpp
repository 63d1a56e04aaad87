#include "labels/desk/forms/list_view.h"

#include "labels/desk/forms/form_keys.h"
#include "labels/desk/forms/list_finder.h"

#include <QHeaderView>

#include <algorithm>

namespace {

QPalette paleSelection()
{
    QPalette palette;
    const QColor highlight = palette.color(QPalette::Highlight);
    const QColor base = palette.color(QPalette::Base);
    const auto mix = [](int strong, int weak) { return (strong + 3 * weak) / 4; };
    palette.setColor(QPalette::Highlight,
                     {mix(highlight.red(), base.red()), mix(highlight.green(), base.green()),
                      mix(highlight.blue(), base.blue())});
    palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
    return palette;
}

} // namespace

ListView::ListView(QWidget *parent) : QTreeView(parent)
{
    setContextMenuPolicy(Qt::CustomContextMenu);
    setAlternatingRowColors(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    setPalette(paleSelection());
}

QList<int> ListView::selectedRows() const
{
    QList<int> rows;
    for (const QModelIndex &index : selectionModel()->selectedRows())
        rows += index.row();
    std::sort(rows.begin(), rows.end());
    return rows;
}

int ListView::selectedRow() const
{
    if (!selectionModel()->hasSelection())
        return -1;
    const QModelIndex current = currentIndex();
    return selectionModel()->isRowSelected(current.row()) ? current.row()
                                                          : selectedRows().constFirst();
}

void ListView::selectRow(int row)
{
    setCurrentIndex(model()->index(row, 0));
}

void ListView::selectRows(const QList<int> &rows)
{
    if (rows.isEmpty())
        return;
    const int last = model()->columnCount() - 1;
    QItemSelection selection;
    for (qsizetype from = 0; from < rows.size();) { // neighbours together: there may be thousands
        qsizetype to = from;
        while (to + 1 < rows.size() && rows.at(to + 1) == rows.at(to) + 1)
            ++to;
        selection.select(model()->index(rows.at(from), 0), model()->index(rows.at(to), last));
        from = to + 1;
    }
    selectRow(rows.last());
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void ListView::markRow(int row)
{
    const QModelIndex index = model()->index(row, 0);
    if (!index.isValid())
        return;
    const bool selected = selectionModel()->isRowSelected(row);
    selectionModel()->setCurrentIndex(index, selected ? QItemSelectionModel::NoUpdate
                                                      : QItemSelectionModel::ClearAndSelect |
                                                            QItemSelectionModel::Rows);
}

void ListView::enter()
{
    setFocus(Qt::ShortcutFocusReason);
    if (selectedRow() < 0)
        selectRow(0);
}

void ListView::enterAtTop()
{
    setFocus(Qt::TabFocusReason);
    selectRow(0);
}

void ListView::reset()
{
    QTreeView::reset();
    scrollToTop();
}

void ListView::makeSearchable(const Find &find)
{
    m_find = find;
    m_finder = new ListFinder(*this);
    onKey(this, Qt::CTRL | Qt::Key_B, [this] { m_finder->start({}); });
}

void ListView::keyboardSearch(const QString &text)
{
    if (m_finder && !text.trimmed().isEmpty())
        m_finder->start(text);
}

void ListView::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    if (m_finder)
        m_finder->place();
}

void ListView::makeSortable()
{
    header()->setSectionsClickable(true);
    connect(header(), &QHeaderView::sectionClicked, this, &ListView::sortBy);
}

void ListView::sortBy(int column)
{
    Q_EMIT sortWanted(column);
    scrollTo(currentIndex()); // the row one was at goes elsewhere
}

QList<int> ListView::widths() const
{
    QList<int> widths;
    for (int column = 0; column < header()->count(); ++column)
        widths += header()->sectionSize(column);
    return widths;
}

void ListView::setWidths(const QList<int> &kept, const QList<int> &usual, int wideColumn)
{
    const QList<int> &widths = kept.isEmpty() ? usual : kept;
    for (int column = 0; column < widths.size(); ++column)
        header()->resizeSection(column, widths.at(column));
    header()->setSectionResizeMode(wideColumn, QHeaderView::Stretch);
}

void ListView::focusInEvent(QFocusEvent *event)
{
    setPalette({});
    QTreeView::focusInEvent(event);
}

void ListView::focusOutEvent(QFocusEvent *event)
{
    setPalette(paleSelection());
    QTreeView::focusOutEvent(event);
}
