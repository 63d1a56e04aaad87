#include "labels/desk/forms/list_view.h"

#include <QHeaderView>

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
    setSelectionMode(SingleSelection);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    setPalette(paleSelection());
}

int ListView::selectedRow() const
{
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void ListView::selectRow(int row)
{
    setCurrentIndex(model()->index(row, 0));
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
