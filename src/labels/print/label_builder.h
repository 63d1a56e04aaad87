#pragma once

#include "labels/print/draw_commands.h"
#include "labels/print/print_job.h"

/// How much room text takes on the paper, in millimetres.
class TextMeasure
{
public:
    virtual ~TextMeasure() = default;
    virtual double width(const LabelFont &font, QStringView text) const = 0;

    /// Height of a line, which its first character's font decides.
    virtual double lineHeight(const LabelFont &font) const = 0;
};

/// Turns queue rows into draw commands, one label at a time: a run of a million labels needs no
/// more memory than one label.
class LabelBuilder
{
public:
    /// Both are kept by reference.
    LabelBuilder(const PrintJob &job, const TextMeasure &measure) : m_job(job), m_measure(measure)
    {}

    /// The commands of one label: pictures lowest, then barcodes, then texts. All labels of one row
    /// are alike. Rows must come in print order: a barcode of unusual length is drawn in the
    /// symbology of the barcode before it.
    std::vector<DrawCommand> label(const LabelRow &row);

private:
    void addPictures(std::vector<DrawCommand> &commands) const;
    void addBarcodes(const LabelRow &row, std::vector<DrawCommand> &commands);
    void addText(const TextElement &element, const QString &text,
                 std::vector<DrawCommand> &commands) const;

    const PrintJob &m_job;
    const TextMeasure &m_measure;
    ean::Symbology m_symbology = ean::Symbology::ean13;
};

/// The text a bound element prints: its field's value, or the caption of a free text.
QString boundText(const TextElement &element, const LabelRow &row);
