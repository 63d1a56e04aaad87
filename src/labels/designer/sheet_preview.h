#pragma once

#include "labels/designer/printer_sheet.h"
#include "labels/print/print_job.h"

#include <QImage>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

/// Paints the first sheet of a job in dots of its printer, from the corner of what it can print:
/// calibrated: the rows in their order from the job's first place, each as often as it is counted,
/// and the last one on to the end of the sheet. `pictures`: folder of the pictures.
void paintFirstSheet(QPainter &painter, const PrintJob &job, const PrinterSheet &printer,
                     const QString &pictures);

/// The same sheet of paper as an image of `dpi` dots per inch, at most a large screen's worth;
/// places that are used already are grey.
QImage previewSheet(const PrintJob &job, const PrinterSheet &printer, const QString &pictures,
                    double dpi);
