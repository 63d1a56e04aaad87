#include "fakes/label_shop.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(LabelPrice, DiscountsCascadeInSinglePrecision)
{
    const struct
    {
        double price;
        double percents[3];
        QString text;
    } cases[] = {
        {100, {10, 10, 0}, u"81,00"_s},
        {100, {10, 10, 10}, u"72,90"_s},
        {100, {0, 0, 100}, u"0,00"_s},
        {1250.5, {0, 0, 0}, u"1.250,50"_s},
        {0, {10, 10, 10}, u"0,00"_s},
        {19.999, {0, 0, 0}, u"20,00"_s}, // the price is rounded before, its discounts are not
        {19.995, {50, 0, 0}, u"10,00"_s},
        // Half a kuruş goes up, also where the single lies a hair below it.
        {2.1, {5, 0, 0}, u"2,00"_s},
        {9.9, {25, 0, 0}, u"7,43"_s},
        {149.9, {5, 0, 0}, u"142,41"_s},
        // In double precision these end one kuruş away.
        {17378.58, {7.5, 5, 10}, u"13.744,29"_s},
        {20340.23, {33, 10, 15}, u"10.425,39"_s},
        {13649.85, {0, 10, 0}, u"12.284,86"_s},
        // A single has seven digits.
        {123456.78, {0, 0, 0}, u"123.456,80"_s},
        {12345678.91, {0, 0, 0}, u"12.345.680,00"_s},
    };
    for (const auto &c : cases) {
        const RecordSet record =
            LabelShop::prices({{1, c.price, c.percents[0], c.percents[1], c.percents[2]}});
        EXPECT_EQ(labelPrice(record, u"1"), c.text) << c.price;
    }
}

TEST(LabelPrice, TheLastRecordOfTheWantedNumberCounts)
{
    const RecordSet records =
        LabelShop::prices({{2, 5.0, 0, 0, 0}, {1, 7.0, 0, 0, 0}, {1, 8.0, QVariant(), 0, 0}});
    EXPECT_EQ(labelPrice(records, u"1"), u"8,00"_s);
    EXPECT_EQ(labelPrice(records, u"2"), u"5,00"_s);
    EXPECT_EQ(labelPrice(records, u"3"), QString());
    // A price record without a number is nobody's, also when no number was chosen.
    EXPECT_EQ(labelPrice(LabelShop::prices({{QVariant(), 5.0, 0, 0, 0}}), u""), QString());
    EXPECT_THROW(labelPrice(LabelShop::prices({{1, u"beş"_s, 0, 0, 0}}), u"1"), HostError);
}
