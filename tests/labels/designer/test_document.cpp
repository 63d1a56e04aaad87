#include "labels/designer/design_edits.h"
#include "labels/designer/designs.h"
#include "labels/designer/document.h"

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;

namespace {

/// Does anything a user could do to a document.
class Walker
{
public:
    explicit Walker(unsigned seed) : m_random(seed) {}

    void step(Document &document)
    {
        const RefSet chosen = pick(document.layout());
        document.select(chosen);
        Design &design = document.edit();
        switch (number(11)) {
        case 0:
            return commit(document, edits::add(design, oneOfEach()));
        case 1:
            edits::erase(design, chosen);
            return commit(document, {});
        case 2:
            return commit(document, edits::reorder(design, chosen, edits::Order(number(4))));
        case 3:
            edits::turn(design, chosen, number(4));
            break;
        case 4:
            edits::setLocked(design, chosen, number(2) == 0);
            break;
        case 5:
            edits::align(design, chosen, edits::Edge(number(6)), {0, 0, 50, 30});
            break;
        case 6:
            edits::distribute(design, chosen, number(2) == 0 ? Qt::Horizontal : Qt::Vertical);
            break;
        case 7:
            edits::grow(design, chosen, {number(9) / 10.0, -number(9) / 10.0});
            break;
        case 8:
            design.guides.vertical.push_back(tenth(number(500) / 10.0));
            break;
        case 9:
            design.layout.left = QString::number(number(20));
            break;
        default:
            edits::move(design, chosen, {number(99) / 10.0, number(99) / -10.0});
        }
        commit(document, chosen);
    }

    int number(int below) { return std::uniform_int_distribution(0, below - 1)(m_random); }

private:
    void commit(Document &document, const RefSet &selection)
    {
        if (number(8) == 0)
            document.rollback();
        document.commit(u"adım"_s, selection, number(3));
    }
    RefSet pick(const LabelLayout &layout)
    {
        return RefSet::all(layout).filtered([this](LabelRef) { return number(3) == 0; });
    }
    LabelLayout oneOfEach()
    {
        LabelLayout layout;
        layout.pictures = {{{tenth(number(40)), 1, 5, 5}, u"a.png"_s}};
        layout.barcodes = {barsAt({2, tenth(number(40)), 20, 9})};
        layout.texts = {textAt({3, 3, tenth(1 + number(30)), 4}, QString::number(number(99)))};
        return layout;
    }

    std::mt19937 m_random;
};

} // namespace

TEST(Document, RandomWalksOfUndoEndWhereTheyBeganAndBack)
{
    for (unsigned seed = 0; seed < 40; ++seed) {
        Walker walker(seed);
        const Design opened = textsAt({{1, 1, 20, 5}, {1, 9, 20, 5}, {5, 5, 9.9F, 3.3F}});
        Document document(opened);
        for (int i = 0; i < 120; ++i) {
            const int way = walker.number(5);
            if (way == 0)
                document.undo();
            else if (way == 1)
                document.redo();
            else
                walker.step(document);
        }
        while (document.history().canRedo())
            document.redo();
        const Design last = document.design();
        int steps = 0;
        for (; document.history().canUndo(); ++steps)
            document.undo();
        EXPECT_EQ(document.design(), opened) << seed;
        EXPECT_FALSE(document.isDirty());
        while (document.history().canRedo())
            document.redo();
        EXPECT_EQ(document.design(), last) << seed;
        EXPECT_GT(steps, 5);
    }
}

TEST(Document, StepsOfOneKindBecomeOneUntilTheSelectionChanges)
{
    Document document(textsAt({{1, 1, 20, 5}, {1, 9, 20, 5}}));
    const auto nudge = [&] {
        edits::move(document.edit(), document.selection(), {0.1, 0});
        document.commit(u"Kaydırma"_s, 7);
    };
    document.select({{kText, 0}});
    nudge();
    nudge();
    document.select({{kText, 1}});
    nudge();
    EXPECT_EQ(document.history().undoText(), u"Kaydırma"_s);
    document.undo();
    EXPECT_EQ(document.layout().texts[0].box.left, 1.2F);
    document.undo();
    EXPECT_FALSE(document.history().canUndo());
    EXPECT_EQ(document.selection(), (RefSet{{kText, 0}}));
    document.edit();
    EXPECT_FALSE(document.commit(u"Hiçbir şey"_s));
    EXPECT_TRUE(document.history().canRedo()); // nothing changed, so nothing is forgotten
}

TEST(Document, KnowsWhetherItWasSaved)
{
    Document document(textsAt({{1, 1, 20, 5}}));
    document.select({{kText, 0}});
    edits::move(document.edit(), document.selection(), {1, 0});
    document.commit(u"Taşıma"_s);
    EXPECT_TRUE(document.isDirty());
    document.markSaved();
    EXPECT_FALSE(document.isDirty());
    document.undo();
    EXPECT_TRUE(document.isDirty());
    edits::move(document.edit(), document.selection(), {1, 0}); // by hand to where it was saved
    document.commit(u"Taşıma"_s);
    EXPECT_FALSE(document.isDirty());
    document.markUnsaved();
    EXPECT_TRUE(document.isDirty());
}
