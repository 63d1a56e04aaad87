#pragma once

#include "labels/print/label_builder.h"
#include "paper/picture_store.h"

/// Whether a shop's scanner can be trusted to read a barcode as it will be printed. One rule for
/// the canvas on which labels are drawn, for its panel and for the question before printing.

/// Figures of the field for what must at least be printed.
inline constexpr double kNarrowestModule = 0.264; ///< mm, the symbol at 80 %
inline constexpr int kFewestDots = 2;             ///< of the printer, in a module
inline constexpr double kLeastHeight = 0.8;       ///< of the height that goes with the module

/// Why a barcode may not be read.
struct ScanFault
{
    enum Kind
    {
        room,    ///< no symbol goes into the element's box
        module,  ///< its bars are too narrow
        height,  ///< its bars are cut too low
        outside, ///< its quiet zone reaches beyond the label
        covered, ///< something else is printed on it or on its quiet zone
        colour   ///< its bars look like paper to a scanner
    };
    Kind kind = room;
    QString text;              ///< for the user, in lower case
    bool fromRowTexts = false; ///< only texts that differ from row to row are to blame

    friend bool operator==(const ScanFault &, const ScanFault &) = default;
};

/// What keeps a number from being printed as it is: missing, of a wrong length, with a wrong check
/// digit, or completed to another number; "" when nothing does. `inForce`: the symbology of the
/// barcode before it, which numbers of unusual length take.
QString numberFault(QStringView number, ean::Symbology inForce);

/// The faults of one barcode that come from its element, the label (mm, empty: not known) and the
/// device alone.
std::vector<ScanFault> barFaults(const BarsCommand &bars, QSizeF label, const DeviceFonts &fonts);

/// Finds what else of a label is printed on its barcodes.
class CoverSearch
{
public:
    /// All are kept by reference.
    CoverSearch(const BuiltLabel &label, const PrintJob &job, const DeviceFonts &fonts,
                PictureStore &pictures);

    /// Around what the label's command of that number draws (mm).
    const QRectF &place(std::size_t command) const { return m_places[command]; }

    /// The fault of the barcode that the command of that number draws.
    std::optional<ScanFault> fault(std::size_t bars);

private:
    bool covered(const QRect &zone, int red, const std::vector<std::size_t> &others);
    bool darkens(std::size_t other, const QRect &zone, int red);
    bool showsDark(const std::vector<DrawCommand> &commands, const QRect &part, int red);

    const BuiltLabel &m_label;
    const PrintJob &m_job;
    const DeviceFonts &m_fonts;
    PictureStore &m_pictures;
    std::vector<QRectF> m_places; ///< of m_label's commands
};

/// The smallest box (mm) in which a symbol is free of faults at a resolution (dots per inch), of
/// those that are no smaller than `least`: wider bars want to be higher.
QSizeF smallestBox(const BarSymbol &symbol, const PaperFont &digits, double dpi, QSizeF least = {});

/// The resolutions that printers of labels and of offices have.
inline constexpr double kUsualResolutions[] = {203, 300, 600};
