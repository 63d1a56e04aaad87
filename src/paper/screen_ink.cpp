#include "paper/screen_ink.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <limits>

namespace {

constexpr qsizetype kMostTexts = 20'000;
constexpr qint64 kMostBytes = 64LL << 20; ///< of pictures
constexpr QSize kLargestSymbol(512, 256); ///< pixels; there are never many larger ones on a screen

/// The glyphs of a text that begins at the zero point; none for what is no single line.
QList<QGlyphRun> shaped(const QFont &font, const QString &text)
{
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    if (!line.isValid() || line.textLength() != text.size())
        return {};
    QList<QGlyphRun> runs = line.glyphRuns();
    for (QGlyphRun &run : runs) {
        QList<QPointF> places = run.positions();
        for (QPointF &place : places)
            place.ry() -= line.y() + line.ascent();
        run.setPositions(places);
    }
    return runs;
}

/// Lets the painter draw pixels of its device for a while.
class DevicePixels
{
public:
    explicit DevicePixels(QPainter &painter) : m_painter(painter), m_world(painter.worldTransform())
    {
        painter.setWorldTransform(painter.deviceTransform().inverted() * m_world);
    }
    ~DevicePixels() { m_painter.setWorldTransform(m_world); }
    Q_DISABLE_COPY_MOVE(DevicePixels)

private:
    QPainter &m_painter;
    QTransform m_world;
};

bool isUpright(const QTransform &transform)
{
    return transform.type() <= QTransform::TxScale && transform.m11() > 0 && transform.m22() > 0;
}

/// How much of each pixel of a row is covered.
class Coverage
{
public:
    explicit Coverage(int pixels) : m_shares(static_cast<std::size_t>(pixels)) {}

    void add(double from, double to)
    {
        for (int pixel = static_cast<int>(from); pixel < to; ++pixel)
            m_shares[static_cast<std::size_t>(pixel)] += static_cast<float>(
                std::min(to, pixel + 1.0) - std::max(from, static_cast<double>(pixel)));
    }
    float at(int pixel) const { return m_shares[static_cast<std::size_t>(pixel)]; }

private:
    std::vector<float> m_shares;
};

/// By how much the stretch from `from` to `to` lies in the pixel that begins at `at`.
float share(double from, double to, int at)
{
    return static_cast<float>(
        std::max(std::min(to, at + 1.0) - std::max(from, static_cast<double>(at)), 0.0));
}

} // namespace

void ScreenInk::drawText(QPainter &painter, QPointF baseline, const QFont &font,
                         const QString &text)
{
    const QList<QGlyphRun> &runs = glyphs(font, text);
    for (const QGlyphRun &run : runs)
        painter.drawGlyphRun(baseline, run);
    if (runs.isEmpty()) {
        painter.setFont(font);
        painter.drawText(baseline, text);
    }
}

const QList<QGlyphRun> &ScreenInk::glyphs(const QFont &font, const QString &text)
{
    if (m_texts > kMostTexts) {
        m_fonts.clear();
        m_texts = 0;
    }
    auto written = std::find_if(m_fonts.begin(), m_fonts.end(),
                                [&](const Written &one) { return one.font == font; });
    if (written == m_fonts.end())
        written = m_fonts.insert(m_fonts.end(), {font, {}});
    const auto known = written->texts.constFind(text);
    if (known != written->texts.cend())
        return *known;
    ++m_texts;
    return *written->texts.insert(text, shaped(font, text));
}

void ScreenInk::drawPicture(QPainter &painter, const QRect &box, const QImage &image)
{
    const QTransform &device = painter.deviceTransform();
    if (!isUpright(device)) {
        painter.drawImage(box, image);
        return;
    }
    const QRectF exact = device.mapRect(QRectF(box));
    const QPoint corner = exact.topLeft().toPoint();
    const QSize pixels =
        QSize(qRound(exact.right()) - corner.x(), qRound(exact.bottom()) - corner.y())
            .expandedTo({1, 1});
    if (pixels.width() > image.width() || pixels.height() > image.height()) {
        painter.drawImage(box, image); // its own dots are seen
        return;
    }
    const QImage &shown = scaled(image, pixels);
    const DevicePixels plain(painter);
    painter.drawImage(corner, shown);
}

const QImage &ScreenInk::scaled(const QImage &image, QSize pixels)
{
    const auto key = std::pair(image.cacheKey(), std::pair(pixels.width(), pixels.height()));
    const auto known = m_pictures.find(key);
    if (known != m_pictures.end())
        return known->second;
    if (m_bytes > kMostBytes) {
        m_pictures.clear();
        m_bytes = 0;
    }
    QImage small = image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    small.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                            : QImage::Format_RGB32);
    m_bytes += small.sizeInBytes();
    return m_pictures.emplace(key, std::move(small)).first->second;
}

void ScreenInk::drawBars(QPainter &painter, const std::vector<QRect> &bars, QRgb colour)
{
    QRect whole;
    int bottom = std::numeric_limits<int>::max(); // of those that end first
    for (const QRect &bar : bars) {
        whole |= bar;
        bottom = std::min(bottom, bar.bottom() + 1);
    }
    const QTransform &device = painter.deviceTransform();
    const QRectF exact = device.mapRect(QRectF(whole));
    const QRect pixels = exact.toAlignedRect();
    if (!isUpright(device) || pixels.width() > kLargestSymbol.width() ||
        pixels.height() > kLargestSymbol.height()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(colour));
        painter.drawRects(bars.data(), static_cast<int>(bars.size()));
        return;
    }

    // Painting thirty bars one by one with soft edges costs ten times as much as all of them at
    // once: a row of pixels looks like the one above it.
    Coverage all(pixels.width());
    Coverage longer(pixels.width());
    for (const QRect &bar : bars) {
        const double from = device.m11() * bar.left() + device.dx() - pixels.left();
        const double to = from + device.m11() * bar.width();
        all.add(from, to);
        if (bar.bottom() + 1 > bottom)
            longer.add(from, to);
    }
    if (m_symbol.isNull())
        m_symbol = QImage(kLargestSymbol, QImage::Format_ARGB32_Premultiplied);
    const double end = device.m22() * bottom + device.dy();
    const QRgb *former = nullptr;
    std::pair<float, float> formerShares;
    for (int y = 0; y < pixels.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(m_symbol.scanLine(y));
        const std::pair shares(share(exact.top(), end, pixels.top() + y),
                               share(end, exact.bottom(), pixels.top() + y));
        if (former != nullptr && shares == formerShares) {
            std::copy_n(former, pixels.width(), line);
            continue;
        }
        for (int x = 0; x < pixels.width(); ++x) {
            const float covered = shares.first * all.at(x) + shares.second * longer.at(x);
            line[x] = qPremultiply(qRgba(qRed(colour), qGreen(colour), qBlue(colour),
                                         qRound(std::min(covered, 1.0F) * 255)));
        }
        former = line;
        formerShares = shares;
    }
    const DevicePixels plain(painter);
    painter.drawImage(pixels.topLeft(), m_symbol, QRect(QPoint(), pixels.size()));
}
