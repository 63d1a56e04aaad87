#include "fakes/fake_ports.h"
#include "labels/print/label_fields.h"
#include "support/cases.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(LabelFields, PriceOfAKilogramLitreOrPiece)
{
    for (const Case &c : cases(u"unit_prices"_s)) // name, price, price of a measure
        EXPECT_EQ(unitPrice(c[0], c[1]), c[2]) << c;
}

TEST(LabelFields, OnlyWhatNeedsTheLedgerAsksIt)
{
    FakeMachine machine;
    std::vector<LabelRow> rows(1);
    const auto read = [&](const QStringList &fields) {
        readFields(machine.program, QDate(2026, 3, 7), fields, rows);
    };
    read({u"Stok Adı"_s, u"Fiyat"_s, u"Birim Fiyatı"_s, QString()});
    EXPECT_TRUE(rows[0].fields.isEmpty()); // the connection, which is closed, was not touched
    read({u"Basım Tarihi"_s});
    EXPECT_FALSE(fieldText(u"Basım Tarihi"_s, rows[0]).isEmpty());
    EXPECT_THROW(read({u"STKMENSEI"_s}), std::exception);
    EXPECT_FALSE(isKnownField(u"STKMENSEI"_s, rows[0]));
    for (const LabelField &field : labelFields())
        EXPECT_TRUE(isKnownField(field.name, rows[0]));
}
