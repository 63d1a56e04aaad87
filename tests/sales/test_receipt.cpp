#include "paper/paged_canvas.h"
#include "sales/priced_line.h"
#include "sales/receipt_commands.h"
#include "sales/receipt_store.h"
#include "sales/till_shop.h"
#include "support/cases.h"
#include "support/golden.h"

#include <QBuffer>
#include <QPdfWriter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

ReceiptLayout plainLayout()
{
    ReceiptLayout layout;
    layout.headerOptions = u"x<>Arial<>12<>true"_s;
    layout.headerText = u"BAKKAL<*say*><\\?\\>Çarşı 1"_s;
    layout.receiptOptions = u"<>Courier<>8<>false"_s;
    layout.aboveText = u"Hoş geldiniz"_s;
    layout.belowText = u"Teşekkürler"_s;
    layout.productOptions = u"<>Arial<>9<>False"_s;
    layout.widths = {70, 60, 30, 10, 9.5, 20, 80};
    layout.leftMargin = 3;
    return layout;
}

Receipt receiptAt(const QTime &time)
{
    Receipt receipt{{}, u"57"_s};
    receipt.sale.moment = QDateTime(QDate(2026, 3, 7), time);
    receipt.sale.lines = {pricedLine(u"1.000,50"_s, 2, {10, 0, 0}),
                          pricedLine(u"12,00"_s, 1.5, {10, 0, 0})};
    receipt.sale.lines[0][SaleColumn::name] = u"Çay"_s;
    receipt.sale.lines[1][SaleColumn::name] = u"Şeker"_s;
    receipt.sale.totals = totalsOf(receipt.sale.lines);
    receipt.sale.cash = u"2.000,00"_s;
    receipt.sale.change = pricing::change(receipt.sale.cash, receipt.sale.totals.grand);
    return receipt;
}

} // namespace

TEST(Receipt, IsDrawnBlockByBlock)
{
    Receipt receipt = receiptAt(QTime(14, 5));
    receipt.sale.cashierName = u"Ayşe"_s;
    expectGolden(u"sales/receipt.txt"_s, toText(drawReceipt(plainLayout(), receipt)));
}

TEST(Receipt, EmptyBlocksPrintNothingAndThePrinterKeepsItsFont)
{
    ReceiptLayout layout = plainLayout();
    layout.aboveText.clear();
    layout.belowText.clear();
    layout.namedFonts = false;
    const ReceiptPage page = drawReceipt(layout, receiptAt(QTime(9, 5)));
    EXPECT_TRUE(page.texts.front().font.bold);
    EXPECT_EQ(page.texts.front().font.size, 12.0);
    for (const TextBlock &text : page.texts)
        EXPECT_EQ(text.font.name, QString());
    EXPECT_EQ(page.texts[2].text, u"TARİH: 07.03.2026  SAAT: 9:5"_s);
    EXPECT_TRUE(page.texts.back().text.startsWith(u'*'));

    layout.headerText.clear();
    EXPECT_EQ(drawReceipt(layout, receiptAt(QTime(9, 5))).texts.front().text, page.texts[2].text);
}

TEST(Receipt, MarkersOfATextBlockNeedNotPair)
{
    for (const Case &c : cases(u"receipt_texts"_s))
        EXPECT_EQ(printedLines(c[0]), c.mid(1)) << c;
    EXPECT_TRUE(printedLines(QString()).isEmpty());
    const QString typed = u"bir\n\nüç"_s;
    EXPECT_EQ(editableText(blockText(typed)), typed);
    EXPECT_EQ(printedLines(blockText(typed)).size(), 3);
}

TEST(Receipt, DamagedOptionsGiveAPlainStyle)
{
    EXPECT_EQ(styleOf(u""), (ReceiptStyle{{}, {}, 9, false}));
    EXPECT_EQ(styleOf(u"a<>Arial<>8,5<>TRUE<>x"), (ReceiptStyle{u"a"_s, u"Arial"_s, 8.5, true}));
    EXPECT_EQ(styleOf(u"<>Arial<>9999<>evet"), (ReceiptStyle{{}, u"Arial"_s, 72, false}));
    EXPECT_GE(styleOf(u"<>Arial<>0,1").points, 4.0); // legible
    const ReceiptStyle style{u"k"_s, u"Arial"_s, 10.5, true};
    EXPECT_EQ(styleOf(optionString(style)), style);
}

TEST(Receipt, LongTextsStayInTheirRoom)
{
    const DeviceFonts fonts({203, 203});
    Receipt receipt = receiptAt(QTime(9, 5));
    receipt.sale.lines[0][SaleColumn::name] = u"Siyah Çay Dökme Tomurcuk 1.000 g"_s;
    receipt.sale.lines[0][SaleColumn::quantity] = u"123.456,789"_s;
    const ReceiptPage page = drawReceipt(plainLayout(), receipt);
    const auto commands = receiptCommands(page, fonts);
    ASSERT_EQ(commands.size(), page.texts.size());
    QStringList texts;
    for (std::size_t i = 0; i < commands.size(); ++i) {
        EXPECT_LE(boundingBox(commands[i], fonts).right(), page.texts[i].box.right() + 0.01);
        texts += std::get<TextCommand>(commands[i].shape).text;
    }
    EXPECT_TRUE(texts.contains(u"Siyah … 1.000 g"_s)) << texts.join(u'|').toStdString();
    EXPECT_TRUE(texts.contains(u"123.456,789X"_s));
    EXPECT_EQ(std::get<TextCommand>(commands[5].shape).font.size, 9.0); // the name keeps its type
}

TEST(Receipt, PaperThatEndsGetsANewPage)
{
    Receipt receipt = receiptAt(QTime(9, 5));
    const SaleLine line = receipt.sale.lines.front();
    receipt.sale.lines.assign(300, line);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    PagedCanvas canvas(writer);
    ASSERT_TRUE(canvas.begin());
    EXPECT_TRUE(
        canvas.paintStrip(receiptCommands(drawReceipt(plainLayout(), receipt), canvas.fonts())));
    EXPECT_TRUE(canvas.end());
    EXPECT_EQ(buffer.data().count("/Type /Page\n"), 5);
}

TEST(ReceiptStore, TheStoredLayoutIsRead)
{
    FakeMachine machine;
    for (const Case &c : cases(u"receipt_rows"_s)) {
        QMap<QString, QString> row;
        for (const QString &pair : c.mid(1))
            row.insert(pair.section(u'=', 0, 0), pair.section(u'=', 1));
        machine.db.setRow(c[0], row);
    }
    const ReceiptLayout layout = receipt_store::fisoku(machine.program.files());
    EXPECT_EQ(layout.headerText, u"AD"_s);
    EXPECT_EQ(layout.belowText, u"alt"_s);
    EXPECT_EQ(layout.lastNumber, u"41"_s);
    EXPECT_FALSE(layout.namedFonts);
    EXPECT_EQ(layout.widths[0], 70.5);
    EXPECT_EQ(layout.widths[2], 0.0);
    EXPECT_EQ(layout.paperWidth(), 58.0);
    EXPECT_EQ(layout.leftMargin, 2.5);
    EXPECT_EQ(machine.db.statements.size(), 7);
    EXPECT_EQ(machine.db.opened, QStringList{u"/shop/Fis.dbs"_s});
    EXPECT_EQ(machine.db.closed, 1);
}

TEST(ReceiptStore, ALayoutIsSavedTableByTable)
{
    FakeMachine machine;
    ReceiptLayout layout = plainLayout();
    layout.belowText = u"Ali'nin dükkânı"_s;
    receipt_store::save(machine.program.files(), layout);
    expectGolden(u"sales/receipt_save.txt"_s, machine.db.statements.join(u'\n') + u'\n');
    machine.db.failOn = [](const QString &) { return true; };
    EXPECT_THROW(receipt_store::save(machine.program.files(), layout), HostError);
    EXPECT_FALSE(receipt_store::saveNumber(machine.program.files(), u"5"_s));
}
