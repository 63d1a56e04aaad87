#pragma once

#include <QStatusBar>

QT_BEGIN_NAMESPACE
class QLabel;
class QProgressBar;
QT_END_NAMESPACE

/// The foot of the label form: the queue's labels in its first panel, what was done last, and how
/// far a search is.
class DeskStatusBar final : public QStatusBar
{
    Q_OBJECT

public:
    explicit DeskStatusBar(QWidget *parent = nullptr);

public Q_SLOTS:
    void showTotal(qint64 labels);
    void showText(const QString &text);
    void showProgress(const QString &text, int done, int total);
    void showBusy(bool busy);

private:
    QLabel *m_total;
    QLabel *m_status;
    QProgressBar *m_progress;
    QLabel *m_stopHint;
};
