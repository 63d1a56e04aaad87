#include "fakes/fake_ports.h"
#include "labels/print/label_fields.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(LabelFields, PriceOfAKilogramLitreOrPiece)
{
    const struct
    {
        QString name;
        QString price;
        QString expected;
    } cases[] = {
        {u"Zeytin Yeşil 500 g"_s, u"129,90"_s, u"259,80 TL/kg"_s},
        {u"ÇAY DÖKME 1.000 GR"_s, u"189,90"_s, u"189,90 TL/kg"_s},
        {u"Un 1,5 KG"_s, u"45,00"_s, u"30,00 TL/kg"_s},
        {u"Süt 1.5 Lt"_s, u"60,00"_s, u"40,00 TL/lt"_s},
        {u"Maden Suyu 6 x 200 ml"_s, u"48,00"_s, u"40,00 TL/lt"_s},
        {u"Kola 33CL"_s, u"33,00"_s, u"100,00 TL/lt"_s},
        {u"Yumurta 30'lu"_s, u"150,00"_s, u"5,00 TL/adet"_s},
        {u"2'li Çay 500 g"_s, u"1.000,00"_s, u"2.000,00 TL/kg"_s}, // the last size is the pack's
        {u"Ekmek"_s, u"12,50"_s, u""_s},
        {u"Peynir 500 g"_s, u""_s, u""_s},
        {u"Peynir 0 g"_s, u"10,00"_s, u""_s},
        {u"7 Up Gazoz 5 Litrelik"_s, u"10,00"_s, u""_s}, // no measure of its own
        {u"A4 Kâğıt 80 gramaj"_s, u"10,00"_s, u""_s},
    };
    for (const auto &c : cases)
        EXPECT_EQ(unitPrice(c.name, c.price), c.expected) << c.name.toStdString();
}

TEST(LabelFields, OnlyWhatNeedsTheLedgerAsksIt)
{
    FakeMachine machine;
    std::vector<LabelRow> rows(1);
    readFields(machine.program, {u"Stok Adı"_s, u"Fiyat"_s, u"Birim Fiyatı"_s, QString()}, rows);
    EXPECT_TRUE(rows[0].fields.isEmpty()); // the connection, which is closed, was not touched
    readFields(machine.program, {u"Basım Tarihi"_s}, rows);
    EXPECT_FALSE(fieldText(u"Basım Tarihi"_s, rows[0]).isEmpty());
    EXPECT_THROW(readFields(machine.program, {u"STKMENSEI"_s}, rows), std::exception);
    EXPECT_FALSE(isKnownField(u"STKMENSEI"_s, rows[0]));
    for (const LabelField &field : labelFields())
        EXPECT_TRUE(isKnownField(field.name, rows[0]));
}
