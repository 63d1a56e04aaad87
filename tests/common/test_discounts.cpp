#include "common/amount.h"
#include "common/discounts.h"
#include "support/cases.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Discounts, ShelfAndTillEachKeepTheirRounding)
{
    for (const Case &c : cases(u"discounts"_s)) { // price, three percentages, till, shelf
        const std::array percent{static_cast<float>(c.number(1)), static_cast<float>(c.number(2)),
                                 static_cast<float>(c.number(3))};
        const auto parts = discounts::ofLine(c.number(0), percent);
        const double till = c.number(0) - static_cast<double>(parts[0] + parts[1] + parts[2]);
        EXPECT_EQ(amount::money(till), c.value(4)) << c;
        const auto shelf = discounts::shelfPrice(c.number(0), {percent[0], percent[1], percent[2]});
        EXPECT_EQ(amount::money(shelf), c.value(5)) << c;
    }
}
