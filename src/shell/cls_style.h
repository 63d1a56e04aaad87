#pragma once

#include "common/window_style.h"

#include <QObject>
#include <QPointer>

/// Style of one form's window: title bar, buttons and frame, always-on-top, and dragging or opening
/// the system menu from the client area. The setters of style bits return true only when the window
/// took the change. Nothing but TopMost is used yet.
class clsStyle : public QObject
{
    Q_OBJECT

public:
    explicit clsStyle(WindowStyle &window, QObject *parent = nullptr);

    bool ControlBox() const { return m_window.test(WindowStyle::Bit::controlBox); }
    bool MaxButton() const { return m_window.test(WindowStyle::Bit::maxButton); }
    bool MinButton() const { return m_window.test(WindowStyle::Bit::minButton); }
    bool Sizable() const { return m_window.test(WindowStyle::Bit::sizable); }
    bool Titlebar() const { return m_window.test(WindowStyle::Bit::titlebar); }
    bool ToolWindow() const { return m_window.test(WindowStyle::ExtendedBit::toolWindow); }
    bool TopMost() const { return m_window.test(WindowStyle::ExtendedBit::topMost); }
    bool WhatsThisButton() const
    {
        return m_window.test(WindowStyle::ExtendedBit::whatsThisButton);
    }

    bool setControlBox(bool on) { return m_window.set(WindowStyle::Bit::controlBox, on); }
    bool setMaxButton(bool on) { return m_window.set(WindowStyle::Bit::maxButton, on); }
    bool setMinButton(bool on) { return m_window.set(WindowStyle::Bit::minButton, on); }
    bool setSizable(bool on) { return m_window.set(WindowStyle::Bit::sizable, on); }
    bool setTitlebar(bool on) { return m_window.set(WindowStyle::Bit::titlebar, on); }
    bool setToolWindow(bool on) { return m_window.set(WindowStyle::ExtendedBit::toolWindow, on); }
    bool setTopMost(bool on) { return m_window.set(WindowStyle::ExtendedBit::topMost, on); }
    bool setWhatsThisButton(bool on)
    {
        return m_window.set(WindowStyle::ExtendedBit::whatsThisButton, on);
    }

    /// Pressing the left mouse button in the client area drags the window.
    bool AutoDrag() const { return m_autoDrag; }
    void setAutoDrag(bool on) { m_autoDrag = on; }

    /// Releasing the right mouse button in the client area opens the system menu at the cursor.
    bool AutoSysMenu() const { return m_autoSysMenu; }
    void setAutoSysMenu(bool on) { m_autoSysMenu = on; }

    /// The object whose mouse events are watched; may be null.
    QObject *Client() const { return m_client; }
    void setClient(QObject *client);

    void pRedraw() { m_window.redraw(); }
    void ShowSysMenu(QPoint screenPoint) { m_window.showSystemMenu(screenPoint); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    WindowStyle &m_window;
    QPointer<QObject> m_client;
    bool m_autoDrag = false;
    bool m_autoSysMenu = false;
};
