#pragma once

#include "labels/print/bars_geometry.h"
#include "labels/print/device_fonts.h"
#include "labels/print/draw_commands.h"
#include "labels/print/picture_store.h"

#include <deque>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

/// Paints draw commands on any device; the only step that knows dots. Bars stand on whole dots with
/// hard edges, texts start on whole dots.
class LabelPainter
{
public:
    /// All three are kept by reference. The painter must be active and its unit one device dot.
    LabelPainter(QPainter &painter, const DeviceFonts &fonts, PictureStore &pictures);

    /// Draws one label whose upper left corner lies at `origin` (mm). Commands that lie farther off
    /// than any paper reaches, or nowhere, are left out.
    void paint(const std::vector<DrawCommand> &commands, QPointF origin);

private:
    void draw(const PictureCommand &picture, QPointF origin);
    void draw(const BarsCommand &bars, QPointF origin);
    void draw(const TextCommand &text, QPointF origin);
    /// Font of a symbol's digits. Most symbols of a run share one.
    struct DigitFont
    {
        LabelFont source;
        ean::Symbology symbology;
        int module = 0;
        int height = 0; ///< dots, of the symbol's box
        QFont font;
        double advance = 0;  ///< dots, of one digit
        int digitHeight = 0; ///< dots; 0: the digits would be too small and are left out
    };

    const DigitFont &digitFont(const BarsCommand &bars, const BarsGeometry &geometry);
    void drawDigits(const BarsCommand &bars, const BarsGeometry &geometry, const DigitFont &font,
                    int baseline);
    QPointF toDots(QPointF mm) const;

    QPainter &m_painter;
    const DeviceFonts &m_fonts;
    PictureStore &m_pictures;
    std::deque<DigitFont> m_digitFonts;
};
