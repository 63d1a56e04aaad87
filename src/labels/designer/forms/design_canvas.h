#pragma once

#include "labels/designer/canvas_view.h"
#include "labels/designer/design_checks.h"
#include "labels/designer/design_editor.h"
#include "labels/designer/design_scene.h"
#include "labels/designer/label_size.h"

#include <QAbstractScrollArea>
#include <QMarginsF>
#include <QPixmap>
#include <QTimer>

/// The page on which a label is drawn: the label with its sheet around it, painted by the print
/// engine, and over it handles, guides and what is being dragged.
class DesignCanvas final : public QAbstractScrollArea
{
    Q_OBJECT

public:
    /// `editor` is kept by reference. `pictures`: folder of the pictures.
    DesignCanvas(DesignEditor &editor, const QString &pictures, QWidget *parent = nullptr);

    /// The printer that the label is for: its dots per inch and what it leaves free (mm).
    void setPrinter(QSizeF dpi, const QMarginsF &unprintable);
    /// The values that bound texts and barcodes show.
    void setRow(const LabelRow &row);
    /// Elements with something to say, each with its text.
    void setNotices(const std::vector<DesignNotice> &notices);

    const CanvasView &view() const { return m_view; }
    const DesignScene &scene() const { return m_scene; }
    void zoomStep(int steps);
    void zoomFit();
    void zoomActual();
    /// A new design: fits it into the window.
    void reset();

    /// Goes on with a guide that was pressed on a ruler; `at` in pixels of the page.
    void dragGuide(QPointF at, Qt::KeyboardModifiers modifiers, bool last);

Q_SIGNALS:
    void viewChanged();
    void pointerMoved(QPointF mm);
    void pointerLeft();
    void menuWanted(QPoint global);

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    PointerAt pointerAt(QPointF pixels, Qt::KeyboardModifiers modifiers) const;
    void rebuild();
    void showChange(const QRectF &mm);
    void viewMoved();
    void updateScrollBars();
    QRectF content() const;
    QRectF scrollable() const;
    void showShape(const PointerAt &at);
    bool arrowKey(const QKeyEvent &event);
    void scrollWhileDragging();
    void fillBase(const QRegion &exposed);
    QString noticeAt(QPointF pixels) const;

    DesignEditor &m_editor;
    CanvasView m_view;
    DesignScene m_scene;
    SheetAround m_sheet;
    QMarginsF m_unprintable;
    LabelRow m_row;
    std::vector<DesignNotice> m_notices;
    RefSet m_marked;      ///< elements with a notice that weighs
    QPixmap m_base;       ///< sheet and ink as they lie on the page now
    QRegion m_staleBase;  ///< of m_base, in pixels
    bool m_fitted = true; ///< the zoom follows the window until the user chooses one
    bool m_settingBars = false;
    bool m_spaceHeld = false;
    std::optional<QPointF> m_panned; ///< where the page was grasped last, pixels
    struct
    {
        QPointF at; ///< pixels
        Qt::KeyboardModifiers modifiers;
    } m_dragged; ///< the mouse, while something is dragged
    QTimer m_scrollTimer;
};
