#include "labels/print/label_builder.h"

#include "common/windows_colour.h"
#include "labels/print/text_alignment.h"
#include "labels/print/text_lines.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kLineTolerance = 0.1;   ///< mm by which a line may stand out of its box
constexpr qsizetype kLongestText = 1000; ///< characters; no label shows more

/// A text's box as the text runs: width along the line, height across the lines.
struct RunBox
{
    QPointF anchor; ///< where the turned text starts
    double width = 0;
    double height = 0;
};

QRectF rectangle(const LabelBox &box)
{
    return {static_cast<double>(box.left), static_cast<double>(box.top),
            static_cast<double>(box.width), static_cast<double>(box.height)};
}

RunBox runBox(const TextElement &element)
{
    const QRectF box = rectangle(element.box);
    if (element.angle == 90)
        return {{box.x(), box.y() + box.height()}, box.height(), box.width()};
    if (element.angle == 180)
        return {{box.x() + box.width(), box.y() + box.height()}, box.width(), box.height()};
    if (element.angle == 270)
        return {{box.x() + box.width(), box.y()}, box.height(), box.width()};
    return {box.topLeft(), box.width(), box.height()};
}

/// Lines that go into the box, at least one.
qsizetype lineRoom(double boxHeight, double lineHeight)
{
    const double lines = (boxHeight + kLineTolerance) / lineHeight;
    return lines >= 1 ? static_cast<qsizetype>(std::min(lines, 1000.0)) : 1;
}

double turn(double angle)
{
    return std::isfinite(angle) ? std::fmod(angle, 360) : 0;
}

} // namespace

QString boundText(const TextElement &element, const LabelRow &row)
{
    if (element.field.isEmpty())
        return element.caption;
    if (element.field == u"Stok Kodu"_s)
        return row.stockCode;
    if (element.field == u"Barkod"_s)
        return row.barcode;
    if (element.field == u"Stok Adı"_s)
        return row.stockName;
    if (element.field == u"Fiyat"_s)
        return row.price;
    return {};
}

std::vector<DrawCommand> LabelBuilder::label(const LabelRow &row)
{
    std::vector<DrawCommand> commands;
    commands.reserve(m_job.pictures.size() + m_job.barcodes.size() + m_job.texts.size());
    addPictures(commands);
    addBarcodes(row, commands);
    for (const TextElement &element : m_job.texts)
        addText(element, boundText(element, row).left(kLongestText), commands);
    return commands;
}

void LabelBuilder::addPictures(std::vector<DrawCommand> &commands) const
{
    for (const PictureElement &picture : m_job.pictures)
        if (!picture.file.isEmpty())
            commands.emplace_back(PictureCommand{rectangle(picture.box), picture.file});
}

void LabelBuilder::addBarcodes(const LabelRow &row, std::vector<DrawCommand> &commands)
{
    if (m_job.barcodes.empty())
        return;
    m_symbology = ean::bySize(row.barcode, m_symbology);
    const auto symbol = ean::encode(m_symbology, row.barcode);
    if (!symbol)
        return;
    for (const BarcodeElement &element : m_job.barcodes)
        commands.emplace_back(BarsCommand{rectangle(element.box), *symbol, element.font,
                                          colourOf(element.colour).rgb()});
}

void LabelBuilder::addText(const TextElement &element, const QString &text,
                           std::vector<DrawCommand> &commands) const
{
    const RunBox box = runBox(element);
    const double lineHeight = m_measure.lineHeight(element.font);

    // Turned texts stay on one line; only a line end inside the text starts another.
    std::function<bool(QStringView)> fits;
    if (element.angle == 0 && box.width > 0)
        fits = [&](QStringView part) { return m_measure.width(element.font, part) <= box.width; };

    QPointF at = box.anchor;
    for (const QString &line : splitLines(text, lineRoom(box.height, lineHeight), fits)) {
        if (!line.isEmpty()) {
            const double room = box.width - m_measure.width(element.font, line);
            commands.emplace_back(TextCommand{alignText(at, element.alignment, element.angle, room),
                                              turn(element.angle), element.font,
                                              colourOf(element.colour).rgb(), line});
        }
        at.ry() += lineHeight;
    }
}
