#include "sales/forms/receipt_designer.h"
#include "sales/list_look.h"
#include "sales/receipt_editor.h"
#include "sales/till_shop.h"

#include <QDoubleSpinBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Designer : testing::Test
{
    TillShop shop;
    ReceiptEditor editor{shop.program};
    ReceiptDesigner form{editor};

    void press(const QString &button)
    {
        QTest::mouseClick(form.findChild<QPushButton *>(button), Qt::LeftButton);
    }
};

} // namespace

TEST_F(Designer, WhatIsTypedIsSeenPrintedAndSaved)
{
    form.findChild<QPlainTextEdit *>(u"belowText"_s)->setPlainText(u"Yine bekleriz\nGüle güle"_s);
    form.findChild<QDoubleSpinBox *>(u"b3"_s)->setValue(28.5);
    const ReceiptPage page = editor.preview();
    EXPECT_EQ(page.texts.back().text, u"Güle güle"_s);
    EXPECT_GE(form.findChild<QWidget *>(u"preview"_s)->minimumHeight(), 50);

    press(u"testButton"_s);
    ASSERT_EQ(shop.printed().size(), 1U);
    EXPECT_EQ(shop.printed()[0].texts.last(), u"Güle güle"_s);

    shop.db.statements.clear();
    press(u"saveButton"_s);
    EXPECT_EQ(shop.db.statements.size(), 6);
    EXPECT_TRUE(
        shop.db.statements.at(1).contains(u"alt = 'Yine bekleriz<*say*><\\?\\>Güle güle'"_s));
    EXPECT_TRUE(shop.db.statements.at(4).contains(u"b3 = '28,5'"_s));
}

TEST_F(Designer, ARefusedSaveKeepsWhatWasTypedAndClosingAsks)
{
    EXPECT_TRUE(editor.mayClose()); // nothing typed yet
    form.findChild<QPlainTextEdit *>(u"headerText"_s)->setPlainText(u"Bakkal"_s);
    shop.db.failOn = [](const QString &statement) { return statement.startsWith(u"Update"_s); };
    form.show();
    press(u"saveButton"_s);
    EXPECT_EQ(shop.prompt.shown.size(), 1U);
    EXPECT_TRUE(form.isVisible());
    press(u"closeButton"_s);
    EXPECT_TRUE(form.isVisible());
    shop.prompt.answers = {Answer::yes};
    press(u"closeButton"_s);
    EXPECT_FALSE(form.isVisible());
}

TEST(ListColours, TextIsAlwaysReadable)
{
    struct Case
    {
        QString rows, text;
        QColor shown;
    };
    for (const auto &[rows, text, shown] : std::vector<Case>{
             {u"16777215<1234>16447985"_s, u"0"_s, Qt::black},
             {u"16777215<1234>16447985"_s, u"255"_s, Qt::black}, // red on white: 4,0
             {u"16777215<1234>16777215"_s, u"128"_s, QColor(128, 0, 0)},
             {u"0<1234>4210752"_s, u"0"_s, Qt::white},
             {u""_s, u"mavi"_s, Qt::black},
             {u"-2147483643<1234>x"_s, u"0"_s, Qt::black},
         }) {
        Settings settings;
        takeStored(&settings.liste.listrenk, rows);
        takeStored(&settings.liste.yzrenk, text);
        EXPECT_EQ(listLook(settings).text, shown) << rows.toStdString();
    }
    Settings settings;
    settings.liste.size = u"400"_s;
    settings.liste.bold = 3;
    const ListLook look = listLook(settings);
    EXPECT_EQ(look.font.pointSizeF(), 28.0);
    EXPECT_TRUE(look.font.bold() && look.font.italic());
}
