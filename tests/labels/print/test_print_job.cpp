#include "labels/print/print_job.h"
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
    const struct
    {
        QString code;
        QString quality;
        QString orientation;
        PrinterSetup expected;
    } cases[] = {
        {u"9"_s, u"-4"_s, u"1"_s, {u"d"_s, true, 9, -4, {}}},
        {u"256"_s, u"600"_s, u"2"_s, {u"d"_s, false, 256, 600, {}}},
        {u""_s, u""_s, u""_s, {u"d"_s, false, 0, 0, {}}},
        {u"-3"_s, u"-5"_s, u"01"_s, {u"d"_s, false, 0, 0, {}}},
        {u"9,4"_s, u"1e9"_s, u"1 "_s, {u"d"_s, false, 9, 0, {}}},
        {u"99999999999999999999"_s, u"99999999999999999999"_s, u"1"_s, {u"d"_s, true, 0, 0, {}}},
    };
    for (const auto &c : cases) {
        LabelLayout layout;
        layout.paperCode = c.code;
        layout.quality = c.quality;
        layout.orientation = c.orientation;
        EXPECT_EQ(printerSetup(layout, u"d"_s), c.expected) << c.code.toStdString();
    }
}
