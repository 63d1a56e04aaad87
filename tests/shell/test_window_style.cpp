#include "platform/machine/window_style.h"
#include "shell/cls_style.h"

#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

/// A window style that only remembers what was asked of it.
class RecordingStyle final : public WindowStyle
{
public:
    bool test(Bit) const override { return false; }
    bool test(ExtendedBit) const override { return false; }
    bool set(Bit, bool) override { return false; }
    bool set(ExtendedBit, bool) override { return false; }
    void redraw() override {}
    void startDrag() override { ++drags; }
    void showSystemMenu(QPoint) override { ++menus; }

    int drags = 0;
    int menus = 0;
};

} // namespace

TEST(WindowStyleClass, EveryBitReadsBackAsWrittenAndTheWindowStays)
{
    QWidget window;
    window.setGeometry(40, 50, 300, 200);
    window.show();
    const QSize size = window.size();
    const auto style = windowStyleOf(window);
    clsStyle cls(*style);
    const std::pair<bool (clsStyle::*)() const, bool (clsStyle::*)(bool)> properties[] = {
        {&clsStyle::ControlBox, &clsStyle::setControlBox},
        {&clsStyle::MaxButton, &clsStyle::setMaxButton},
        {&clsStyle::MinButton, &clsStyle::setMinButton},
        {&clsStyle::Sizable, &clsStyle::setSizable},
        {&clsStyle::Titlebar, &clsStyle::setTitlebar},
        {&clsStyle::ToolWindow, &clsStyle::setToolWindow},
        {&clsStyle::TopMost, &clsStyle::setTopMost},
        {&clsStyle::WhatsThisButton, &clsStyle::setWhatsThisButton},
    };
    int index = 0;
    for (const auto &[get, set] : properties) {
        for (const bool on : {true, false, true}) {
            EXPECT_TRUE((cls.*set)(on)) << index;
            EXPECT_EQ((cls.*get)(), on) << index;
            EXPECT_TRUE(window.isVisible()) << index;
            EXPECT_EQ(window.size(), size) << index;
        }
        ++index;
    }
}

TEST(WindowStyleClass, TheClientsMouseDragsOrOpensTheMenuOnlyWhenAsked)
{
    RecordingStyle style;
    clsStyle cls(style);
    QWidget client;
    cls.setClient(&client);
    const auto click = [&] {
        QTest::mouseClick(&client, Qt::LeftButton);
        QTest::mouseClick(&client, Qt::RightButton);
    };
    click();
    EXPECT_EQ(style.drags + style.menus, 0);
    cls.setAutoDrag(true);
    cls.setAutoSysMenu(true);
    click();
    EXPECT_EQ(style.drags, 1);
    EXPECT_EQ(style.menus, 1);
    cls.setClient(nullptr);
    click();
    EXPECT_EQ(style.drags, 1);
}
