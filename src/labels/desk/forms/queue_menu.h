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

Q_SIGNALS:
    /// A file of codes and counts is to be chosen.
    void importWanted();
    /// Queues are to be saved, or opened, by name.
    void savedQueuesWanted();

private:
    QAction *add(const QString &name, const QString &text, const QKeySequence &keys);
};
