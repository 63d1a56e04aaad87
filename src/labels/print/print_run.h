#pragma once

#include "common/program.h"
#include "labels/print/layout_folder.h"
#include "labels/print/print_job.h"

#include <QElapsedTimer>
#include <QImage>
#include <QObject>

/// What the print dialog was opened for; the numbers are those of its mode.
enum class PrintMode
{
    all = 1,
    selected = 2
};

/// Prints the queue. It handles events while it runs, so that the run can be watched and stopped;
/// it must outlive its runs, and a run asked for meanwhile is refused.
class PrintRun final : public QObject
{
    Q_OBJECT

public:
    explicit PrintRun(Program &program, QObject *parent = nullptr);

    bool isRunning() const { return m_running; }

    LayoutFolder &layouts() { return m_layouts; }

    /// The first waiting label in a layout, no larger than `most` pixels.
    QImage preview(const LabelLayout &layout, QSize most) const;

    /// One line about a layout: labels on the sheet, paper.
    static QString describe(const LabelLayout &layout);

    /// False, and the user is told to choose, unless a name from the print dialog is a layout's.
    bool requireLayout(const QString &layout);

public Q_SLOTS:
    /// Print all rows, or the row `selected`, with the default layout; without one the print dialog
    /// is asked for. Nothing happens when there are no rows.
    void yzdtum(const std::vector<LabelRow> &rows);
    void yzdsec(const std::vector<LabelRow> &rows, int selected);

    /// Asks which layout to print all rows with, also where there is a default.
    void chooseLayout(const std::vector<LabelRow> &rows);

    /// Prints the rows yzdtum() or yzdsec() was given last, all of them or the selected one, with a
    /// layout of the folder `ayar`. True when they were printed.
    bool yazzzz(const QString &layout);
    bool yazzzz2(const QString &layout);
    bool print(PrintMode mode, const QString &layout);

    /// Ends the run before the next label; nothing of it is printed.
    void stop() { m_stopped = true; }

Q_SIGNALS:
    void layoutWanted(PrintMode mode);
    void started(qint64 labels);
    /// About twenty times a second while printing; `label` of `labels` is drawn, on sheet `page`.
    void progressed(qint64 label, qint64 labels, int page);
    void rowStarted(int queueRow);
    /// The run ended, whether it had started or not.
    void finished(bool printed);
    /// How a run ended, in words.
    void statusChanged(const QString &text);

private:
    bool yazicitamam(const LabelLayout &layout, const QString &name);
    bool yaziciseciver(const QString &device, const PrinterSetup &setup);

    void start(const std::vector<LabelRow> &rows, int selected, PrintMode mode);
    bool printRows(const QString &name, std::vector<LabelRow> rows, int firstRow);
    bool runDocument(const QString &name, std::vector<LabelRow> rows, int firstRow);
    bool confirmProblems(const PrintJob &job);
    void paint(const PrintJob &job, int firstRow);
    bool goOn(qint64 label, qint64 labels, int page);
    std::vector<LabelRow> selectedRow() const;

    Program &m_program;
    LayoutFolder m_layouts;
    std::vector<LabelRow> m_rows; ///< waiting to be printed
    int m_selected = -1;
    PrintMode m_mode = PrintMode::all;
    bool m_running = false;
    bool m_stopped = false;
    std::unique_ptr<PrintDocument> m_document;
    QElapsedTimer m_sinceEvents;
    int m_pages = 0;
};
