#include "common/amount.h"
#include "sales/priced_line.h"
#include "sales/pricing.h"
#include "sales/quantity.h"
#include "sales/sale_list.h"
#include "support/cases.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Pricing, DiscountsApplyToWhatTheOneBeforeLeft)
{
    for (const Case &c : cases(u"sale_lines"_s)) { // price, quantity, percents, figures, tag
        const SaleLine line =
            pricedLine(c.value(0), c.number(1), pricing::discountsOf(u"<>"_s + c.value(2)).percent);
        EXPECT_EQ(line[SaleColumn::amount] + u" - "_s + line[SaleColumn::discount] + u" = "_s +
                      line[SaleColumn::net],
                  c.value(3))
            << c;
        EXPECT_EQ(line.tag, u"<>"_s + c.value(2) + u"<>"_s + c.value(4)) << c;
    }
}

TEST(Pricing, ADamagedTagCountsAsNoDiscount)
{
    for (const QString &tag : {u""_s, u"<>"_s, u"10"_s, u"<>a<>b<>c<>d"_s}) {
        SaleLine line = pricedLine(u"5,00"_s, 1);
        line.tag = tag;
        pricing::recompute(line, 2);
        EXPECT_EQ(line[SaleColumn::net], u"10,00"_s) << tag.toStdString();
    }
}

TEST(Pricing, VatIsTakenOnNetAmountsAndNotAddedToTheGrandTotal)
{
    const std::vector<SaleLine> lines = {
        pricedLine(u"100,00"_s, 1, {10, 0, 0}, u"18"_s), pricedLine(u"50,00"_s, 2, {}, u"8"_s),
        pricedLine(u"1,00"_s, 1, {}, u""_s), pricedLine(u"1,00"_s, 1, {}, u"yok"_s)};
    const pricing::Totals totals = totalsOf(lines);
    EXPECT_EQ(totals.gross, u"202,00"_s);
    EXPECT_EQ(totals.vat, u"24,20"_s);
    EXPECT_EQ(totals.grand, u"192,00"_s);
    EXPECT_EQ(totals.discount, u"10,00"_s);
}

TEST(Pricing, TotalsAreSummedInSinglePrecision)
{
    // In double precision these would be 123.456,78, 34.700,00 and 16.777.217,00.
    const std::vector<SaleLine> big = {pricedLine(u"123.456,78"_s, 1)};
    EXPECT_EQ(totalsOf(big).gross, u"123.456,80"_s);

    const std::vector<SaleLine> odd(2000, pricedLine(u"17,35"_s, 1));
    EXPECT_EQ(totalsOf(odd).grand, u"34.699,65"_s);

    const std::vector<SaleLine> edge = {pricedLine(u"16.777.216,00"_s, 1),
                                        pricedLine(u"1,00"_s, 1)};
    EXPECT_EQ(totalsOf(edge).gross, u"16.777.220,00"_s);
}

TEST(Pricing, ChangeIsCashLessTheGrandTotal)
{
    EXPECT_EQ(pricing::change(u"50,00", u"12,50"), u"37,50"_s);
    EXPECT_EQ(pricing::change(u"1.500", u"1.234,50"), u"265,50"_s);
    EXPECT_EQ(pricing::change(u"5", u"12,50"), u"-7,50"_s);
    EXPECT_EQ(pricing::change(u"", u"12,50"), u"0,00"_s);
    EXPECT_EQ(pricing::change(u",", u"12,50"), u"0,00"_s);
}

TEST(Quantity, TypedTextIsAQuantityOrRefused)
{
    for (const Case &c : cases(u"quantities"_s)) {
        const auto value =
            c.value(0) == u"cash" ? quantity::parseCash(c.value(1)) : quantity::parse(c.value(1));
        EXPECT_EQ(value ? QString::number(*value) : u"refused"_s, c.value(2)) << c;
    }
    EXPECT_TRUE(quantity::accepts(u"1.5", u','));
    EXPECT_FALSE(quantity::accepts(u"1,5", u','));
}
