#include "common/amount.h"
#include "sales/pricing.h"
#include "sales/quantity.h"
#include "sales/sale_list.h"
#include "sales/totals_of.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

SaleLine lineOf(const QString &price, double quantity, const std::array<float, 3> &percent = {},
                const QString &vatRate = u"18"_s)
{
    SaleLine line;
    line[SaleColumn::price] = price;
    line[SaleColumn::vatRate] = vatRate;
    line.tag = pricing::discountTag({percent, {}});
    pricing::recompute(line, quantity);
    return line;
}

} // namespace

TEST(Pricing, DiscountsApplyToWhatTheOneBeforeLeft)
{
    struct Case
    {
        QString price;
        double quantity;
        std::array<float, 3> percent;
        QString amount, discount, net, tag;
    };
    const std::vector<Case> cases = {
        {u"100,00"_s,
         1,
         {10, 10, 0},
         u"100,00"_s,
         u"19,00"_s,
         u"81,00"_s,
         u"<>10<>10<>0<>10<>9<>0"_s},
        {u"100,00"_s,
         3,
         {10, 10, 10},
         u"300,00"_s,
         u"81,30"_s,
         u"218,70"_s,
         u"<>10<>10<>10<>30<>27<>24,3"_s},
        {u"1.234,50"_s,
         1.5,
         {2.5F, 0, 0},
         u"1.851,75"_s,
         u"46,29"_s,
         u"1.805,46"_s,
         u"<>2,5<>0<>0<>46,29375<>0<>0"_s},
        {u"10,00"_s,
         1,
         {100, 50, 0},
         u"10,00"_s,
         u"10,00"_s,
         u"0,00"_s,
         u"<>100<>50<>0<>10<>0<>0"_s},
        {u"10,00"_s,
         1,
         {150, 0, 0},
         u"10,00"_s,
         u"15,00"_s,
         u"-5,00"_s,
         u"<>150<>0<>0<>15<>0<>0"_s},
        // 8,245 as a single lies under it, so that discount and net still make the amount.
        {u"164,90"_s,
         1,
         {5, 0, 0},
         u"164,90"_s,
         u"8,24"_s,
         u"156,66"_s,
         u"<>5<>0<>0<>8,245<>0<>0"_s},
        {u""_s, 2, {10, 0, 0}, u"0,00"_s, u"0,00"_s, u"0,00"_s, u"<>10<>0<>0<>0<>0<>0"_s},
    };
    for (const Case &c : cases) {
        const SaleLine line = lineOf(c.price, c.quantity, c.percent);
        EXPECT_EQ(line[SaleColumn::amount], c.amount);
        EXPECT_EQ(line[SaleColumn::discount], c.discount);
        EXPECT_EQ(line[SaleColumn::net], c.net);
        EXPECT_EQ(line.tag, c.tag);
    }
}

TEST(Pricing, ADamagedTagCountsAsNoDiscount)
{
    for (const QString &tag : {u""_s, u"<>"_s, u"10"_s, u"<>a<>b<>c<>d"_s}) {
        SaleLine line = lineOf(u"5,00"_s, 1);
        line.tag = tag;
        pricing::recompute(line, 2);
        EXPECT_EQ(line[SaleColumn::net], u"10,00"_s) << tag.toStdString();
    }
}

TEST(Pricing, TotalsOfAnEmptyListAreZero)
{
    EXPECT_EQ(pricing::hesapla({}), pricing::Totals());
}

TEST(Pricing, VatIsTakenOnNetAmountsAndNotAddedToTheGrandTotal)
{
    const std::vector<SaleLine> lines = {
        lineOf(u"100,00"_s, 1, {10, 0, 0}, u"18"_s), lineOf(u"50,00"_s, 2, {}, u"8"_s),
        lineOf(u"1,00"_s, 1, {}, u""_s), lineOf(u"1,00"_s, 1, {}, u"yok"_s)};
    const pricing::Totals totals = totalsOf(lines);
    EXPECT_EQ(totals.gross, u"202,00"_s);
    EXPECT_EQ(totals.vat, u"24,20"_s);
    EXPECT_EQ(totals.grand, u"192,00"_s);
    EXPECT_EQ(totals.discount, u"10,00"_s);
}

TEST(Pricing, TotalsAreSummedInSinglePrecision)
{
    // In double precision these would be 123.456,78, 34.700,00 and 16.777.217,00.
    const std::vector<SaleLine> big = {lineOf(u"123.456,78"_s, 1)};
    EXPECT_EQ(totalsOf(big).gross, u"123.456,80"_s);

    const std::vector<SaleLine> odd(2000, lineOf(u"17,35"_s, 1));
    EXPECT_EQ(totalsOf(odd).grand, u"34.699,65"_s);

    const std::vector<SaleLine> edge = {lineOf(u"16.777.216,00"_s, 1), lineOf(u"1,00"_s, 1)};
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
        std::optional<double> value;
    };
    for (const auto &[text, value] : std::vector<Case>{
             {u"1"_s, 1.0},
             {u"1,5"_s, 1.5},
             {u" 2 "_s, 2.0},
             {u",25"_s, 0.25},
             {u"1.250"_s, 1250.0},
             {u"1.250,5"_s, 1250.5},
             {u"999.999"_s, 999999.0},
             {u"999.999.999"_s, {}},
             {u"8690123456789"_s, {}},
             {u"12345670"_s, {}},
             {u"1.5"_s, {}},
             {u"1.25.000"_s, {}},
             {u"1,250.000"_s, {}},
             {u"1,2,3"_s, {}},
             {u"0"_s, {}},
             {u"0,000"_s, {}},
             {u"-1"_s, {}},
             {u"1E5"_s, {}},
             {u""_s, {}},
             {u","_s, {}},
             {u"üç"_s, {}},
         })
        EXPECT_EQ(quantity::parse(text), value) << text.toStdString();
    EXPECT_EQ(quantity::parseCash(u"0"), 0.0);
    EXPECT_EQ(quantity::parseCash(u"1.000,50"), 1000.5);
    EXPECT_FALSE(quantity::parseCash(u"86901234"));
}

TEST(Quantity, ASecondCommaIsDropped)
{
    EXPECT_TRUE(quantity::accepts(u"1", u','));
    EXPECT_FALSE(quantity::accepts(u"1,", u','));
    EXPECT_TRUE(quantity::accepts(u"1,", u'5'));
    EXPECT_FALSE(quantity::accepts(u"", u'a'));
    EXPECT_FALSE(quantity::accepts(u"", u'-'));
}
