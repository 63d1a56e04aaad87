#pragma once

#include <QStatusBar>

QT_BEGIN_NAMESPACE
class QLabel;
class QProgressBar;
QT_END_NAMESPACE

class LabelDesk;

/// The foot of the label form: the queue's labels in its first panel, what was done last, and how
/// far a search is.
class DeskStatusBar final : public QStatusBar
{
    Q_OBJECT

public:
    explicit DeskStatusBar(QWidget *parent = nullptr);

    /// Shows what this desk tells from now on.
    void watch(LabelDesk &desk);

private:
    void showTotal(qint64 labels);

    QLabel *m_total;
    QLabel *m_status;
    QProgressBar *m_progress;
    QLabel *m_stopHint;
};
