#include "labels/print/sheet_grid.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

std::vector<GridWalk::Place> walk(const SheetGrid &grid, int labels)
{
    GridWalk walker(grid);
    std::vector<GridWalk::Place> places(static_cast<std::size_t>(labels));
    for (GridWalk::Place &place : places)
        place = walker.next();
    return places;
}

void expectPlace(const GridWalk::Place &place, float x, float y, int page, bool newPage)
{
    EXPECT_FLOAT_EQ(place.x, x);
    EXPECT_FLOAT_EQ(place.y, y);
    EXPECT_EQ(place.page, page);
    EXPECT_EQ(place.newPage, newPage);
}

} // namespace

TEST(SheetGrid, SingleLabelSheetsFeedBeforeEachButTheFirst)
{
    const auto places = walk({0, 0, 58, 40, 1, 1}, 3);
    for (int i = 0; i < 3; ++i)
        expectPlace(places[static_cast<std::size_t>(i)], 0, 0, i + 1, i > 0);
}

TEST(SheetGrid, CountsThatNeverMatchKeepToOneRowOrSheet)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const struct
    {
        float across;
        float down;
        float lastX; ///< of five labels one millimetre apart
        float lastY;
    } cases[] = {
        {0, 5, 4, 0},     {-1, 2, 4, 0}, {2.5F, 2, 4, 0}, {nan, nan, 4, 0},
        {1e30F, 1, 4, 0}, {2, 0, 0, 2},  {2, 1.2F, 0, 2},
    };
    for (const auto &c : cases) {
        const SheetGrid grid{0, 0, 1, 1, c.across, c.down};
        EXPECT_FALSE(grid.isCountable());
        expectPlace(walk(grid, 5).back(), c.lastX, c.lastY, 1, false);
    }
    EXPECT_TRUE((SheetGrid{0, 0, 1, 1, 3, 8}.isCountable()));
}

TEST(SheetGrid, AFractionDownMayStillCloseAFullSheet)
{
    // 2 × 1.5 = 3: the sheet counter matches in the middle of the second row.
    const auto places = walk({0, 0, 1, 1, 2, 1.5F}, 4);
    expectPlace(places[2], 0, 1, 1, false);
    expectPlace(places[3], 0, 0, 2, true);
}
