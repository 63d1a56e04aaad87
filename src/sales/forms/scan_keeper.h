#pragma once

#include <QObject>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QWidget;
QT_END_NAMESPACE

/// Keeps what a scanner types while a message box is open: without it the digits would be lost and
/// the Enter behind them would answer the question. The codes come out when the box has closed.
class ScanKeeper final : public QObject
{
    Q_OBJECT

public:
    /// Boxes opened over `window` are watched, except dialogs marked with ownsKeys().
    explicit ScanKeeper(QWidget &window);

    /// Marks a dialog that wants the keys itself.
    static void ownsKeys(QWidget &dialog);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// Codes that Enter ended, and the beginning of one that was still being typed.
    void kept(const QStringList &codes, const QString &beginning);

private:
    bool keep(const QKeyEvent &event);
    void deliver();

    QWidget &m_window;
    QString m_partial;
    QStringList m_codes;
};
