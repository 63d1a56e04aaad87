#include "labels/designer/designs.h"
#include "labels/designer/geometry.h"
#include "labels/designer/snapping.h"
#include "support/cases.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QRectF kBox(10, 20, 30, 10);

void expectRect(const QRectF &actual, const QRectF &expected)
{
    EXPECT_NEAR(actual.left(), expected.left(), 1e-9);
    EXPECT_NEAR(actual.top(), expected.top(), 1e-9);
    EXPECT_NEAR(actual.width(), expected.width(), 1e-9);
    EXPECT_NEAR(actual.height(), expected.height(), 1e-9);
}

Handle handleOf(const QString &name)
{
    const QStringList names = {u"topLeft"_s,     u"top"_s,    u"topRight"_s,   u"right"_s,
                               u"bottomRight"_s, u"bottom"_s, u"bottomLeft"_s, u"left"_s};
    return kHandles.at(static_cast<std::size_t>(names.indexOf(name)));
}

} // namespace

TEST(Handles, ResizeTheirEdgesOnly)
{
    for (const Case &c : cases(u"resizing"_s)) {
        SCOPED_TRACE(testing::Message() << c);
        expectRect(resized(kBox, handleOf(c[0]), {c.number(1), c.number(2)}, !c[3].isEmpty()),
                   {c.number(4), c.number(5), c.number(6), c.number(7)});
    }
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
    for (const Case &c : cases(u"snapping"_s)) {
        const SnapTargets targets(design, moving, label,
                                  {c.number(1), c[2].contains(u"elements"_s),
                                   c[2].contains(u"guides"_s), c[2].contains(u"label"_s)});
        const Snapped snapped = snapMove(targets, kBox, {c.number(3), c.number(4)}, 0.5);
        EXPECT_NEAR(snapped.by.x(), c.number(5), 1e-9) << c;
        EXPECT_NEAR(snapped.by.y(), c.number(6), 1e-9) << c;
        EXPECT_EQ(snapped.lines.size(), c.number(7)) << c;
    }
}

TEST(Snapping, ResizingSnapsTheEdgesThatMove)
{
    Design design;
    design.guides.vertical = {45};
    design.guides.horizontal = {33};
    design.layout.texts = {textAt({45, 200, 0, 0})}; // where a guide stands already
    const SnapTargets targets(design, {}, {}, {0, true, true, false});
    for (const Case &c : cases(u"snapped_resizing"_s)) {
        const Snapped snapped = snapResize(targets, kBox, handleOf(c[0]),
                                           {c.number(1), c.number(2)}, !c[3].isEmpty(), 0.5);
        EXPECT_NEAR(snapped.by.x(), c.number(4), 1e-9) << c;
        EXPECT_NEAR(snapped.by.y(), c.number(5), 1e-9) << c;
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
