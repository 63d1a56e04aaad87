#include "labels/print/print_job.h"
#include "support/cases.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PrintJob, ReadsTheLayoutsNumbers)
{
    LabelLayout layout;
    layout.left = u"4,5"_s;
    layout.top = u"x"_s;
    layout.stepX = u"-70"_s;
    layout.across = u"3"_s;
    layout.paperWidth = u"210"_s;
    layout.paperHeight = u"297"_s;
    const PrintJob job = makePrintJob(layout, {{u" 8690000000012  "_s, {}, {}, {}, 4}, {}, {}});
    EXPECT_EQ(job.grid, (SheetGrid{4.5F, 0, -70, 0, 3, 0}));
    EXPECT_EQ(job.paper, QSizeF(210, 297));
    EXPECT_EQ(job.rows[0].barcode, u"8690000000012"_s);
    EXPECT_EQ(job.labelCount(), 6);
}

TEST(PrintJob, CountsAMillionLabelsOfAMillionRows)
{
    PrintJob job;
    job.rows.assign(100'000, {{}, {}, {}, {}, 999'999});
    job.rows.push_back({{}, {}, {}, {}, -5});
    EXPECT_EQ(job.labelCount(), 99'999'900'000);
}

TEST(PrintJob, TellsThePrinterWhatItUnderstands)
{
    for (const Case &c : cases(u"printer_setups"_s)) {
        LabelLayout layout;
        layout.paperCode = c.value(0);
        layout.quality = c.value(1);
        layout.orientation = c.value(2);
        const PrinterSetup expected{
            u"d"_s, c.value(3) == u"portrait", c.value(4).toInt(), c.value(5).toInt(), {}};
        EXPECT_EQ(printerSetup(layout, u"d"_s), expected) << c;
    }
}
