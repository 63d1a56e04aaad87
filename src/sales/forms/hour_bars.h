#pragma once

#include "sales/journal/day_figures.h"

#include <QWidget>

/// The hours of a day as bars, by what was sold in each.
class HourBars final : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    void show(const std::array<HourFigures, 24> &hours);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::array<HourFigures, 24> m_hours{};
};
