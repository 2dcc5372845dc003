// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11EventPump.h>
#include <TavikLauncherPlatform/Linux/X11/X11MoveReports.h>
#include <TavikLauncherPlatform/Linux/X11/X11SelectionOwner.h>
#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/WindowServer.h>

namespace Tavik {

/// The panel's dealings with the X server and the window manager.
///
/// What is done to our own windows goes over the toolkit's connection, so that it takes effect in
/// order with what the toolkit does to them; questions and events go over one of our own.
class X11WindowServer final : public WindowServer
{
public:
    /// `toolkit` is the toolkit's connection and must outlive this.
    X11WindowServer(xcb_connection_t* toolkit, MainQueue& mainQueue);

    void preparePanel(WId window) override;
    void setSkipsTaskbar(WId window, bool skips) override;
    void setBlurBehind(WId window, const QRegion& region) override;
    void reportMoves(WId window) override;
    void takeKeyboardFocus(WId window) override;
    void returnKeyboardFocus(WId window) override;
    [[nodiscard]] bool hasKeyboardFocus(WId window) const override;
    [[nodiscard]] bool isOnScreen(WId window) const override;
    [[nodiscard]] bool isCompositing() const override { return m_compositor.window() != XCB_NONE; }
    void beginActivation(const Activation& activation) override;
    void endActivation() override;

private:
    struct Desktop
    {
        xcb_timestamp_t time = XCB_CURRENT_TIME; ///< The server's.
        bool hasManager = false;
    };

    void handle(const xcb_generic_event_t& event);
    /// As they are now; one round trip.
    [[nodiscard]] Desktop desktop();
    [[nodiscard]] xcb_window_t focusedWindow(xcb_connection_t* connection) const;
    [[nodiscard]] bool isFree(xcb_window_t focus, xcb_window_t going) const;
    void awaitWithdrawal(xcb_window_t panel);
    [[nodiscard]] bool isWithdrawn(xcb_window_t panel);
    void finishReturn();

    xcb_connection_t* m_toolkit;
    MainQueue& m_mainQueue;
    X11Connection m_connection;
    X11Atoms m_atoms;
    X11SelectionOwner m_compositor;
    X11MoveReports m_moves;
    mutable X11EventPump m_pump;
    xcb_window_t m_manager = XCB_NONE; ///< The window manager's mark, as far as is known.
    xcb_window_t m_previousActive = XCB_NONE; ///< What the window manager called active.
    xcb_window_t m_previousFocus = XCB_NONE; ///< What really had the keyboard.
    Task m_returnTask;
    QByteArray m_startupId; ///< Of the action that is being carried out.
};

} // namespace Tavik
