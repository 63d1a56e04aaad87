#pragma once

#include "labels/print/print_job.h"

#include <QWidget>

/// A picture of the sheet on which a click says where the first label goes; the places before it
/// are used already.
class SheetPlaces final : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// A grid that cannot be counted shows nothing.
    void show(const SheetGrid &grid, qint64 first);

Q_SIGNALS:
    void placeChosen(qint64 place); ///< from 1

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    QRectF cell(qint64 place) const;

    SheetGrid m_grid;
    qint64 m_first = 1;
};
