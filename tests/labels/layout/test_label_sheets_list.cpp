#include "labels/layout/label_sheets.h"
#include "support/cases.h"
#include "support/print_qt.h"

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
    for (const Case &c : cases(u"measured_sheets"_s)) {
        const auto at = [&](int field) { return static_cast<int>(c.number(field)); };
        const MeasuredPaper paper{{c.number(0), c.number(1)},
                                  {c.number(2), c.number(3)},
                                  {c.number(4), c.number(5)},
                                  {c.number(6), c.number(7)},
                                  at(8),
                                  at(9)};
        const auto sheet = measuredSheet(paper);
        EXPECT_EQ(sheet ? sheet->across : 0, at(10)) << c;
        EXPECT_EQ(sheet ? sheet->down : 0, at(11)) << c;
        if (sheet) {
            EXPECT_NEAR(sheet->step.x(), paper.label.width() + paper.gap.x(), 1e-9) << c;
        }
    }
}
