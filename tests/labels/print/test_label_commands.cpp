#include "fakes/fixed_measure.h"
#include "labels/print/label_builder.h"
#include "labels/print/sheet_grid.h"
#include "paper/text_block.h"
#include "support/cases.h"
#include "support/golden.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

TextElement text(LabelBox box, double angle, const QString &alignment, const QString &caption)
{
    TextElement element;
    element.box = box;
    element.font = {u"Sans"_s, 10};
    element.angle = angle;
    element.alignment = alignment;
    element.caption = caption;
    return element;
}

const LabelRow kRow{u"8690000000012"_s, u"STK001"_s, u"Ayran 1 L"_s, u"1.234,50"_s, 1};

/// The commands of all labels of the job as text, with the places on their pages.
QString sheetText(const PrintJob &job)
{
    const FixedMeasure measure;
    LabelBuilder builder(job, measure);
    GridWalk walk(job.grid);
    QString text;
    for (const LabelRow &row : job.rows) {
        const auto commands = builder.label(row).commands;
        for (int copy = 0; copy < row.count; ++copy) {
            const GridWalk::Place place = walk.next();
            if (place.newPage)
                text += u"page\n";
            const QPointF origin(static_cast<double>(place.x), static_cast<double>(place.y));
            text += u"label %1 %2\n"_s.arg(origin.x()).arg(origin.y());
            for (const DrawCommand &command : commands)
                text += u"  "_s + toText(command, origin) + u'\n';
        }
    }
    return text;
}

QString labelText(const PrintJob &job, const LabelRow &row = kRow)
{
    const FixedMeasure measure;
    QString text;
    for (const DrawCommand &command : LabelBuilder(job, measure).label(row).commands)
        text += toText(command) + u'\n';
    return text;
}

} // namespace

TEST(LabelCommands, EachAngleAndAlignment)
{
    // The run box is 30 mm long at every angle, the text 8 mm wide: 22 mm of room.
    QString all;
    for (const double angle : {0.0, 90.0, 180.0, 270.0, 45.0}) {
        const bool upright = angle == 90 || angle == 270;
        const LabelBox box = upright ? LabelBox{10, 5, 4, 30} : LabelBox{10, 5, 30, 4};
        for (const QString &alignment : {u"1"_s, u"2"_s, u"3"_s, u""_s}) {
            PrintJob job;
            job.texts = {text(box, angle, alignment, u"Elma"_s)};
            all += u"angle %1 alignment \"%2\"\n  "_s.arg(angle).arg(alignment) + labelText(job);
        }
    }
    expectGolden(u"labels/angles.txt"_s, all);
}

TEST(LabelCommands, OddAnglesStartWhereTheirFileSays)
{
    PrintJob job;
    job.texts = {text({0, 0, 30, 4}, 45, u"3"_s, u"Elma"_s)};
    job.texts[0].startLeft = 7;
    job.texts[0].startTop = 9;
    EXPECT_EQ(labelText(job), u"text 7.00 9.00 angle 45 #000000 \"Sans\" 10pt \"Elma\"\n"_s);
}

TEST(LabelCommands, FieldsFontsAndLayersOfALabel)
{
    PrintJob job;
    job.pictures = {{{1, 1, 10, 8}, u"logo.png"_s}, {{0, 0, 5, 5}, QString()}};
    job.barcodes = {{{2, 20, 40, 18}, {u"Sans"_s, 8}, 0x0000FF, 3, 4, u"12345670"_s}};
    for (const QString &field :
         {u"Stok Kodu"_s, u"Barkod"_s, u"Stok Adı"_s, u"Fiyat"_s, u"Renk"_s, QString()}) {
        TextElement element = text({2, 2, 60, 5}, 0, u"1"_s, u"Yazı"_s);
        element.field = field;
        job.texts.push_back(element);
    }
    job.texts.back().font = {u"Serif"_s, 12.5, true, true, true, true};
    job.texts.back().colour = 0xC08040;
    job.texts.push_back(text({2, 2, 60, 5}, 0, u"1"_s, QString()));
    expectGolden(u"labels/label.txt"_s, labelText(job));
}

TEST(LabelCommands, SheetOfLabels)
{
    PrintJob job;
    job.grid = {5, 10, 70, 37, 3, 2};
    job.texts = {text({2, 3, 60, 5}, 0, u"1"_s, QString())};
    job.texts[0].field = u"Stok Kodu"_s;
    job.barcodes = {{{2, 20, 40, 18}, {u"Sans"_s, 8}, 0, 0, 0, QString()}};
    LabelRow other = kRow;
    other.stockCode = u"STK002"_s;
    other.barcode = u"12345670"_s;
    other.count = 5;
    LabelRow none = kRow;
    none.count = 0;
    job.rows = {kRow, kRow, none, other};
    expectGolden(u"labels/sheet.txt"_s, sheetText(job));
}

TEST(LabelCommands, SymbologyFollowsTheLengthAndElseStays)
{
    PrintJob job;
    job.barcodes = {{{0, 0, 40, 20}, {}, 0, 0, 0, QString()}};
    const FixedMeasure measure;
    LabelBuilder builder(job, measure);
    for (const Case &c : cases(u"run_of_barcodes"_s)) {
        LabelRow row = kRow;
        row.barcode = c[0];
        const auto commands = builder.label(row).commands;
        EXPECT_EQ(commands.empty(), c[1].isEmpty()) << c;
        for (const DrawCommand &command : commands)
            EXPECT_TRUE(toText(command).contains(c[1])) << c;
    }
}

TEST(LabelCommands, LinesStayInsideTheirBox)
{
    // A letter is 2 mm wide, a line 4 mm high.
    QString all;
    for (const Case &c : cases(u"lines_in_a_box"_s)) {
        const LabelBox box{0, 0, static_cast<float>(c.number(0)), static_cast<float>(c.number(1))};
        PrintJob job;
        job.texts = {text(box, c.number(2), u"1"_s, c.value(3))};
        all += u"%1 x %2, %3 degrees\n"_s.arg(c[0], c[1], c[2]);
        all += labelText(job);
    }
    expectGolden(u"labels/lines.txt"_s, all);
}

TEST(LabelCommands, LongTextsEndSoon)
{
    PrintJob job;
    job.texts = {text({0, 0, 0.5F, 1e30F}, 0, u"3"_s, QString(100'000, u'x')),
                 text({0, 0, 50, std::numeric_limits<float>::quiet_NaN()}, 0, u"2"_s,
                      u"a b c "_s.repeated(20'000))};
    job.texts[1].font.size = std::numeric_limits<double>::quiet_NaN();
    const FixedMeasure measure;
    EXPECT_LE(LabelBuilder(job, measure).label(kRow).commands.size(), 2000U);
}
