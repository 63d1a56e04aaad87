#include "labels/print/label_builder.h"

#include "common/windows_colour.h"
#include "labels/print/label_fields.h"
#include "paper/turned_text.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestText = 1000; ///< characters; no label shows more
constexpr double kTextNudge = 1.5;       ///< dots to the right, as the shop's old sheets have it

QRectF rectangle(const LabelBox &box)
{
    return {static_cast<double>(box.left), static_cast<double>(box.top),
            static_cast<double>(box.width), static_cast<double>(box.height)};
}

/// The box of a text; one of an odd angle begins where its file says.
QRectF textBox(const TextElement &element)
{
    const QPointF start(static_cast<double>(element.startLeft),
                        static_cast<double>(element.startTop));
    return startCorner(element.angle) ? rectangle(element.box)
                                      : rectangle(element.box).translated(start);
}

/// Key "angl": "2" centre, "3" right; everything else stands left.
Alignment alignmentOf(const TextElement &element)
{
    if (element.alignment == u"3"_s)
        return Alignment::right;
    return element.alignment == u"2"_s ? Alignment::centre : Alignment::left;
}

} // namespace

QString boundText(const TextElement &element, const LabelRow &row)
{
    return element.field.isEmpty() ? element.caption : fieldText(element.field, row);
}

QStringList boundFields(const LabelLayout &layout)
{
    QStringList names;
    for (const TextElement &text : layout.texts)
        if (!text.field.isEmpty())
            names += text.field;
    names.removeDuplicates();
    return names;
}

BuiltLabel LabelBuilder::label(const LabelRow &row)
{
    BuiltLabel label;
    label.commands.reserve(m_job.pictures.size() + m_job.barcodes.size() + 2 * m_job.texts.size());
    addPictures(label);
    addBarcodes(row, label);
    for (std::size_t i = 0; i < m_job.texts.size(); ++i)
        addText(i, row, label);
    return label;
}

void LabelBuilder::addPictures(BuiltLabel &label) const
{
    for (std::size_t i = 0; i < m_job.pictures.size(); ++i) {
        const PictureElement &element = m_job.pictures[i];
        if (!element.file.isEmpty())
            label.commands.push_back({PictureCommand{rectangle(element.box), element.file},
                                      elementRef(ElementKind::picture, i)});
    }
}

void LabelBuilder::addBarcodes(const LabelRow &row, BuiltLabel &label)
{
    if (m_job.barcodes.empty())
        return;
    m_symbology = ean::bySize(row.barcode, m_symbology);
    auto symbol = ean::encode(m_symbology, row.barcode);
    if (!symbol)
        return;
    for (std::size_t i = 0; i < m_job.barcodes.size(); ++i) {
        const BarcodeElement &element = m_job.barcodes[i];
        const bool last = i + 1 == m_job.barcodes.size();
        label.commands.push_back(
            {BarsCommand{rectangle(element.box), last ? std::move(*symbol) : *symbol, element.font,
                         colourOf(element.colour).rgb()},
             elementRef(ElementKind::barcode, i)});
    }
}

void LabelBuilder::addText(std::size_t index, const LabelRow &row, BuiltLabel &label) const
{
    const TextElement &element = m_job.texts[index];
    PlacedText placed = placeText({.box = textBox(element),
                                   .angle = element.angle,
                                   .alignment = alignmentOf(element),
                                   .font = element.font,
                                   .colour = colourOf(element.colour).rgb(),
                                   .text = boundText(element, row).left(kLongestText)},
                                  m_measure);
    for (TextCommand &line : placed.lines) {
        line.nudge = kTextNudge;
        label.commands.push_back({std::move(line), elementRef(ElementKind::text, index)});
    }
    if (!placed.fits)
        label.overflowing.push_back(index);
}

BuiltLabel buildLabel(const LabelLayout &layout, const LabelRow &row, const TextMeasure &measure)
{
    const PrintJob job = makePrintJob(layout, {row});
    return LabelBuilder(job, measure).label(job.rows.front());
}
