#pragma once

#include "labels/layout/label_ref.h"
#include "labels/print/ean.h"
#include "labels/print/print_job.h"
#include "paper/text_block.h"

/// What a draw command of a label was made for: its ElementRef::kind is the kind of element, the
/// index counts from 0 in the layout's list of that kind.
inline ElementRef elementRef(ElementKind kind, std::size_t index)
{
    return {static_cast<int>(kind), static_cast<int>(index)};
}

/// One label ready to draw, millimetres from its upper left corner.
struct BuiltLabel
{
    std::vector<DrawCommand> commands;
    std::vector<std::size_t> overflowing; ///< texts of the layout that do not fit their boxes
};

/// Turns queue rows into draw commands, one label at a time: a run of a million labels needs no
/// more memory than one label.
class LabelBuilder
{
public:
    /// Both are kept by reference.
    LabelBuilder(const PrintJob &job, const TextMeasure &measure) : m_job(job), m_measure(measure)
    {}

    /// One label: pictures lowest, then barcodes, then texts. All labels of one row are alike. Rows
    /// must come in print order: a barcode of unusual length is drawn in the symbology of the
    /// barcode before it.
    BuiltLabel label(const LabelRow &row);

private:
    void addPictures(BuiltLabel &label) const;
    void addBarcodes(const LabelRow &row, BuiltLabel &label);
    void addText(std::size_t index, const LabelRow &row, BuiltLabel &label) const;

    const PrintJob &m_job;
    const TextMeasure &m_measure;
    ean::Symbology m_symbology = ean::Symbology::ean13;
};

/// One label of a layout on its own, as a canvas shows it: the element numbers are the layout's,
/// and `measure` decides on which device its lines break.
BuiltLabel buildLabel(const LabelLayout &layout, const LabelRow &row, const TextMeasure &measure);

/// The fields that texts of a layout are bound to, each once.
QStringList boundFields(const LabelLayout &layout);

/// The text a bound element prints: its field's value, or the caption of a free text.
QString boundText(const TextElement &element, const LabelRow &row);
