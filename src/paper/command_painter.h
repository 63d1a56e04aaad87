#pragma once

#include "paper/draw_commands.h"
#include "paper/picture_store.h"

#include <deque>
#include <span>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

/// Paints draw commands on any device; the only step that knows dots. Bars stand on whole dots with
/// hard edges, texts start on whole dots.
///
/// A screen shows what a printer will print by taking the fonts of the printer's resolution and
/// scaling the painter by zoom over resolution: lines then break and bars snap as on the paper.
class CommandPainter
{
public:
    /// All three are kept by reference. The painter must be active and its unit one dot of the
    /// fonts' device.
    CommandPainter(QPainter &painter, const DeviceFonts &fonts, PictureStore &pictures);

    /// Draws the commands, their zero point at `origin` (mm). Commands that lie farther off than
    /// any paper reaches, or nowhere, are left out.
    void paint(std::span<const DrawCommand> commands, QPointF origin = {});

private:
    /// Digits of a symbol. Most symbols of a run share one style.
    struct KnownDigits
    {
        PaperFont source;
        QString symbology;
        int module = 0;
        int height = 0; ///< dots, of the symbol's box
        DigitStyle style;
    };

    void draw(const PictureCommand &picture, QPointF origin);
    void draw(const BarsCommand &bars, QPointF origin);
    void draw(const TextCommand &text, QPointF origin);
    void draw(const LineCommand &line, QPointF origin);
    void draw(const RectangleCommand &rectangle, QPointF origin);

    const DigitStyle &digits(const BarsCommand &bars, const BarsGeometry &geometry);
    void drawDigits(const BarsCommand &bars, const BarsGeometry &geometry, const DigitStyle &style,
                    int baseline);
    QRect dotBox(const QRectF &box, QPointF origin) const;
    int dotWidth(double mm) const;

    QPainter &m_painter;
    const DeviceFonts &m_fonts;
    PictureStore &m_pictures;
    std::deque<KnownDigits> m_digits;
};
