#pragma once

#include "labels/designer/canvas_view.h"
#include "labels/designer/label_size.h"

#include <QWidget>

/// A small drawing of a sheet: its labels and what the printer cannot reach. A click on a label
/// says where printing begins; the labels before it are used.
class SheetPicture final : public QWidget
{
    Q_OBJECT

public:
    explicit SheetPicture(QWidget *parent = nullptr);

    void show(const SheetAround &sheet, qint64 firstPlace);

Q_SIGNALS:
    void placeChosen(qint64 place); ///< from 1

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    CanvasView view() const;

    SheetAround m_sheet;
    std::size_t m_used = 0; ///< labels
};
