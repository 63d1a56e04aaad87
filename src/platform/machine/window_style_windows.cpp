#include "platform/machine/window_style.h"

#include <QScreen>
#include <QWidget>
#include <qt_windows.h>

namespace {

constexpr UINT kNothingMoves = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;

/// Reads and writes the style words of the window itself.
class WordWindowStyle final : public WindowStyle
{
public:
    explicit WordWindowStyle(QWidget &window) : m_window(window) {}

    bool test(Bit bit) const override
    {
        return (word(GWL_STYLE) & static_cast<unsigned>(bit)) != 0;
    }
    bool test(ExtendedBit bit) const override
    {
        return (word(GWL_EXSTYLE) & static_cast<unsigned>(bit)) != 0;
    }

    bool set(Bit bit, bool on) override { return write(GWL_STYLE, static_cast<unsigned>(bit), on); }

    bool set(ExtendedBit bit, bool on) override
    {
        // The system keeps the windows of the top-most band in order; writing the bit would not
        // move the window into it.
        if (bit == ExtendedBit::topMost) {
            SetWindowPos(handle(), on ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0, kNothingMoves);
            return test(bit) == on;
        }
        return write(GWL_EXSTYLE, static_cast<unsigned>(bit), on);
    }

    void redraw() override
    {
        SetWindowPos(handle(), nullptr, 0, 0, 0, 0,
                     kNothingMoves | SWP_NOZORDER | SWP_FRAMECHANGED);
    }

    void startDrag() override
    {
        ReleaseCapture();
        SendMessageW(handle(), WM_NCLBUTTONDOWN, HTCAPTION, 0);
    }

    void showSystemMenu(QPoint screenPoint) override
    {
        const QPoint point = inDots(screenPoint);
        const int command =
            TrackPopupMenu(GetSystemMenu(handle(), FALSE), TPM_RETURNCMD | TPM_RIGHTBUTTON,
                           point.x(), point.y(), 0, handle(), nullptr);
        if (command != 0)
            PostMessageW(handle(), WM_SYSCOMMAND, static_cast<WPARAM>(command), 0);
    }

private:
    /// Changes when the toolkit makes the window anew.
    HWND handle() const { return reinterpret_cast<HWND>(m_window.winId()); }

    unsigned word(int which) const
    {
        return static_cast<unsigned>(GetWindowLongPtrW(handle(), which));
    }

    bool write(int which, unsigned bits, bool on)
    {
        const unsigned before = word(which);
        SetWindowLongPtrW(handle(), which,
                          static_cast<LONG_PTR>(on ? before | bits : before & ~bits));
        return (word(which) & bits) == (on ? bits : 0U);
    }

    /// A point of the toolkit, which scales every screen from its corner, in dots of the screen.
    QPoint inDots(QPoint point) const
    {
        const QScreen *const screen = m_window.screen();
        const QPoint corner = screen->geometry().topLeft();
        return corner + (QPointF(point - corner) * screen->devicePixelRatio()).toPoint();
    }

    QWidget &m_window;
};

} // namespace

std::unique_ptr<WindowStyle> windowStyleOf(QWidget &window)
{
    return std::make_unique<WordWindowStyle>(window);
}
