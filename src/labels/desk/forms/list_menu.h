#pragma once

#include <QMenu>

QT_BEGIN_NAMESPACE
class QAbstractButton;
QT_END_NAMESPACE

class ListView;

/// The menu of a list: entries that do what buttons do. It opens on the right mouse button while
/// the list has rows.
class ListMenu final : public QMenu
{
    Q_OBJECT

public:
    ListMenu(const QString &name, ListView *list, QWidget *parent);

    /// An entry that does what a button does, while the button may be pressed.
    void add(QAbstractButton *button, const QString &name = {});
    /// Entries that sort the list as a click on a column's caption does, for hands without a mouse.
    void addOrders();

private:
    ListView &m_list;
};
