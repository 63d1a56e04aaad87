#include "labels/designer/design_editor.h"
#include "labels/designer/designs.h"

#include <QSet>
#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr double kReach = 0.5; // mm

/// An editor over two texts on a label of 70 × 37, driven as the canvas drives it.
class DesignEditorTest : public testing::Test
{
protected:
    DesignEditorTest()
    {
        Design design = textsAt({{10, 10, 20, 6}, {40, 20, 15, 6}});
        design.label = {70, 37};
        editor.load(design);
        editor.run(Command::snap); // off: each test that snaps says so
    }

    void drag(QPointF from, QPointF to, bool shift = false, bool control = false)
    {
        editor.press({from, kReach, false, false});
        editor.move({(from + to) / 2, kReach, shift, control});
        editor.release({to, kReach, shift, control});
    }
    void click(QPointF at, bool shift = false)
    {
        editor.press({at, kReach, shift, false});
        editor.release({at, kReach, shift, false});
    }
    LabelBox box(std::size_t text) const { return editor.layout().texts[text].box; }

    const RefSet first{{kText, 0}};
    const RefSet both{{kText, 0}, {kText, 1}};
    DesignEditor editor;
};

} // namespace

TEST_F(DesignEditorTest, ClicksSelectAddAndGiveUp)
{
    click({15, 12});
    EXPECT_EQ(editor.selection(), first);
    click({45, 22}, true);
    EXPECT_EQ(editor.selection(), both);
    click({45, 22}, true);
    EXPECT_EQ(editor.selection(), first);
    click({60, 5});
    EXPECT_TRUE(editor.selection().isEmpty());
    EXPECT_FALSE(editor.document().history().canUndo()); // choosing is no step
}

TEST_F(DesignEditorTest, TheRubberBandTakesWhatLiesInsideAndIsNotLocked)
{
    drag({5, 5}, {60, 30});
    EXPECT_EQ(editor.selection(), both);
    drag({5, 5}, {45, 30});
    EXPECT_EQ(editor.selection(), first);
    editor.run(Command::lock);
    drag({5, 5}, {60, 30});
    EXPECT_EQ(editor.selection(), (RefSet{{kText, 1}}));
}

TEST_F(DesignEditorTest, DraggingMovesAllThatIsSelectedAsOneStep)
{
    editor.select(both);
    drag({15, 12}, {18.04, 13});
    EXPECT_EQ(box(0), (LabelBox{13, 11, 20, 6}));
    EXPECT_EQ(box(1), (LabelBox{43, 21, 15, 6}));
    drag({45, 23}, {55, 25}, true); // held straight
    EXPECT_EQ(box(1), (LabelBox{53, 21, 15, 6}));
    editor.run(Command::undo);
    editor.run(Command::undo);
    EXPECT_EQ(box(0), (LabelBox{10, 10, 20, 6}));
    EXPECT_FALSE(editor.can(Command::undo));
    drag({15, 12}, {15.1, 12}); // a hand that shakes moves nothing
    EXPECT_FALSE(editor.can(Command::undo));
}

TEST_F(DesignEditorTest, HandlesResizeOneOrTheCommonFrame)
{
    click({15, 12});
    drag({30, 16}, {35, 20});
    EXPECT_EQ(box(0), (LabelBox{10, 10, 25, 10}));
    drag({35, 20}, {60, 20}, true);
    EXPECT_EQ(box(0), (LabelBox{10, 10, 50, 20}));
    editor.run(Command::undo);
    editor.run(Command::undo);
    editor.select(both);
    drag({55, 26}, {77.5, 34});
    EXPECT_EQ(box(0), (LabelBox{10, 10, 30, 9}));
    EXPECT_EQ(box(1), (LabelBox{55, 25, 22.5F, 9}));
}

TEST_F(DesignEditorTest, EscapeGivesUpTheDragThenTheToolThenTheSelection)
{
    click({15, 12});
    editor.run(Command::addText);
    editor.press({{15, 12}, kReach});
    editor.move({{30, 20}, kReach});
    editor.escape();
    EXPECT_EQ(editor.pointer().tool(), Tool::text);
    editor.escape();
    EXPECT_EQ(editor.pointer().tool(), Tool::pointer);
    editor.press({{15, 12}, kReach});
    editor.move({{30, 20}, kReach});
    EXPECT_NE(box(0), (LabelBox{10, 10, 20, 6}));
    editor.escape();
    EXPECT_EQ(box(0), (LabelBox{10, 10, 20, 6}));
    EXPECT_EQ(editor.selection(), first);
    editor.escape();
    EXPECT_TRUE(editor.selection().isEmpty());
}

TEST_F(DesignEditorTest, SnappingShowsItsLineAndControlSuspendsIt)
{
    editor.run(Command::snap);
    click({15, 12});
    editor.press({{15, 12}, kReach});
    editor.move({{15, 21.7}, kReach}); // the top comes near that of the other text
    ASSERT_EQ(editor.pointer().snapLines().size(), 1U);
    EXPECT_EQ(editor.pointer().snapLines().back().at, 20);
    EXPECT_EQ(box(0).top, 20);
    editor.move({{15, 21.7}, kReach, false, true});
    EXPECT_TRUE(editor.pointer().snapLines().empty());
    EXPECT_EQ(box(0).top, 19.7F);
    editor.release({{15, 21.7}, kReach, false, true});
    editor.run(Command::grid);
    drag({15, 22}, {17.6, 22});
    EXPECT_EQ(box(0).left, 13); // the grid's next line
}

TEST_F(DesignEditorTest, ToolsDrawAtTheirSizeOrAtAClick)
{
    bool asked = false;
    QObject::connect(&editor, &DesignEditor::propertiesWanted, [&](bool fresh) { asked = fresh; });
    editor.run(Command::addBarcode);
    drag({1, 1}, {39, 15});
    ASSERT_EQ(editor.layout().barcodes.size(), 1U);
    EXPECT_EQ(editor.layout().barcodes[0].box, (LabelBox{1, 1, 38, 14}));
    EXPECT_EQ(editor.pointer().tool(), Tool::pointer);
    EXPECT_FALSE(asked);

    editor.run(Command::addText);
    click({2, 30});
    EXPECT_TRUE(asked);
    EXPECT_EQ(box(2), (LabelBox{2, 30, 30, 5}));
    editor.endEditing(false); // its dialog was cancelled
    EXPECT_EQ(editor.layout().texts.size(), 2U);

    editor.run(Command::addPicture);
    editor.placeByKey();
    editor.endEditing(true);
    EXPECT_EQ(editor.layout().pictures[0].box, (LabelBox{27.5F, 11, 15, 15}));
    editor.run(Command::undo);
    EXPECT_TRUE(editor.layout().pictures.empty());
}

TEST_F(DesignEditorTest, GuidesAreDrawnMovedAndDroppedBesideTheLabel)
{
    editor.pressRuler(Qt::Vertical);
    editor.move({{12.34, 5}, kReach});
    editor.release({{12.34, 5}, kReach});
    EXPECT_EQ(editor.design().guides.vertical, std::vector<float>{12.3F});
    drag({12.3, 30}, {33, 30});
    EXPECT_EQ(editor.design().guides.vertical, std::vector<float>{33});
    drag({33, 30}, {90, 30});
    EXPECT_TRUE(editor.design().guides.vertical.empty());
    editor.run(Command::undo);
    EXPECT_EQ(editor.design().guides.vertical, std::vector<float>{33});
}

TEST_F(DesignEditorTest, LockedElementsStandStill)
{
    QString said;
    QObject::connect(&editor, &DesignEditor::statusChanged, [&](const QString &s) { said = s; });
    editor.select(first);
    editor.run(Command::lock);
    const Design locked = editor.design();
    drag({15, 12}, {30, 20});
    drag({10, 10}, {5, 5});
    editor.nudge({1, 0});
    editor.grow({1, 0});
    for (const Command command : {Command::erase, Command::turnLeft, Command::alignRight})
        EXPECT_FALSE(editor.run(command));
    EXPECT_EQ(editor.design(), locked);
    EXPECT_TRUE(said.contains(u"kilitli"_s));
    editor.run(Command::lock);
    EXPECT_TRUE(editor.design().locked.isEmpty());
}

TEST_F(DesignEditorTest, CopiesGoWithinAndBetweenLayouts)
{
    LabelLayout clipboard;
    QObject::connect(&editor, &DesignEditor::copied, [&](const LabelLayout &l) { clipboard = l; });
    editor.select(first);
    editor.run(Command::copy);
    editor.paste(clipboard);
    EXPECT_EQ(box(2), (LabelBox{12, 12, 20, 6}));
    EXPECT_EQ(editor.selection(), (RefSet{{kText, 2}}));
    editor.run(Command::cut);
    EXPECT_EQ(editor.layout().texts.size(), 2U);
    editor.load({});
    editor.paste(clipboard);
    EXPECT_EQ(box(0), (LabelBox{12, 12, 20, 6}));

    Design full;
    full.layout.texts.resize(kMostElements);
    editor.load(full);
    editor.paste(clipboard);
    EXPECT_EQ(editor.layout().texts.size(), static_cast<std::size_t>(kMostElements));
}

// Every command of the menus is known, bears a key of its own, and says what it undoes.
TEST_F(DesignEditorTest, EveryCommandHasItsOwnKey)
{
    QStringList keys;
    for (const CommandInfo &info : commandTable()) {
        keys += QString::fromUtf16(info.keys).split(u"; "_s, Qt::SkipEmptyParts);
        EXPECT_FALSE(editor.captionFor(info.command).isEmpty());
    }
    EXPECT_EQ(QSet<QString>(keys.begin(), keys.end()).size(), keys.size());
    editor.select(first);
    editor.run(Command::turnLeft);
    EXPECT_EQ(editor.captionFor(Command::undo), u"&Geri Al: Döndürme"_s);
}
