#pragma once

#include "common/program.h"
#include "common/time_slices.h"
#include "labels/layout/layout_folder.h"
#include "labels/print/print_job.h"
#include "labels/print/print_memory.h"
#include "labels/print/print_problems.h"
#include "labels/print/print_request.h"
#include "labels/print/printer_setting.h"

#include <QImage>
#include <QObject>

/// Prints labels. What would come out other than the user thinks is told first, and the run waits
/// for the answer. It handles events while it prints, so that it can be watched and stopped; it
/// must outlive its runs, and a run asked for meanwhile is refused.
class PrintRun final : public QObject
{
    Q_OBJECT

public:
    explicit PrintRun(Program &program, QObject *parent = nullptr);

    bool isRunning() const { return m_running; }

    LayoutFolder &layouts() { return m_layouts; }
    PrintMemory &memory() { return m_memory; }
    QStringList printers() const { return m_program.printers.names(); }
    PrinterSetting printerSetting(const LabelLayout &layout) const { return {m_program, layout}; }

    /// Reads what a layout shows of the first row beyond what the row has, for its preview; without
    /// the host nothing, as the run will say.
    void readFirst(PrintRequest &request, const LabelLayout &layout) const;

    /// The first label of a request in a layout, no larger than `most` pixels.
    QImage preview(const PrintRequest &request, const LabelLayout &layout, QSize most) const;

    /// One line about a layout: labels on the sheet, paper, and when its file cannot be read well.
    QString describe(const QString &name, const LabelLayout &layout) const;

    /// False, and the user is told to choose, unless a name from the print dialog is a layout's.
    bool requireLayout(const QString &layout);

public Q_SLOTS:
    /// Prints a request with the default layout; without one, or where the layout is to be chosen,
    /// the print dialog is asked for. Nothing happens when there are no rows.
    void start(const PrintRequest &request);

    /// Prints a request with a layout of the folder `ayar`. True when it was printed at once; it is
    /// not yet while the user is asked about its problems.
    bool yazzzz(const PrintRequest &request, const QString &layout);

    /// The user's answer to problemsFound(). `remember`: the problems of the layout are not asked
    /// about again.
    void answer(bool print, bool remember = false);

    /// Ends the run before the next label; nothing of it is printed.
    void stop();

Q_SIGNALS:
    void layoutWanted(const PrintRequest &request);
    /// Something would come out other than the user thinks: the run waits for answer().
    void problemsFound(const std::vector<PrintProblem> &problems);
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

    /// What is about to be printed.
    struct Pending
    {
        QString layout; ///< file name
        QString printer;
        PrintJob job;
        QString problemKey;
    };

    bool prepare(const PrintRequest &request, const QString &name);
    bool printPending();
    bool finish(bool printed);
    void refused(const QString &why);
    std::vector<PrintProblem> problems() const;
    void paint(const PrintJob &job);
    template <typename Step>
    bool guarded(Step step);

    Program &m_program;
    LayoutFolder m_layouts;
    PrintMemory m_memory;
    Pending m_pending;
    bool m_running = false;
    bool m_waiting = false; ///< for answer()
    std::unique_ptr<PrintDocument> m_document;
    TimeSlices m_slices;
    int m_pages = 0;
};
