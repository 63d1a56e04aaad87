#include "fakes/label_shop.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(LabelPrice, TheLastRecordOfTheWantedNumberCounts)
{
    const RecordSet records =
        LabelShop::prices({{2, 5.0, 0, 0, 0}, {1, 7.0, 0, 0, 0}, {1, 1000.0, 10, QVariant(), 50}});
    EXPECT_EQ(labelPrice(records, u"1"), u"450,00"_s);
    EXPECT_EQ(labelPrice(records, u"2"), u"5,00"_s);
    EXPECT_EQ(labelPrice(records, u"3"), QString());
    // A price record without a number is nobody's, also when no number was chosen.
    EXPECT_EQ(labelPrice(LabelShop::prices({{QVariant(), 5.0, 0, 0, 0}}), u""), QString());
    EXPECT_THROW(labelPrice(LabelShop::prices({{1, u"beş"_s, 0, 0, 0}}), u"1"), HostError);
}
