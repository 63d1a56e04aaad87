#pragma once

#include <QTabBar>

/// The tabs of the sale lists. A dot marks a list that holds goods, so that a parked customer is
/// not forgotten; the other tabs keep the room for it.
class SaleTabs final : public QTabBar
{
    Q_OBJECT

public:
    using QTabBar::QTabBar;

    void addList(const QString &caption, const QString &key);
    void mark(int number, bool goods);
};
