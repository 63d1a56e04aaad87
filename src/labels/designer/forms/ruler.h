#pragma once

#include <QWidget>

class DesignCanvas;
class DesignEditor;

/// A ruler in millimetres along the canvas. It shows where the mouse and the selection are; guides
/// are drawn out of it.
class Ruler final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kThickness = 24; ///< pixels

    /// Both are kept by reference. `orientation`: the way the ruler lies.
    Ruler(Qt::Orientation orientation, DesignEditor &editor, DesignCanvas &canvas,
          QWidget *parent = nullptr);

    QSize sizeHint() const override { return {kThickness, kThickness}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    double along(QPointF pixels) const;
    void paintSelection(QPainter &painter) const;
    void paintMarks(QPainter &painter) const;

    Qt::Orientation m_orientation;
    DesignEditor &m_editor;
    DesignCanvas &m_canvas;
    std::optional<double> m_pointer; ///< mm
    bool m_pressed = false;
};
