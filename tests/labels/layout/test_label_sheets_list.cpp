#include "labels/layout/label_sheets.h"
#include "support/files.h"
#include "support/print_qt.h"
#include "support/test_machine.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SheetList, ShippedSheetsAreRead)
{
    const QByteArray text = readFile(sourcePath("/demo/ayar/kagitlar.csv"));
    const auto sheets = readSheets(text);
    EXPECT_EQ(static_cast<qsizetype>(sheets.size()), text.count('\n') - 3); // but for its remarks
    EXPECT_EQ(sheets.front(), (LabelSheet{u"A4, 65 etiket 38,1 × 21,2, aralıklı (L7651, 8651)"_s,
                                          sheets.front().paper, 5, 13, sheets.front().label,
                                          sheets.front().first, sheets.front().step}));
    LabelLayout layout;
    useSheet(&layout, sheets.front());
    EXPECT_EQ((QStringList{layout.paperWidth, layout.paperHeight, layout.left, layout.top,
                           layout.stepX, layout.stepY, layout.across, layout.down}),
              (QStringList{u"210"_s, u"297"_s, u"4,7"_s, u"10,9"_s, u"40,6"_s, u"21,2"_s, u"5"_s,
                           u"13"_s}));
    useSheet(&layout, sheets.front(), {4.2, 5});
    EXPECT_EQ(layout.left, u"0,5"_s);
    EXPECT_EQ(layout.top, u"5,9"_s);
}

TEST(SheetList, LinesThatMakeNoSheetArePassedOver)
{
    EXPECT_EQ(readSheets("210;297;2;2;100;100;5;5;100;100;Benim; kâğıdım\r\n"
                         "# 210;297;2;2;100;100;5;5;100;100;yorum\n"
                         "210;297;2;2;100;100;5;5;100;100;\n"
                         "210;297;3;2;100;100;5;5;100;100;kâğıttan geniş\n"
                         "210;297;0;2;100;100;5;5;100;100;sıfır\n"
                         "210;x;2;2;100;100;5;5;100;100;harf\n"
                         "kısa;satır")
                  .size(),
              1U);
}

TEST(SheetList, MeasuredPaperBecomesASheet)
{
    const struct
    {
        MeasuredPaper paper;
        int across;
        int down;
    } cases[] = {
        {{{210, 297}, {4.7, 10.9}, {38.1, 21.2}, {2.5, 0}, 0, 0}, 5, 13},
        {{{210, 297}, {0, 0}, {70, 37}, {0, 0}, 3, 8}, 3, 8},
        {{{58, 40}, {0, 0}, {58, 40}, {0, 0}, 0, 0}, 1, 1},
        {{{210, 297}, {0, 0}, {220, 37}, {0, 0}, 0, 0}, 0, 0},
        {{{210, 297}, {0, 0}, {0, 37}, {0, 0}, 0, 0}, 0, 0},
        {{{210, 297}, {0, 0}, {70, 37}, {0, 0}, 4, 8}, 0, 0},
    };
    for (const auto &c : cases) {
        const auto sheet = measuredSheet(c.paper);
        ASSERT_EQ(sheet.has_value(), c.across > 0) << c.paper.label.width();
        if (sheet) {
            EXPECT_EQ(sheet->across, c.across);
            EXPECT_EQ(sheet->down, c.down);
            EXPECT_NEAR(sheet->step.x(), c.paper.label.width() + c.paper.gap.x(), 1e-9);
        }
    }
}
