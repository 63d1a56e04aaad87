#pragma once

#include <QObject>

#include <initializer_list>
#include <utility>
#include <vector>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/// How much larger type is on a window than on one of 1366 pixels: larger screens are read from
/// farther away.
double typeGrowth(const QWidget &window);

/// Lets the type of widgets grow with their window, from the size they have now.
class GrowingType final : public QObject
{
public:
    GrowingType(QWidget &window, std::initializer_list<QWidget *> widgets);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget &m_window;
    std::vector<std::pair<QWidget *, double>> m_points;
};
