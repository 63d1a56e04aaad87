#pragma once

#include "labels/designer/canvas_view.h"
#include "labels/designer/design_editor.h"
#include "labels/designer/design_scene.h"
#include "labels/designer/label_size.h"

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

// What the canvas shows beneath and above the ink. None of it prints.

/// A sheet of paper, the places of its labels, and hatched what the printer cannot reach.
void paintPaper(QPainter &painter, const CanvasView &view, const SheetAround &sheet);

struct SheetLook
{
    const CanvasView &view;
    const DesignEditor &editor;
    const SheetAround &sheet;
};

/// Desk, sheet, the places of the labels, the label with its grid, the backs of marked texts.
void paintSheet(QPainter &painter, const QRect &exposed, const SheetLook &look);

struct OverlayLook
{
    const CanvasView &view;
    const DesignEditor &editor;
    const DesignScene &scene;
    const RefSet &marked; ///< elements that print other than one thinks
    bool active = false;  ///< the canvas has the keyboard
};

/// Frames of elements without ink, guides, the selection with its handles, what is being dragged,
/// warnings.
void paintOverlay(QPainter &painter, const OverlayLook &look);
