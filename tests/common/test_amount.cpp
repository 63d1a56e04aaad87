#include "common/amount.h"
#include "support/print_qt.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Amount, MoneyIsGroupedRoundedAndTurkish)
{
    const struct
    {
        double value;
        QString text;
    } cases[] = {
        {0, u"0,00"_s},
        {1.5, u"1,50"_s},
        {25000, u"25.000,00"_s},
        {1234567.891, u"1.234.567,89"_s},
        {999.995, u"1.000,00"_s},
        {1.005, u"1,01"_s},
        {0.005, u"0,01"_s},
        {1.5 * 5.39, u"8,09"_s}, // as a binary number a little less than 8.085
        {0.35 * 12.9, u"4,52"_s},
        {1e-17, u"0,00"_s},
        {-0.004, u"0,00"_s},
        {-1234.5, u"-1.234,50"_s},
        {1e15, u"1.000.000.000.000.000,00"_s},
        {std::nan(""), QString()},
        {HUGE_VAL, QString()},
    };
    for (const auto &c : cases)
        EXPECT_EQ(amount::money(c.value), c.text) << c.value;
}

TEST(Amount, MoneyOfASingleGoesByItsSevenDigits)
{
    const struct
    {
        float value;
        QString text;
    } cases[] = {
        {0.0F, u"0,00"_s},
        {2.1F - 0.105F, u"2,00"_s}, // widened it reads 1.9949999
        {9.9F - 2.475F, u"7,43"_s},
        {149.9F - 7.495F, u"142,41"_s},
        {-1.995F, u"-2,00"_s},
        {123456.78F, u"123.456,80"_s},
        {12345678.91F, u"12.345.680,00"_s},
        {-1e10F, u"-10.000.000.000,00"_s},
        {1e-10F, u"0,00"_s},
        {std::nanf(""), QString()},
        {HUGE_VALF, QString()},
    };
    for (const auto &c : cases)
        EXPECT_EQ(amount::money(c.value), c.text) << c.value;
}

TEST(Amount, LengthsAndSizesKeepTheirDecimals)
{
    EXPECT_EQ(amount::length(210.0), u"210,0"_s);
    EXPECT_EQ(amount::length(1234.56), u"1234,6"_s);
    EXPECT_EQ(amount::length(-0.04), u"0,0"_s);
    EXPECT_EQ(amount::length(0.35F), u"0,4"_s); // widened it reads 0.3499999
    EXPECT_EQ(amount::whole(0), u"0"_s);
    EXPECT_EQ(amount::whole(1234567), u"1.234.567"_s);
    EXPECT_EQ(amount::points(8.25), u"8,25"_s);
    EXPECT_EQ(amount::points(10), u"10"_s);
    EXPECT_EQ(amount::points(9.75006), u"9,7501"_s);
}

TEST(Amount, SinglePrecisionTextHasSevenDigits)
{
    EXPECT_EQ(amount::plain(123456.78F), u"123456,8"_s);
    EXPECT_EQ(amount::plain(0.1F), u"0,1"_s);
    EXPECT_EQ(amount::plain(12345678.0F), u"1,234568E+07"_s);
    EXPECT_EQ(amount::plain(12.5), u"12,5"_s);
    EXPECT_EQ(amount::plain(0.1 + 0.2), u"0,3"_s);
}

TEST(Amount, ParsesWhatUsersType)
{
    const struct
    {
        QString text;
        double value;
    } cases[] = {
        {u"1.234,50"_s, 1234.5}, {u"1234,5"_s, 1234.5},
        {u" -12 "_s, -12.0},     {u"1.5"_s, 15.0}, // a point groups, it never starts decimals
        {u",5"_s, 0.5},          {u"1,234568E+07"_s, 12345680.0},
    };
    for (const auto &c : cases)
        EXPECT_EQ(amount::parse(c.text), c.value) << c.text.toStdString();
    for (const QString &bad :
         {u""_s, u"-"_s, u"12a"_s, u"1,2,3"_s, u"1,2.3"_s, u"nan"_s, u"inf"_s, u"1E999"_s, u"١٢"_s})
        EXPECT_FALSE(amount::parse(bad)) << bad.toStdString();
    EXPECT_EQ(amount::single(u"1E39"), 0.0F);
    EXPECT_EQ(amount::single(u"abc"), 0.0F);
}

TEST(Amount, WholeNumbersAreRoundedAndKeptInTheirRange)
{
    const struct
    {
        QString text;
        int value;
    } cases[] = {{u"9"_s, 9},     {u"9,5"_s, 10}, {u"8,5"_s, 8}, {u"-4"_s, -4},        {u"-5"_s, 0},
                 {u"100"_s, 100}, {u"101"_s, 0},  {u"x"_s, 0},   {u"99999999999"_s, 0}};
    for (const auto &c : cases)
        EXPECT_EQ(amount::integer(c.text, -4, 100), c.value) << c.text.toStdString();
    EXPECT_EQ(amount::integer(u"-2147483640"), -2147483640);
    EXPECT_EQ(amount::integer(u"2147483648"), 0);
}

TEST(Amount, LabelCountsArePositiveWholeNumbers)
{
    EXPECT_EQ(amount::labelCount(u" 24 "), 24);
    for (const QString &bad :
         {u"0"_s, u"-1"_s, u"2,5"_s, u"abc"_s, u""_s, u"1.000"_s, u"1000000"_s, u"١"_s})
        EXPECT_FALSE(amount::labelCount(bad)) << bad.toStdString();
}
