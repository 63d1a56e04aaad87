#pragma once

#include <QPoint>

/// Style bits of one top-level window, read and written one at a time. Numbers: the window style
/// words of Windows; elsewhere the nearest window flag is used.
class WindowStyle
{
public:
    enum class Bit : unsigned
    {
        controlBox = 0x80000,
        maxButton = 0x10000,
        minButton = 0x20000,
        sizable = 0x40000,
        titlebar = 0xC00000,
    };
    enum class ExtendedBit : unsigned
    {
        toolWindow = 0x80,
        topMost = 0x8,
        whatsThisButton = 0x400,
    };

    virtual ~WindowStyle() = default;

    /// For a bit of two parts (titlebar): true when any of them is set.
    virtual bool test(Bit bit) const = 0;
    virtual bool test(ExtendedBit bit) const = 0;

    /// Sets or clears the bit; true only when the read-back equals what was written.
    virtual bool set(Bit bit, bool on) = 0;
    virtual bool set(ExtendedBit bit, bool on) = 0;

    /// Asks the window to compute its frame anew without moving, sizing or changing Z order.
    virtual void redraw() = 0;

    /// Hands the window to the system to be dragged with the pressed mouse button.
    virtual void startDrag() = 0;

    /// Opens the system menu at a screen point.
    virtual void showSystemMenu(QPoint screenPoint) = 0;
};
