#pragma once

#include <QList>
#include <QSizeF>
#include <QStringList>

#include <memory>
#include <stdexcept>

QT_BEGIN_NAMESPACE
class QPagedPaintDevice;
QT_END_NAMESPACE

/// What a printer is told before the first page.
struct PrinterSetup
{
    QString document;     ///< name of the print job
    bool portrait = true; ///< false: landscape
    int paperCode = 0;    ///< Windows paper size number (9 = A4, 256 = own size); 0: the printer's
    int quality = 0;      ///< −1 draft … −4 high, or dots per inch; 0: the printer's
    QSizeF paper;         ///< paper size in mm, for codes that name no standard size; may be empty

    friend bool operator==(const PrinterSetup &, const PrinterSetup &) = default;
};

/// A paper that a printer can be told to use.
struct PrinterPaper
{
    QString name;
    int code = 0; ///< Windows paper size number
    QSizeF size;  ///< mm, upright

    friend bool operator==(const PrinterPaper &, const PrinterPaper &) = default;
};

/// A printer that cannot be opened or fails while printing; the text is for the user.
class PrintError : public std::runtime_error
{
public:
    explicit PrintError(const QString &text) : std::runtime_error(text.toStdString()) {}
    QString text() const { return QString::fromUtf8(what()); }
};

/// One document on its way to a printer. Dropped without finish(), nothing is printed.
class PrintDocument
{
public:
    virtual ~PrintDocument() = default;

    /// Paint on this with one QPainter; its newPage() starts the next sheet. The painter must have
    /// ended before finish(). Origin: the corner of the printable area.
    virtual QPagedPaintDevice &device() = 0;

    /// Says that the document will not be finished, so that a printer that is fed while it is
    /// painted stops. To be called while the painter is still active.
    virtual void cancel() {}

    /// Hands the document to the printer. Throws PrintError.
    virtual void finish() = 0;
};

/// The machine's printers and the built-in "PDF", which writes one file per document into the
/// folder `cikti` of the working folder.
class Printers
{
public:
    virtual ~Printers() = default;

    /// Device names, in the system's order, the built-in one last.
    virtual QStringList names() const = 0;

    /// The papers of a printer, or the usual ones for a printer that names none.
    virtual QList<PrinterPaper> papers(const QString &) const { return {}; }

    /// Opens the first printer of exactly that name; null when there is none. Throws PrintError.
    virtual std::unique_ptr<PrintDocument> open(const QString &name, const PrinterSetup &setup) = 0;
};

/// Name of the built-in printer.
inline constexpr QStringView kPdfPrinter = u"PDF";
