#include "common/amount.h"
#include "sales/priced_line.h"
#include "sales/pricing.h"
#include "sales/quantity.h"
#include "sales/sale_list.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Pricing, DiscountsApplyToWhatTheOneBeforeLeft)
{
    struct Case
    {
        QString price;
        double quantity;
        std::array<float, 3> percent;
        QString figures; ///< amount - discount = net
        QString tag;
    };
    for (const Case &c : std::vector<Case>{
             {u"100,00"_s, 1, {10, 10, 0}, u"100,00 - 19,00 = 81,00"_s, u"10<>10<>0<>10<>9<>0"_s},
             {u"100,00"_s,
              3,
              {10, 10, 10},
              u"300,00 - 81,30 = 218,70"_s,
              u"10<>10<>10<>30<>27<>24,3"_s},
             {u"1.234,50"_s,
              1.5,
              {2.5F, 0, 0},
              u"1.851,75 - 46,29 = 1.805,46"_s,
              u"2,5<>0<>0<>46,29375<>0<>0"_s},
             {u"10,00"_s, 1, {100, 50, 0}, u"10,00 - 10,00 = 0,00"_s, u"100<>50<>0<>10<>0<>0"_s},
             {u"10,00"_s, 1, {150, 0, 0}, u"10,00 - 15,00 = -5,00"_s, u"150<>0<>0<>15<>0<>0"_s},
             // 8,245 as a single lies under it, so that discount and net still make the amount.
             {u"164,90"_s, 1, {5, 0, 0}, u"164,90 - 8,24 = 156,66"_s, u"5<>0<>0<>8,245<>0<>0"_s},
             {u""_s, 2, {10, 0, 0}, u"0,00 - 0,00 = 0,00"_s, u"10<>0<>0<>0<>0<>0"_s},
         }) {
        const SaleLine line = pricedLine(c.price, c.quantity, c.percent);
        EXPECT_EQ(line[SaleColumn::amount] + u" - "_s + line[SaleColumn::discount] + u" = "_s +
                      line[SaleColumn::net],
                  c.figures);
        EXPECT_EQ(line.tag, u"<>"_s + c.tag);
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
    struct Case
    {
        QString cash, grand, change;
    };
    for (const auto &[cash, grand, change] : std::vector<Case>{
             {u"50,00"_s, u"12,50"_s, u"37,50"_s},
             {u"1.500"_s, u"1.234,50"_s, u"265,50"_s},
             {u"1500"_s, u"1.234,50"_s, u"265,50"_s},
             {u"5"_s, u"12,50"_s, u"-7,50"_s},
             {u""_s, u"12,50"_s, u"0,00"_s},
             {u","_s, u"12,50"_s, u"0,00"_s},
         })
        EXPECT_EQ(pricing::change(cash, grand), change) << cash.toStdString();
}

TEST(Quantity, TypedTextIsAQuantityOrRefused)
{
    struct Case
    {
        QString text;
        double value;
    };
    for (const auto &[text, value] : std::vector<Case>{
             {u"1"_s, 1.0},
             {u"1,5"_s, 1.5},
             {u" 2 "_s, 2.0},
             {u",25"_s, 0.25},
             {u"1.250"_s, 1250.0},
             {u"1.250,5"_s, 1250.5},
             {u"999.999"_s, 999999.0},
         })
        EXPECT_EQ(quantity::parse(text), value) << text.toStdString();
    for (const QString &refused : {u"999.999.999"_s, u"8690123456789"_s, u"12345670"_s, u"1.5"_s,
                                   u"1.25.000"_s, u"1,250.000"_s, u"1,2,3"_s, u"0"_s, u"0,000"_s,
                                   u"-1"_s, u"1E5"_s, u""_s, u","_s, u"üç"_s})
        EXPECT_FALSE(quantity::parse(refused)) << refused.toStdString();
    EXPECT_EQ(quantity::parseCash(u"0"), 0.0);
    EXPECT_EQ(quantity::parseCash(u"1.000,50"), 1000.5);
    EXPECT_FALSE(quantity::parseCash(u"86901234"));
}
