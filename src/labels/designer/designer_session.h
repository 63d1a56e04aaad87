#pragma once

#include "common/program.h"
#include "labels/designer/design_checks.h"
#include "labels/designer/design_editor.h"
#include "labels/designer/design_files.h"
#include "labels/designer/picture_folder.h"
#include "labels/designer/printer_sheet.h"
#include "labels/designer/sample_rows.h"
#include "labels/layout/label_sheets.h"
#include "labels/print/print_job.h"

#include <QTimer>

#include <functional>

/// One designer window's work: which layout is open, what of it is saved, and the stock whose
/// values it shows.
class DesignerSession final : public QObject
{
    Q_OBJECT

public:
    explicit DesignerSession(Program &program, QObject *parent = nullptr);

    DesignEditor &editor() { return m_editor; }
    PictureFolder &pictures() { return m_pictures; }
    const QString &fileName() const { return m_fileName; } ///< "" = never saved
    QString title() const;

    /// Runs `then` when the work on screen is saved or given up. The user is asked; who wants to
    /// save is shown the save dialog first.
    void guarded(const std::function<void()> &then);
    /// The save dialog was closed without saving: what waited for it does not happen.
    void saveAbandoned() { m_then = nullptr; }

    void newLayout();
    /// Opens a layout of the folder `ayar`. False when that is none of them (told).
    bool ac(const QString &fileName);
    /// Saves under a name as the save dialog does; a file of that name is replaced only when the
    /// user confirms. `makeDefault`: it also becomes the layout that prints without a question.
    /// True when it was saved.
    bool kaydet(const QString &name, bool makeDefault);
    /// The same with the words of the save-as dialog.
    bool saveAs(const QString &name);
    bool isDefault() const;

    /// Keeps a copy of unsaved work beside; done every twenty seconds.
    void keepCopy();
    /// Asks whether to go on with the copy of a program that ended unexpectedly, and does.
    bool recover();

    /// Label papers as they are sold: those of the shop's file, or those that came with it.
    std::vector<LabelSheet> sheets() const;
    /// The machine's printers and what they can do.
    QStringList printers() const { return m_program.printers.names(); }
    QList<PrinterPaper> papers(const QString &printer) const;
    /// A printer is asked once for each of its papers and qualities.
    PrinterSheet sheetOf(const LabelLayout &layout);
    /// Printers are asked anew: one may have been switched on.
    void forgetPrinters() { m_sheets.clear(); }
    /// How a printer is made to hit the paper, in words.
    QString calibrationText(const LabelLayout &layout);
    /// The printer was calibrated anew.
    void printerWasSet();
    /// Tells the user why something typed is not taken.
    void refuse(const QString &problem) { m_program.caution(problem); }

    /// What the user should know of the elements before printing.
    const std::vector<DesignNotice> &notices() const { return m_notices; }
    /// Label, paper and printer in a few lines.
    QString overview();
    /// Whether selected barcodes can be made as large as a scanner needs them, and that done.
    bool canMakeReadable();
    void makeReadable();

    /// The stocks whose values bound texts and barcodes show; an empty list shows samples. Reads
    /// what bound texts need beyond the rows; throws HostError.
    void setRows(const std::vector<LabelRow> &rows);
    void stepRow(int by);
    LabelRow row() const { return m_samples.current(m_editor.layout()); }
    QString rowText() const { return m_samples.place(); } ///< which of how many, for the user
    /// The layout with the rows that are shown, ready to be printed.
    PrintJob printJob() const;
    /// The place at which the sheet in the printer goes on. It belongs to the sheet, not to the
    /// layout: it is not undone, and the print dialog offers it.
    qint64 firstPlace() const { return m_firstPlace; }
    void setFirstPlace(qint64 place);
    qint64 places() const; ///< of a sheet, 1 where that cannot be counted
    /// The stock card's columns, which texts can be bound to beside the named fields.
    const QStringList &columns() { return m_samples.columns(); }

Q_SIGNALS:
    void titleChanged();
    /// The design was replaced by another.
    void opened();
    void rowChanged();
    void noticesChanged();
    /// Another printer, paper or quality.
    void printerChanged(const PrinterSheet &sheet);
    void saveWanted();
    void statusChanged(const QString &text);

private:
    /// What a printer has said.
    struct KnownSheet
    {
        QString printer;
        PrinterSetup setup;
        PrinterSheet sheet;
    };

    void load(const Design &design, const QString &fileName, bool saved = true);
    PrinterSheet ask(const QString &printer, const PrinterSetup &setup);
    bool refusedName(const QString &name);
    bool finishSaving(const QString &file, bool there);

    void lookSoon();
    void startLooking();
    double printerDpi() { return sheetOf(m_editor.layout()).dpi.width(); }
    void look();

    Program &m_program;
    DesignFiles m_files;
    PictureFolder m_pictures;
    DesignEditor m_editor;
    QString m_fileName;
    std::function<void()> m_then;
    SampleRows m_samples;
    qint64 m_firstPlace = 1;
    Design m_copied; ///< as the copy beside has it
    QTimer m_copyTimer;
    DesignChecks m_checks;
    std::vector<DesignNotice> m_notices;
    QTimer m_lookTimer; ///< looking through a large design waits for a pause of the hands
    QTimer m_lookOn;    ///< and goes on between what the hands do
    std::vector<KnownSheet> m_sheets;
    PrinterSheet m_sheet; ///< of the open layout, as it was told last
};

/// Whether unsaved work of a program that ended unexpectedly waits in the folder.
bool hasRecovery(Program &program);
