#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QLineEdit;
QT_END_NAMESPACE

/// Above the canvas: which stock's values the label shows, and the box that searches another.
class SampleBar final : public QWidget
{
    Q_OBJECT

public:
    explicit SampleBar(QWidget *parent = nullptr);

    void showRow(const QString &place, const QString &name);
    void enter();
    void addAction(QAction *action, const QString &text);

Q_SIGNALS:
    void searched(const QString &text);
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QLineEdit *m_search;
    QLabel *m_place;
    QLabel *m_name;
};
