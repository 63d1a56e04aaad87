#include "common/windows_colour.h"

#include <gtest/gtest.h>

TEST(WindowsColour, RedIsTheLowestByteAndSystemColoursAreBlack)
{
    EXPECT_EQ(colourOf(0x0000FF), QColor(255, 0, 0));
    EXPECT_EQ(colourOf(0xFF8001), QColor(1, 128, 255));
    EXPECT_EQ(colourOf(-2147483640), QColor(0, 0, 0));
    EXPECT_EQ(colourNumber(QColor(1, 128, 255)), 0xFF8001);
}
