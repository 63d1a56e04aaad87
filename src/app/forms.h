#pragma once

#include "shell/forms/look.h"

#include <QMenu>
#include <QPointer>
#include <QToolButton>
#include <QWidget>

#include <functional>

/// Keeps a window over those of other programs, or no longer. One that is as wanted is left alone:
/// a change would show it anew.
void keepOnTop(QWidget &window, bool on);

/// How the forms of all rooms are made and brought up. Each is made on first use and unloaded when
/// it is closed.
class Forms
{
public:
    /// `tillOnTop`: whether a till is kept over other windows; it would hide them.
    Forms(QMenu *menu, std::function<bool()> tillOnTop)
        : m_menu(menu), m_tillOnTop(std::move(tillOnTop))
    {}

    /// Makes a form when it is not there, unseen as yet.
    template <typename Form, typename Make>
    void ready(QPointer<Form> &form, Make make) const
    {
        // A form that was closed while it still worked lives on unseen until it is done; it is not
        // shown again.
        if (form && form->isVisible()) {
            // One that was there before the till would stay beneath it and take the keys unseen.
            if (m_tillOnTop())
                keepOnTop(*form, true);
            return;
        }
        const bool onTop = m_tillOnTop();
        form = make();
        form->setAttribute(Qt::WA_DeleteOnClose);
        fitToScreen(*form);
        if (onTop)
            form->setWindowFlag(Qt::WindowStaysOnTopHint);
    }

    /// Brings a form up, making it first when it is not there.
    template <typename Form, typename Make>
    void show(QPointer<Form> &form, Make make) const
    {
        ready(form, make);
        form->show();
        form->raise();
        form->activateWindow();
    }

    /// The main menu, for desktops without a tray.
    void giveMenu(QToolButton *button) const
    {
        button->setMenu(m_menu);
        button->setPopupMode(QToolButton::InstantPopup);
        button->show();
    }

private:
    QMenu *m_menu;
    std::function<bool()> m_tillOnTop;
};
