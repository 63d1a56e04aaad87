#include "labels/print/scannability.h"

#include "common/amount.h"
#include "common/digits.h"
#include "labels/print/label_preview.h"
#include "paper/command_painter.h"
#include "paper/millimetres.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// Scanners see by red light: bars must be this much darker in red than the paper (of 255).
constexpr int kLeastContrast = 0x80;
constexpr double kModuleSlack = 0.0005; ///< mm
constexpr double kHeightSlack = 0.005;  ///< of the height
constexpr double kEdgeSlack = 0.05;     ///< mm

QString number(double value, double unit)
{
    return amount::plain(std::round(value / unit) * unit);
}

struct Drawn
{
    BarsGeometry geometry;
    int bottom = 0; ///< dots, lower end of the plain bars
};

std::optional<Drawn> drawn(const BarsCommand &bars, const DeviceFonts &fonts)
{
    const auto geometry = fitBars(bars.symbol, bars.box, fonts.dpi());
    if (!geometry)
        return {};
    const DigitStyle digits = digitStyle(bars.symbol, *geometry, fonts.find(bars.font).font());
    return Drawn{*geometry, barsBottom(*geometry, digits)};
}

double moduleWidth(const BarsGeometry &geometry, QSizeF dpi)
{
    return geometry.module * kMmPerInch / dpi.width();
}

/// Height of the bars over the height that goes with their module.
double heightShare(const BarSymbol &symbol, const Drawn &bars, QSizeF dpi)
{
    const double height = (bars.bottom - bars.geometry.top) * kMmPerInch / dpi.height();
    return height / (symbol.barHeight * moduleWidth(bars.geometry, dpi));
}

/// Bars and quiet zones, in dots.
QRect zone(const BarSymbol &symbol, const Drawn &bars)
{
    const int left = bars.geometry.x(-symbol.quietLeft);
    const int right = bars.geometry.x(symbol.modules + symbol.quietRight);
    return {left, bars.geometry.top, right - left, bars.bottom - bars.geometry.top};
}

QRectF inMillimetres(const QRect &dots, QSizeF dpi)
{
    return {toMillimetres(dots.topLeft(), dpi),
            toMillimetres(QPointF(dots.right() + 1, dots.bottom() + 1), dpi)};
}

bool isBound(ElementRef element, const PrintJob &job)
{
    return element.kind == static_cast<int>(ElementKind::text) &&
           !job.texts[static_cast<std::size_t>(element.index)].field.isEmpty();
}

/// The colour of a command's ink; nothing for pictures, which have many.
struct Ink
{
    std::optional<QRgb> operator()(const PictureCommand &) const { return {}; }
    template <typename Command>
    std::optional<QRgb> operator()(const Command &command) const
    {
        return command.colour;
    }
};

} // namespace

QString numberFault(QStringView number, ean::Symbology inForce)
{
    if (number.isEmpty())
        return u"barkodu yok"_s;
    if (!areDigits(number))
        return u"barkodda rakamdan başka karakter var, çizilmez: %1"_s.arg(number);
    const QString printed = ean::completed(ean::bySize(number, inForce), number);
    if (printed == number)
        return {};
    if (!printed.isEmpty())
        return u"barkod %1 değil, %2 olarak basılır"_s.arg(number, printed);
    if (number.size() != 8 && number.size() != 13)
        return u"barkod 8 ya da 13 haneli değil, çizilmez: %1"_s.arg(number);
    return u"barkodun son hanesi yanlış, çizilmez: %1"_s.arg(number);
}

std::vector<ScanFault> barFaults(const BarsCommand &bars, QSizeF label, const DeviceFonts &fonts)
{
    const auto symbol = drawn(bars, fonts);
    if (!symbol)
        return {{ScanFault::room, u"barkod kutusuna sığmıyor"_s}};

    std::vector<ScanFault> faults;
    const double module = moduleWidth(symbol->geometry, fonts.dpi());
    if (module < kNarrowestModule - kModuleSlack)
        faults.push_back(
            {ScanFault::module, u"çizgileri bu yazıcıda çok ince: %1 mm (en az %2)"_s.arg(
                                    number(module, 0.001), number(kNarrowestModule, 0.001))});
    else if (symbol->geometry.module < kFewestDots)
        faults.push_back({ScanFault::module, u"en ince çizgisi bu yazıcıda tek nokta"_s});
    const double share = heightShare(bars.symbol, *symbol, fonts.dpi());
    if (share < kLeastHeight - kHeightSlack)
        faults.push_back(
            {ScanFault::height, u"barkod çok alçak: boyu %%1 (en az %%2)"_s.arg(
                                    number(share * 100, 1), number(kLeastHeight * 100, 1))});
    const QRectF whole(QPointF(), label);
    const QRectF reach = inMillimetres(zone(bars.symbol, *symbol), fonts.dpi());
    if (!label.isEmpty() &&
        !whole.adjusted(-kEdgeSlack, -kEdgeSlack, kEdgeSlack, kEdgeSlack).contains(reach))
        faults.push_back(
            {ScanFault::outside, u"barkod ya da boşluk payı etiketin dışına taşıyor"_s});
    if (qRed(bars.colour) >= 256 - kLeastContrast)
        faults.push_back({ScanFault::colour, u"barkodun rengi okuyucu için çok açık"_s});
    return faults;
}

CoverSearch::CoverSearch(const BuiltLabel &label, const PrintJob &job, const DeviceFonts &fonts,
                         PictureStore &pictures)
    : m_label(label), m_job(job), m_fonts(fonts), m_pictures(pictures)
{
    m_places.reserve(label.commands.size());
    for (const DrawCommand &command : label.commands)
        m_places.push_back(boundingBox(command, fonts));
}

std::optional<ScanFault> CoverSearch::fault(std::size_t bars)
{
    const DrawCommand &command = m_label.commands[bars];
    const auto &shape = std::get<BarsCommand>(command.shape);
    std::vector<std::size_t> others;
    for (std::size_t i = 0; i < m_places.size(); ++i)
        if (m_places[i].intersects(shape.box) && m_label.commands[i].element != command.element)
            others.push_back(i);
    const auto symbol = others.empty() ? std::nullopt : drawn(shape, m_fonts);
    if (!symbol || !covered(zone(shape.symbol, *symbol), qRed(shape.colour), others))
        return {};
    const bool fromRow = std::all_of(others.cbegin(), others.cend(), [&](std::size_t other) {
        return isBound(m_label.commands[other].element, m_job);
    });
    return ScanFault{ScanFault::covered,
                     u"barkodun ya da boşluk payının üstüne başka öğe geliyor"_s, fromRow};
}

/// Whether others leave ink in a zone (dots) on which bars of that red could not be told apart.
bool CoverSearch::covered(const QRect &zone, int red, const std::vector<std::size_t> &others)
{
    std::vector<DrawCommand> pictures; // a light one may lie over a dark one
    for (const std::size_t other : others)
        if (std::holds_alternative<PictureCommand>(m_label.commands[other].shape))
            pictures.push_back(m_label.commands[other]);
        else if (darkens(other, zone, red))
            return true;
    return !pictures.empty() && showsDark(pictures, zone, red);
}

bool CoverSearch::darkens(std::size_t other, const QRect &zone, int red)
{
    const DrawCommand &command = m_label.commands[other];
    if (qRed(*std::visit(Ink(), command.shape)) >= red + kLeastContrast)
        return false;
    if (const auto *const bars = std::get_if<BarsCommand>(&command.shape)) {
        const auto symbol = drawn(*bars, m_fonts);
        if (!symbol)
            return false;
        const auto dark =
            barRectangles(bars->symbol, symbol->geometry, symbol->bottom, symbol->geometry.bottom);
        if (std::any_of(dark.begin(), dark.end(),
                        [&](const QRect &bar) { return bar.intersects(zone); }))
            return true;
    }
    // Slanted letters stand out of their line.
    const QRectF &place = m_places[other];
    const QRectF reach(toDots(place.topLeft(), m_fonts.dpi()),
                       toDots(place.bottomRight(), m_fonts.dpi()));
    const double beyond = reach.height();
    const QRectF part = reach.adjusted(-beyond, -beyond, beyond, beyond) & QRectF(zone);
    return showsDark({command}, part.toAlignedRect(), red);
}

/// Whether commands leave such ink on a part of the label (dots).
bool CoverSearch::showsDark(const std::vector<DrawCommand> &commands, const QRect &part, int red)
{
    if (part.isEmpty())
        return false;
    QImage image(part.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        painter.translate(-part.topLeft());
        CommandPainter(painter, m_fonts, m_pictures).paint(commands);
    }
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        if (std::any_of(line, line + image.width(),
                        [red](QRgb dot) { return qRed(dot) < red + kLeastContrast; }))
            return true;
    }
    return false;
}

QSizeF smallestBox(const BarSymbol &symbol, const PaperFont &digits, double dpi, QSizeF least)
{
    constexpr double step = 0.1; // mm, as layout files keep lengths
    const double dot = kMmPerInch / dpi;
    const int dots =
        std::max(static_cast<int>(std::ceil((kNarrowestModule - kModuleSlack) / dot)), kFewestDots);
    const double width =
        std::max(std::ceil(dots * symbol.totalModules() * dot / step) * step, least.width());

    const DeviceFonts fonts({dpi, dpi});
    BarsCommand bars{{0, 0, width, 0}, symbol, digits, 0};
    double height = std::floor(symbol.barHeight * dots * dot * kLeastHeight / step) * step;
    for (height = std::max(height, least.height()); height < kLongestPaper; height += step) {
        bars.box.setHeight(height);
        const auto drawnBars = drawn(bars, fonts);
        if (drawnBars && heightShare(symbol, *drawnBars, fonts.dpi()) >= kLeastHeight)
            break;
    }
    return {width, height};
}
