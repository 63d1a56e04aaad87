#pragma once

#include "paper/digit_styles.h"

#include <QFont>
#include <QGlyphRun>
#include <QHash>
#include <QImage>
#include <QRgb>

#include <deque>
#include <map>
#include <utility>
#include <vector>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

/// What a screen keeps from one painting of draw commands to the next, so that thousands of them
/// can be painted anew at each step of a drag: texts as glyphs, pictures at the size of the zoom.
/// What is drawn and where is CommandPainter's alone; paper is painted once and needs none of this.
class ScreenInk
{
public:
    /// `fonts` is kept by reference.
    explicit ScreenInk(const DeviceFonts &fonts) : m_digits(fonts) {}

    DigitStyles &digits() { return m_digits; }

    /// Draws in the painter's pen; `baseline`: left end of the text's baseline.
    void drawText(QPainter &painter, QPointF baseline, const QFont &font, const QString &text);

    /// Stretches the image over the box, which comes to lie on whole pixels.
    void drawPicture(QPainter &painter, const QRect &box, const QImage &image);

    /// Fills upright bars that begin at one height. Bars thinner than a pixel come out grey.
    void drawBars(QPainter &painter, const std::vector<QRect> &bars, QRgb colour);

private:
    /// The texts written in one font.
    struct Written
    {
        QFont font;
        QHash<QString, QList<QGlyphRun>> texts;
    };
    const QList<QGlyphRun> &glyphs(const QFont &font, const QString &text);
    const QImage &scaled(const QImage &image, QSize pixels);

    DigitStyles m_digits;
    std::deque<Written> m_fonts;
    qsizetype m_texts = 0; ///< in all of m_fonts
    std::map<std::pair<qint64, std::pair<int, int>>, QImage> m_pictures;
    qint64 m_bytes = 0; ///< of m_pictures
    QImage m_symbol;    ///< where bars are put together
};
