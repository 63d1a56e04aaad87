#pragma once

#include "paper/digit_styles.h"
#include "paper/picture_store.h"

#include <span>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

class ScreenInk;

/// Paints draw commands on any device; the only step that knows dots. Bars stand on whole dots with
/// hard edges, texts start on whole dots.
///
/// A screen shows what a printer will print by taking the fonts of the printer's resolution and
/// scaling the painter by zoom over resolution: lines then break and bars snap as on the paper.
class CommandPainter
{
public:
    /// All are kept by reference. The painter must be active and its unit one dot of the fonts'
    /// device. `screen`: of a window that paints the same commands again and again.
    CommandPainter(QPainter &painter, const DeviceFonts &fonts, PictureStore &pictures,
                   ScreenInk *screen = nullptr);

    /// Draws the commands, their zero point at `origin` (mm). Commands that lie farther off than
    /// any paper reaches, or nowhere, are left out.
    void paint(std::span<const DrawCommand> commands, QPointF origin = {});

private:
    void draw(const PictureCommand &picture, QPointF origin);
    void draw(const BarsCommand &bars, QPointF origin);
    void draw(const TextCommand &text, QPointF origin);
    void draw(const LineCommand &line, QPointF origin);
    void draw(const RectangleCommand &rectangle, QPointF origin);

    void drawDigits(const BarsCommand &bars, const BarsGeometry &geometry, const DigitStyle &style,
                    int baseline);
    void write(QPointF baseline, const QFont &font, const QString &text);
    QRect dotBox(const QRectF &box, QPointF origin) const;
    int dotWidth(double mm) const;

    QPainter &m_painter;
    const DeviceFonts &m_fonts;
    PictureStore &m_pictures;
    ScreenInk *m_screen;
    DigitStyles m_digits;
};
