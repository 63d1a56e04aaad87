#pragma once

#include "labels/designer/canvas_view.h"
#include "labels/layout/label_ref.h"
#include "labels/print/label_row.h"
#include "paper/device_font.h"
#include "paper/draw_commands.h"
#include "paper/picture_store.h"
#include "paper/screen_ink.h"

#include <memory>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

/// The draw commands of the label on the canvas, those of the print engine for the layout's
/// printer: lines break, texts are cut and bars snap as on its paper. Only what changed of the
/// layout is built anew; what was only moved draws the same elsewhere.
class DesignScene
{
public:
    /// `pictures`: folder of the pictures.
    explicit DesignScene(const QString &pictures);

    /// Dots per inch of the layout's printer.
    void setDevice(QSizeF dpi);
    QSizeF device() const { return m_fonts->dpi(); }

    /// Takes a layout and the row whose values it shows. Returns the place (mm) that looks
    /// different now; null when nothing does.
    QRectF show(const LabelLayout &layout, const LabelRow &row);

    /// Pictures are read anew: one of the folder may have changed.
    void forgetPictures();

    /// Paints what lies in `exposed` (mm).
    void paint(QPainter &painter, const CanvasView &view, const QRectF &exposed);

    /// Whether a text has more to say than its box holds.
    bool overflows(LabelRef text) const;

    /// False for what would leave no trace on paper: no picture that can be read, no number,
    /// no text.
    bool hasInk(LabelRef ref) const;

private:
    /// What one element draws, in mm from its own corner.
    struct Item
    {
        std::vector<DrawCommand> commands;
        QRectF bounds;
        QPointF at; ///< of the element on the label, mm
        bool overflows = false;

        QRectF place() const { return bounds.translated(at); }
    };
    using Items = std::vector<Item>;

    template <typename Element>
    QRectF update(std::vector<Element> LabelLayout::*list, const LabelLayout &layout, Items &items,
                  bool all);
    template <typename Element>
    void build(std::vector<Element> LabelLayout::*list, const std::vector<std::size_t> &changed,
               Items &items);

    bool canShow(const PictureCommand &picture);
    const Items &itemsOf(ElementKind kind) const;

    QString m_folder;
    std::unique_ptr<DeviceFonts> m_fonts;
    std::unique_ptr<PictureStore> m_pictures;
    std::unique_ptr<ScreenInk> m_ink; ///< of m_fonts
    LabelLayout m_shown;              ///< its elements only
    LabelRow m_row;
    bool m_stale = true; ///< everything is to be built anew
    Items m_pictureItems;
    Items m_barcodeItems;
    Items m_textItems;
};
