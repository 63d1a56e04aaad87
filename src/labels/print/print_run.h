#pragma once

#include "common/program.h"
#include "common/time_slices.h"
#include "labels/layout/layout_folder.h"
#include "labels/print/print_job.h"
#include "labels/print/print_request.h"

#include <QImage>
#include <QObject>

/// Prints labels. It handles events while it runs, so that the run can be watched and stopped;
/// it must outlive its runs, and a run asked for meanwhile is refused.
class PrintRun final : public QObject
{
    Q_OBJECT

public:
    explicit PrintRun(Program &program, QObject *parent = nullptr);

    bool isRunning() const { return m_running; }

    LayoutFolder &layouts() { return m_layouts; }

    /// The first label of a request in a layout, no larger than `most` pixels.
    QImage preview(const PrintRequest &request, const LabelLayout &layout, QSize most) const;

    /// One line about a layout: labels on the sheet, paper.
    static QString describe(const LabelLayout &layout);

    /// False, and the user is told to choose, unless a name from the print dialog is a layout's.
    bool requireLayout(const QString &layout);

public Q_SLOTS:
    /// Prints a request with the default layout; without one, or where the layout is to be chosen,
    /// the print dialog is asked for. Nothing happens when there are no rows.
    void start(const PrintRequest &request);

    /// Prints a request with a layout of the folder `ayar`. True when it was printed.
    bool yazzzz(const PrintRequest &request, const QString &layout);

    /// Ends the run before the next label; nothing of it is printed.
    void stop() { m_slices.stop(); }

Q_SIGNALS:
    void layoutWanted(const PrintRequest &request);
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

    bool runDocument(const QString &name, const std::vector<LabelRow> &rows);
    bool confirmProblems(const PrintJob &job);
    void paint(const PrintJob &job);

    Program &m_program;
    LayoutFolder m_layouts;
    bool m_running = false;
    std::unique_ptr<PrintDocument> m_document;
    TimeSlices m_slices;
    int m_pages = 0;
};
