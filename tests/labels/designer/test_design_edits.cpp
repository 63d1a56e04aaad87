#include "common/ini_text.h"
#include "labels/designer/clipboard.h"
#include "labels/designer/design_edits.h"
#include "labels/designer/designs.h"
#include "labels/designer/label_size.h"

#include <QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

std::vector<LabelBox> boxes(const Design &design)
{
    std::vector<LabelBox> result;
    for (const LabelRef ref : RefSet::all(design.layout))
        result.push_back(boxOf(design.layout, ref));
    return result;
}

QStringList captions(const Design &design)
{
    QStringList result;
    for (const TextElement &text : design.layout.texts)
        result += text.caption;
    return result;
}

} // namespace

TEST(DesignEdits, AlignBringsOneEdgeToTheFrame)
{
    const QRectF frame(10, 20, 30, 40);
    const struct
    {
        edits::Edge edge;
        LabelBox expected; ///< of a box of 5 × 7
    } cases[] = {
        {edits::Edge::left, {10, 2, 5, 7}},   {edits::Edge::centreX, {22.5F, 2, 5, 7}},
        {edits::Edge::right, {35, 2, 5, 7}},  {edits::Edge::top, {1, 20, 5, 7}},
        {edits::Edge::bottom, {1, 53, 5, 7}}, {edits::Edge::centreY, {1, 36.5F, 5, 7}},
    };
    for (const auto &c : cases) {
        Design design = textsAt({{1, 2, 5, 7}, {1, 2, 5, 7}});
        design.locked = {{kText, 1}};
        edits::align(design, {{kText, 0}, {kText, 1}}, c.edge, frame);
        EXPECT_THAT(boxes(design), ElementsAre(c.expected, LabelBox{1, 2, 5, 7}));
    }
}

TEST(DesignEdits, DistributeMakesGapsEqualWhateverTheOrder)
{
    Design design = textsAt({{40, 0, 10, 2}, {0, 5, 4, 2}, {5, 9, 6, 2}});
    const RefSet all = RefSet::all(design.layout);
    edits::distribute(design, all, Qt::Horizontal);
    EXPECT_THAT(boxes(design),
                ElementsAre(LabelBox{40, 0, 10, 2}, LabelBox{0, 5, 4, 2}, LabelBox{19, 9, 6, 2}));
    edits::distribute(design, all, Qt::Vertical);
    EXPECT_THAT(boxes(design), ElementsAre(LabelBox{40, 0, 10, 2}, LabelBox{0, 4.5F, 4, 2},
                                           LabelBox{19, 9, 6, 2}));
    Design two = textsAt({{0, 0, 1, 1}, {9, 9, 1, 1}});
    edits::distribute(two, RefSet::all(two.layout), Qt::Horizontal);
    EXPECT_THAT(boxes(two), ElementsAre(LabelBox{0, 0, 1, 1}, LabelBox{9, 9, 1, 1}));
}

// An odd difference of the sides cannot be halved in tenths; four quarters must still lead home.
TEST(DesignEdits, TurningFourTimesLeadsHome)
{
    const Design before = textsAt({{3.3F, 2.2F, 20.1F, 5.4F}, {0, 0, 1.5F, 9}});
    Design design = before;
    const RefSet all = RefSet::all(design.layout);
    edits::turn(design, all, 1);
    EXPECT_EQ(design.layout.texts[0].box, (LabelBox{10.6F, -5.1F, 5.4F, 20.1F}));
    EXPECT_EQ(design.layout.texts[0].angle, 90);
    edits::turn(design, all, -2);
    EXPECT_EQ(design.layout.texts[0].angle, 270);
    edits::turn(design, all, 1);
    EXPECT_EQ(design, before);
}

TEST(DesignEdits, OrderMovesAmongItsKindAndLocksGoAlong)
{
    const struct
    {
        edits::Order order;
        QString expected;
    } cases[] = {{edits::Order::front, u"acebd"_s},
                 {edits::Order::forward, u"acbed"_s},
                 {edits::Order::backward, u"badce"_s},
                 {edits::Order::back, u"bdace"_s}};
    for (const auto &c : cases) {
        Design design;
        for (const QChar name : u"abcde"_s)
            design.layout.texts.push_back(textAt({0, 0, 1, 1}, name));
        design.layout.barcodes = {barsAt({0, 0, 9, 9})};
        design.locked = {{kBars, 0}, {kText, 4}};
        const RefSet now = edits::reorder(design, {{kBars, 0}, {kText, 1}, {kText, 3}}, c.order);
        EXPECT_EQ(captions(design).join(QString()), c.expected);
        for (const LabelRef ref : now)
            EXPECT_TRUE(ref.kind == kBars || u"bd"_s.contains(captions(design)[ref.index]));
        EXPECT_EQ(now.size(), 3U);
        const auto lockedPlace = static_cast<std::size_t>(c.expected.indexOf(u'e'));
        EXPECT_TRUE(design.locked.contains({kText, lockedPlace}));
        EXPECT_TRUE(design.locked.contains({kBars, 0}));
    }
    Design ends = textsAt({{0, 0, 1, 1}, {1, 0, 1, 1}, {2, 0, 1, 1}});
    const LabelLayout before = ends.layout;
    edits::reorder(ends, {{kText, 0}, {kText, 1}}, edits::Order::backward);
    EXPECT_EQ(ends.layout, before); // there is nothing beneath them
}

TEST(Clipboard, TakesElementsButNoFlood)
{
    const QByteArray bytes = clipboardBytes(textsAt({{1, 2, 3, 4}}).layout);
    EXPECT_EQ(elementsOf(bytes).texts.size(), 1U);
    EXPECT_TRUE(elementsOf(QByteArray(IniText::kLargestText, '\n') + bytes).texts.empty());
}

TEST(LabelSize, ADesignWithoutASheetShowsItsLabel)
{
    EXPECT_EQ(sheetAround({}, {}).cells, std::vector{QRectF(0, 0, 70, 37)});
}

TEST(DesignEdits, ErasingLeavesLockedElementsAndKeepsTheirLocks)
{
    Design design = textsAt({{0, 0, 1, 1}, {1, 0, 1, 1}, {2, 0, 1, 1}});
    design.layout.barcodes = {barsAt({3, 0, 9, 9})};
    design.locked = {{kText, 2}};
    edits::erase(design, RefSet::all(design.layout));
    EXPECT_THAT(boxes(design), ElementsAre(LabelBox{2, 0, 1, 1}));
    EXPECT_EQ(design.locked, (RefSet{{kText, 0}}));
}

TEST(DesignEdits, CopiesStandBesideTheirOriginalsAndOnTheLabel)
{
    Design design = textsAt({{1, 1, 5, 5}, {3, 3, 5, 5}});
    const LabelLayout copy = edits::copied(design.layout, {{kText, 0}});
    const LabelLayout placed = edits::besideOthers(design.layout, copy, {40, 30});
    EXPECT_EQ(placed.texts[0].box, (LabelBox{5, 5, 5, 5}));
    const RefSet added = edits::add(design, placed);
    EXPECT_EQ(added, (RefSet{{kText, 2}}));

    Design far = textsAt({{60, 1, 5, 5}, {65, 3, 5, 5}});
    const LabelLayout back = edits::besideOthers({}, far.layout, {40, 30});
    EXPECT_EQ(back.texts[0].box, (LabelBox{0, 0, 5, 5}));
    EXPECT_EQ(back.texts[1].box, (LabelBox{5, 2, 5, 5}));

    LabelLayout full;
    full.texts.resize(kMostElements);
    EXPECT_FALSE(edits::hasRoom(full, copy));
    EXPECT_TRUE(edits::hasRoom(full, edits::copied(full, {})));
}

TEST(DesignEdits, StretchingAFrameStretchesWhatIsInIt)
{
    Design design = textsAt({{10, 10, 10, 4}, {20, 16, 10, 4}});
    const RefSet all = RefSet::all(design.layout);
    const QRectF frame = edits::bounds(design.layout, all);
    EXPECT_EQ(frame, QRectF(10, 10, 20, 10));
    edits::stretch(design, all, frame, resized(frame, Handle::bottomRight, {10, 5}, false));
    EXPECT_THAT(boxes(design), ElementsAre(LabelBox{10, 10, 15, 6}, LabelBox{25, 19, 15, 6}));
    edits::grow(design, {{kText, 0}}, {-100, 1});
    EXPECT_EQ(design.layout.texts[0].box, (LabelBox{10, 10, 0.5F, 7}));
    edits::sameSize(design, all, {kText, 1}, Qt::Horizontal);
    EXPECT_EQ(design.layout.texts[0].box, (LabelBox{10, 10, 15, 7}));
}
