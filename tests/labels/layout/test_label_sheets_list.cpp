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
