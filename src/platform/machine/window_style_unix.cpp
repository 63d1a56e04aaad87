#include "platform/machine/window_style.h"

#include <QAction>
#include <QMenu>
#include <QWidget>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

/// Keeps the style word and maps it to window flags. The word is kept because flags depend on each
/// other: a window with a minimise button always has a title and a system menu, so hiding the
/// control box must hide its buttons without forgetting them.
class FlagWindowStyle final : public WindowStyle
{
public:
    explicit FlagWindowStyle(QWidget &window) : m_window(window)
    {
        const Qt::WindowFlags flags = window.windowFlags();
        const auto read = [&](Qt::WindowFlags hint, auto bit, unsigned &word) {
            if (flags.testAnyFlags(hint))
                word |= static_cast<unsigned>(bit);
        };
        if (!flags.testFlag(Qt::FramelessWindowHint))
            m_style |= static_cast<unsigned>(Bit::titlebar);
        read(Qt::WindowSystemMenuHint, Bit::controlBox, m_style);
        read(Qt::WindowMaximizeButtonHint, Bit::maxButton, m_style);
        read(Qt::WindowMinimizeButtonHint, Bit::minButton, m_style);
        read(Qt::WindowStaysOnTopHint, ExtendedBit::topMost, m_extended);
        read(Qt::WindowContextHelpButtonHint, ExtendedBit::whatsThisButton, m_extended);
        if (window.minimumSize() != window.maximumSize())
            m_style |= static_cast<unsigned>(Bit::sizable);
        if (window.windowType() == Qt::Tool)
            m_extended |= static_cast<unsigned>(ExtendedBit::toolWindow);
    }

    bool test(Bit bit) const override { return (m_style & static_cast<unsigned>(bit)) != 0; }
    bool test(ExtendedBit bit) const override
    {
        return (m_extended & static_cast<unsigned>(bit)) != 0;
    }

    bool set(Bit bit, bool on) override
    {
        if (bit == Bit::sizable && on != test(bit))
            setSizable(on);
        write(m_style, static_cast<unsigned>(bit), on);
        return apply();
    }

    bool set(ExtendedBit bit, bool on) override
    {
        write(m_extended, static_cast<unsigned>(bit), on);
        return apply();
    }

    void redraw() override
    {
        m_window.updateGeometry();
        m_window.update();
    }

    void startDrag() override
    {
        if (QWindow *handle = m_window.windowHandle())
            handle->startSystemMove();
    }

    void showSystemMenu(QPoint screenPoint) override
    {
        QMenu menu(&m_window);
        menu.addAction(u"Geri yükle"_s, &m_window, &QWidget::showNormal);
        menu.addAction(u"Simge durumuna küçült"_s, &m_window, &QWidget::showMinimized);
        menu.addAction(u"Ekranı kapla"_s, &m_window, &QWidget::showMaximized);
        menu.addSeparator();
        menu.addAction(u"Kapat"_s, &m_window, &QWidget::close);
        menu.exec(screenPoint);
    }

private:
    static void write(unsigned &word, unsigned bits, bool on)
    {
        word = on ? word | bits : word & ~bits;
    }

    void setSizable(bool on)
    {
        if (on) {
            m_window.setMinimumSize(m_least);
            m_window.setMaximumSize(m_most);
        } else {
            m_least = m_window.minimumSize();
            m_most = m_window.maximumSize();
            m_window.setFixedSize(m_window.size());
        }
    }

    Qt::WindowFlags flags() const
    {
        Qt::WindowFlags flags = test(ExtendedBit::toolWindow) ? Qt::Tool : Qt::Window;
        flags |= Qt::CustomizeWindowHint;
        flags |= test(Bit::titlebar) ? Qt::WindowTitleHint : Qt::FramelessWindowHint;
        if (test(Bit::titlebar) && test(Bit::controlBox)) {
            flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
            flags.setFlag(Qt::WindowMaximizeButtonHint, test(Bit::maxButton));
            flags.setFlag(Qt::WindowMinimizeButtonHint, test(Bit::minButton));
        }
        flags.setFlag(Qt::WindowStaysOnTopHint, test(ExtendedBit::topMost));
        flags.setFlag(Qt::WindowContextHelpButtonHint, test(ExtendedBit::whatsThisButton));
        return flags;
    }

    /// Changing flags hides a window, so one that was shown is shown again.
    bool apply()
    {
        const bool visible = m_window.isVisible();
        const Qt::WindowFlags wanted = flags();
        m_window.setWindowFlags(wanted);
        if (visible)
            m_window.show();
        return m_window.windowFlags() == wanted;
    }

    QWidget &m_window;
    unsigned m_style = 0;
    unsigned m_extended = 0;
    QSize m_least{0, 0}; ///< limits to go back to when the window becomes sizable again
    QSize m_most{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
};

} // namespace

std::unique_ptr<WindowStyle> windowStyleOf(QWidget &window)
{
    return std::make_unique<FlagWindowStyle>(window);
}
