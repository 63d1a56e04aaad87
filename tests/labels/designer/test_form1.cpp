#include "fakes/fake_ports.h"
#include "labels/designer/designer_session.h"
#include "labels/designer/designs.h"
#include "labels/designer/forms/Form1.h"
#include "labels/designer/forms/design_canvas.h"
#include "support/keyboard.h"
#include "support/print_qt.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The designer's window under real mouse and key events.
class Form1Test : public testing::Test
{
protected:
    void SetUp() override
    {
        Design design = textsAt({{10, 10, 20, 6}, {40, 20, 15, 6}});
        session.editor().load(design);
        session.editor().run(Command::snap); // off
        form.resize(1200, 700);
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        canvas = form.findChild<DesignCanvas *>();
        canvas->setFocus();
    }

    QPoint at(QPointF mm) const { return canvas->view().toPixels(mm).toPoint(); }
    void drag(QPointF from, QPointF to, Qt::KeyboardModifiers keys = {})
    {
        QTest::mousePress(canvas->viewport(), Qt::LeftButton, keys, at(from));
        mouseMove(canvas->viewport(), at((from + to) / 2), keys);
        mouseMove(canvas->viewport(), at(to), keys);
        QTest::mouseRelease(canvas->viewport(), Qt::LeftButton, keys, at(to));
    }
    void mouseMove(QWidget *widget, QPoint to, Qt::KeyboardModifiers keys)
    {
        QMouseEvent event(QEvent::MouseMove, to, widget->mapToGlobal(to), Qt::NoButton,
                          Qt::LeftButton, keys);
        QApplication::sendEvent(widget, &event);
    }
    LabelBox box(std::size_t text) { return session.editor().layout().texts[text].box; }
    template <typename T>
    T *child(const QString &name)
    {
        return form.findChild<T *>(name);
    }
    /// The dialog that is open now; waits until it has the keyboard. (Its QWindow counts as active
    /// while the one behind it is, so qWaitForWindowActive() would not wait.)
    QDialog *dialog()
    {
        QDialog *active = nullptr;
        const auto taken = [&] {
            active = qobject_cast<QDialog *>(QApplication::activeWindow());
            return active && active->isAncestorOf(QApplication::focusWidget());
        };
        return QTest::qWaitFor(taken) ? active : nullptr;
    }
    static void expectNear(const LabelBox &actual, const LabelBox &expected)
    {
        constexpr float pixel = 0.25F; // mm, at the zoom of the test
        EXPECT_NEAR(actual.left, expected.left, pixel);
        EXPECT_NEAR(actual.top, expected.top, pixel);
        EXPECT_NEAR(actual.width, expected.width, pixel);
        EXPECT_NEAR(actual.height, expected.height, pixel);
    }

    FakeMachine machine;
    DesignerSession session{machine.program};
    Form1 form{session};
    DesignCanvas *canvas = nullptr;
};

} // namespace

TEST_F(Form1Test, TheMouseMovesResizesAndDraws)
{
    drag({15, 12}, {25, 14});
    expectNear(box(0), {20, 12, 20, 6});
    drag({40, 18}, {50, 21}, Qt::NoModifier);
    expectNear(box(0), {20, 12, 30, 9});
    key(Qt::Key_B);
    drag({2, 22}, {38, 36});
    ASSERT_EQ(session.editor().layout().barcodes.size(), 1U);
    expectNear(session.editor().layout().barcodes[0].box, {2, 22, 36, 14});
    EXPECT_TRUE(form.isWindowModified());
    for (int i = 0; i < 3; ++i)
        key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box(0), (LabelBox{10, 10, 20, 6}));
    EXPECT_FALSE(form.isWindowModified());
}

TEST_F(Form1Test, EverythingGoesByKeys)
{
    key(Qt::Key_Tab);
    key(Qt::Key_Right);
    key(Qt::Key_Down, Qt::ShiftModifier);
    key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(box(0), (LabelBox{10.1F, 11, 20.1F, 6}));
    key(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(session.editor().layout().texts[0].angle, 90);
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(box(0).left, box(1).left);
    key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(session.editor().layout().texts.size(), 4U);
    key(Qt::Key_Delete);
    EXPECT_EQ(session.editor().layout().texts.size(), 2U);

    key(Qt::Key_M); // a text in the middle of the label, by keys alone
    key(Qt::Key_Return);
    ASSERT_NE(dialog(), nullptr);
    type(u"Süt 1 L"_s);
    key(Qt::Key_Return);
    ASSERT_EQ(session.editor().layout().texts.size(), 3U);
    EXPECT_EQ(session.editor().layout().texts[2].caption, u"Süt 1 L"_s);
    EXPECT_EQ(session.editor().captionFor(Command::undo), u"&Geri Al: Ekleme"_s);
}

TEST_F(Form1Test, ADialogIsKeptOrDroppedAsAWhole)
{
    key(Qt::Key_Tab);
    key(Qt::Key_F2);
    ASSERT_NE(dialog(), nullptr);
    EXPECT_EQ(focus(), u"caption"_s);
    type(u"başka"_s);
    EXPECT_EQ(session.editor().layout().texts[0].caption, u"başka"_s); // shown at once
    key(Qt::Key_Escape);
    EXPECT_EQ(session.editor().layout().texts[0].caption, u"metin"_s);
    EXPECT_FALSE(session.editor().can(Command::undo));
}

TEST_F(Form1Test, ThePanelTakesNumbersWithCommaOrPoint)
{
    key(Qt::Key_Tab);
    key(Qt::Key_F4);
    EXPECT_EQ(focus(), u"left"_s);
    QTest::keyClick(focused(), Qt::Key_A, Qt::ControlModifier);
    type(u"12.5"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(box(0).left, 12.5F);
    QTest::keyClick(focused(), Qt::Key_A, Qt::ControlModifier);
    type(u"-3,25"_s);
    key(Qt::Key_Return);
    EXPECT_NEAR(box(0).left, -3.3F, 0.06);
    key(Qt::Key_Delete); // belongs to the box, not to the element
    EXPECT_EQ(session.editor().layout().texts.size(), 2U);
    key(Qt::Key_Escape);
    EXPECT_TRUE(canvas->hasFocus());
}

TEST_F(Form1Test, GuidesComeOutOfTheRulers)
{
    auto *ruler = child<QWidget>(u"dikeyCetvel"_s);
    QTest::mousePress(ruler, Qt::LeftButton, {}, {10, 50});
    const QPoint end = ruler->mapFromGlobal(canvas->viewport()->mapToGlobal(at({30, 10})));
    mouseMove(ruler, end, Qt::ControlModifier);
    QTest::mouseRelease(ruler, Qt::LeftButton, Qt::ControlModifier, end);
    ASSERT_EQ(session.editor().design().guides.vertical.size(), 1U);
    EXPECT_NEAR(session.editor().design().guides.vertical[0], 30, 0.3);
}

TEST_F(Form1Test, TheWheelKeepsWhatIsUnderTheMouse)
{
    const QPointF mm(30, 10);
    const QPointF before = canvas->view().toPixels(mm);
    const double zoom = canvas->view().zoom();
    QWheelEvent event(before, canvas->viewport()->mapToGlobal(before), {}, {0, 240}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(canvas->viewport(), &event);
    EXPECT_GT(canvas->view().zoom(), zoom);
    EXPECT_NEAR(canvas->view().toPixels(mm).x(), before.x(), 0.01);
    EXPECT_NEAR(canvas->view().toPixels(mm).y(), before.y(), 0.01);
    key(Qt::Key_F5);
    EXPECT_EQ(child<QLabel>(u"yakinlik"_s)->text(), u"%100"_s);
}

TEST_F(Form1Test, AFittedPageComesToRestInAnyWindow)
{
    int moves = 0;
    QObject::connect(canvas, &DesignCanvas::viewChanged, &form, [&] { ++moves; });
    for (int height = 500; height < 760; height += 13) {
        form.resize(900 + height / 2, height);
        canvas->zoomFit();
        QTest::qWait(5);
    }
    EXPECT_LT(moves, 150);
}

TEST_F(Form1Test, APrinterIsNotAskedAtEachKeyOfASize)
{
    session.newLayout();
    key(Qt::Key_E, Qt::ControlModifier);
    ASSERT_NE(dialog(), nullptr);
    const std::size_t asked = machine.printers.documents.size();
    auto *width = dialog()->findChild<QLineEdit *>(u"en"_s);
    width->setFocus();
    width->selectAll();
    type(u"220"_s);
    EXPECT_EQ(machine.printers.documents.size(), asked);
    key(Qt::Key_Tab);
    EXPECT_EQ(machine.printers.documents.size(), asked + 1);

    machine.printers.list.clear(); // unplugged
    width->setFocus();
    type(u"5"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(session.editor().layout().paperWidth, u"2205"_s);
    EXPECT_EQ(session.editor().layout().printer, u"PDF"_s);
}

TEST_F(Form1Test, ClosingAsksAboutUnsavedWork)
{
    key(Qt::Key_Tab);
    key(Qt::Key_Right);
    machine.prompt.answers = {Answer::closed, Answer::yes, Answer::no};
    EXPECT_FALSE(form.close());
    EXPECT_FALSE(form.close());
    ASSERT_NE(dialog(), nullptr); // the save dialog
    key(Qt::Key_Escape);
    EXPECT_TRUE(form.close());
}
