#include "common/amount.h"
#include "common/discounts.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Discounts, ShelfAndTillEachKeepTheirRounding)
{
    const struct
    {
        double price;
        std::array<float, 3> percent;
        QString till;
        QString shelf;
    } cases[] = {
        {100, {10, 10, 0}, u"81,00"_s, u"81,00"_s},
        {100, {10, 10, 10}, u"72,90"_s, u"72,90"_s},
        {100, {0, 0, 100}, u"0,00"_s, u"0,00"_s},
        {10, {150, 0, 0}, u"-5,00"_s, u"-5,00"_s},
        {9.9, {25, 0, 0}, u"7,43"_s, u"7,43"_s}, // half a kuruş goes up
        // From here on they differ.
        {9.3, {5, 0, 0}, u"8,83"_s, u"8,84"_s},
        {30.2, {7.5F, 0, 0}, u"27,93"_s, u"27,94"_s},
        {13649.85, {0, 10, 0}, u"12.284,87"_s, u"12.284,86"_s},
        {17378.58, {7.5F, 5, 10}, u"13.744,28"_s, u"13.744,29"_s},
        {19.999, {50, 0, 0}, u"10,00"_s, u"10,00"_s},
        {19.995, {0, 0, 0}, u"20,00"_s, u"20,00"_s},
        {0.005, {60, 0, 0}, u"0,00"_s, u"0,01"_s}, // the shelf rounds the price before
        {123456.78, {0, 0, 0}, u"123.456,78"_s, u"123.456,80"_s}, // a single has seven digits
    };
    for (const auto &c : cases) {
        const auto parts = discounts::ofLine(c.price, c.percent);
        EXPECT_EQ(amount::money(c.price - static_cast<double>(parts[0] + parts[1] + parts[2])),
                  c.till)
            << c.price;
        EXPECT_EQ(amount::money(
                      discounts::shelfPrice(c.price, {c.percent[0], c.percent[1], c.percent[2]})),
                  c.shelf)
            << c.price;
    }
}
