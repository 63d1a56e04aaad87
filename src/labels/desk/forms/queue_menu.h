#pragma once

#include <QMenu>

class LabelDesk;

/// What can be done with the whole queue. The keys work everywhere in the parent's window.
class QueueMenu final : public QMenu
{
    Q_OBJECT

public:
    /// `desk` must outlive the menu.
    QueueMenu(LabelDesk &desk, QWidget *parent);
};
