#pragma once

#include "labels/designer/label_size.h"

#include <QWidget>

/// A small drawing of a sheet: its labels and what the printer cannot reach.
class SheetPicture final : public QWidget
{
    Q_OBJECT

public:
    explicit SheetPicture(QWidget *parent = nullptr);

    void show(const SheetAround &sheet);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    SheetAround m_sheet;
};
