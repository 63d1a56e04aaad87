#include "labels/designer/designs.h"
#include "labels/designer/geometry.h"
#include "labels/designer/snapping.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

const QRectF kBox(10, 20, 30, 10);

void expectRect(const QRectF &actual, const QRectF &expected)
{
    EXPECT_NEAR(actual.left(), expected.left(), 1e-9);
    EXPECT_NEAR(actual.top(), expected.top(), 1e-9);
    EXPECT_NEAR(actual.width(), expected.width(), 1e-9);
    EXPECT_NEAR(actual.height(), expected.height(), 1e-9);
}

} // namespace

TEST(Handles, ResizeTheirEdgesOnly)
{
    const struct
    {
        Handle handle;
        QPointF by;
        bool proportional;
        QRectF expected;
    } cases[] = {
        {Handle::topLeft, {-2, 3}, false, {8, 23, 32, 7}},
        {Handle::top, {-2, 3}, false, {10, 23, 30, 7}},
        {Handle::topRight, {-2, 3}, false, {10, 23, 28, 7}},
        {Handle::right, {-2, 3}, false, {10, 20, 28, 10}},
        {Handle::bottomRight, {-2, 3}, false, {10, 20, 28, 13}},
        {Handle::bottom, {-2, 3}, false, {10, 20, 30, 13}},
        {Handle::bottomLeft, {-2, 3}, false, {8, 20, 32, 13}},
        {Handle::left, {-2, 3}, false, {8, 20, 32, 10}},
        // In proportion the side that was moved farther, for its length, leads.
        {Handle::bottomRight, {30, 1}, true, {10, 20, 60, 20}},
        {Handle::bottomRight, {1, 10}, true, {10, 20, 60, 20}},
        {Handle::topLeft, {15, 0}, true, {25, 25, 15, 5}},
        {Handle::right, {15, 9}, true, {10, 17.5, 45, 15}},
        // No side turns over or vanishes.
        {Handle::left, {50, 0}, false, {39.5, 20, 0.5, 10}},
        {Handle::topLeft, {99, 99}, false, {39.5, 29.5, 0.5, 0.5}},
        {Handle::bottomRight, {-99, 0}, true, {10, 20, 1.5, 0.5}},
    };
    for (const auto &c : cases)
        expectRect(resized(kBox, c.handle, c.by, c.proportional), c.expected);
    // A box that is smaller already, as files have them, does not grow by being touched.
    expectRect(resized({0, 0, 0.2, 0}, Handle::bottomRight, {-1, 0}, false), {0, 0, 0.2, 0});
    expectRect(resized({0, 0, 0, 0}, Handle::bottomRight, {5, 5}, true), {0, 0, 0, 0});
}

TEST(Handles, CornersGoBeforeSides)
{
    for (const Handle handle : kHandles)
        EXPECT_EQ(handleAt(kBox, handlePoint(kBox, handle), 1), handle);
    EXPECT_EQ(handleAt({0, 0, 2, 2}, {0.9, 0.1}, 1), Handle::topLeft);
    EXPECT_EQ(handleAt(kBox, {15, 25}, 1), std::nullopt);
}

TEST(Snapping, TheNearestLineWinsAndTheGridComesLast)
{
    Design design = textsAt({{52, 0, 10, 4}, {0, 0, 1, 1}});
    design.guides.vertical = {30};
    const RefSet moving{{kText, 1}};
    const QSizeF label(70, 99);
    const struct
    {
        const char *what;
        SnapTargets::Wanted wanted;
        QPointF by;
        QPointF expected;
        std::size_t lines;
    } cases[] = {
        {"nothing near", {0, true, true, true}, {4, 7}, {4, 7}, 0},
        {"left edge to a guide", {0, true, true, true}, {19.6, 7}, {20, 7}, 1},
        {"right edge to a guide", {0, true, true, true}, {-9.6, 7}, {-10, 7}, 1},
        {"middle to the label's", {0, true, true, true}, {10.3, 7}, {10, 7}, 1},
        {"left edge to an element", {0, true, true, true}, {41.7, 7}, {42, 7}, 1},
        {"elements left out", {0, false, true, true}, {41.7, 7}, {41.7, 7}, 0},
        {"guides left out", {0, true, false, true}, {19.6, 7}, {19.6, 7}, 0},
        {"both ways", {0, true, true, true}, {-10.2, -20.4}, {-10, -20}, 2},
        {"the grid takes what else is free", {5, true, true, false}, {3.4, 7.4}, {5, 5}, 2},
        {"a guide goes before the grid", {1, true, true, true}, {19.6, 7}, {20, 7}, 2},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const SnapTargets targets(design, moving, label, c.wanted);
        const Snapped snapped = snapMove(targets, kBox, c.by, 0.5);
        EXPECT_NEAR(snapped.by.x(), c.expected.x(), 1e-9);
        EXPECT_NEAR(snapped.by.y(), c.expected.y(), 1e-9);
        EXPECT_EQ(snapped.lines.size(), c.lines);
    }
}

TEST(Snapping, ResizingSnapsTheEdgesThatMove)
{
    Design design;
    design.guides.vertical = {45};
    design.guides.horizontal = {33};
    const SnapTargets targets(design, {}, {}, {0, true, true, false});
    const struct
    {
        Handle handle;
        QPointF by;
        bool proportional;
        QPointF expected;
    } cases[] = {
        {Handle::right, {4.8, 2.8}, false, {5, 2.8}},
        {Handle::bottomRight, {4.8, 2.8}, false, {5, 3}},
        {Handle::bottomRight, {4.8, 0.1}, true, {5, 0.1}},
        {Handle::bottomRight, {0.1, 2.8}, true, {0.1, 3}},
        {Handle::topLeft, {34.9, 12.9}, false, {35, 13}},
    };
    for (const auto &c : cases) {
        const Snapped snapped = snapResize(targets, kBox, c.handle, c.by, c.proportional, 0.5);
        EXPECT_NEAR(snapped.by.x(), c.expected.x(), 1e-9);
        EXPECT_NEAR(snapped.by.y(), c.expected.y(), 1e-9);
    }
    const Snapped point = snapPoint(targets, {44.7, 2}, 0.5);
    EXPECT_NEAR(point.by.x(), 45, 1e-9);
    EXPECT_NEAR(point.by.y(), 2, 1e-9);
    EXPECT_EQ(point.lines, (std::vector<SnapLine>{{Qt::Vertical, 45, SnapKind::guide}}));
}

TEST(Geometry, EverythingSetIsAWholeTenth)
{
    EXPECT_EQ(labelBox({0.26, 0.34, 10.03, 5.04}), (LabelBox{0.3F, 0.3F, 10.0F, 5.1F}));
    EXPECT_EQ(tenth(-0.26), -0.3F);
}
