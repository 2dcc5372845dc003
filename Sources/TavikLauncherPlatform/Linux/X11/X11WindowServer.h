// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11EventPump.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyboardFocus.h>
#include <TavikLauncherPlatform/Linux/X11/X11MoveReports.h>
#include <TavikLauncherPlatform/Linux/X11/X11PointerFinder.h>
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
    /// Where the server speaks for another window system.
    enum class Xwayland {
        no,
        yes,
        findsPointer, ///< Its compositor tells a window of ours where the pointer is.
    };

    /// `toolkit` is the toolkit's connection and must outlive this. Whether the window manager
    /// manages the panel is decided here, once.
    X11WindowServer(xcb_connection_t* toolkit,
                    MainQueue& mainQueue,
                    Xwayland xwayland = Xwayland::no);

    /// Where the pointer is, in device pixels; asks the server. Where that is not sure, a panel
    /// that is shown next and takes the keyboard waits for its place; see `onPointerFound`.
    [[nodiscard]] std::optional<QPoint> pointer();

    [[nodiscard]] Means pointerMeans() const override;
    [[nodiscard]] Means overlayMeans() const override;
    [[nodiscard]] bool isPanelManaged() const override { return m_isPanelManaged; }
    void preparePanel(WId window) override;
    void movePanel(WId window, QPoint pixel) override;
    [[nodiscard]] bool panelShown(WId window) override;
    void panelHides(WId window) override;
    void setInputRegion(WId window, const QRegion& region) override;
    void setShape(WId window, const QRegion& region) override;
    void setSkipsTaskbar(WId window, bool skips) override;
    void setBlurBehind(WId window, const QRegion& region) override;
    void declineShadow(WId window) override;
    void reportMoves(WId window) override;
    [[nodiscard]] bool isOnCurrentDesktop(WId window) const override;
    void takeKeyboardFocus(WId window) override;
    void takeKeyboardFocusForPanel() override;
    void returnKeyboardFocus() override;
    [[nodiscard]] bool hasKeyboardFocus(WId window) const override;
    [[nodiscard]] bool isOnScreen(WId window) const override;
    [[nodiscard]] QImage pictureAt(WId window) const override;
    [[nodiscard]] bool isCompositing() const override { return m_compositor.window() != XCB_NONE; }
    void beginActivation(const Activation& activation) override;
    void endActivation() override;

    /// Whether the panel got the press of a key at a time of the server; see X11KeyboardFocus.
    [[nodiscard]] bool panelGotKey(xcb_keycode_t key, xcb_timestamp_t time);
    /// Runs `done` when the panel's keyboard is under way no longer; see X11KeyboardFocus.
    void whenSettled(const std::function<void()>& done) { m_focus.whenSettled(done); }

private:
    using Clock = std::chrono::steady_clock;

    void handle(const xcb_generic_event_t& event);
    void awaitWithdrawal();
    [[nodiscard]] bool isWithdrawn() const;
    [[nodiscard]] bool isMarked() const;
    void pointerFound();

    xcb_connection_t* m_toolkit;
    MainQueue& m_mainQueue;
    X11Connection m_connection;
    X11Atoms m_atoms;
    Xwayland m_xwayland;
    bool m_isPanelManaged;
    X11SelectionOwner m_compositor;
    X11MoveReports m_moves;
    mutable X11EventPump m_pump;
    X11KeyboardFocus m_focus;
    std::optional<X11PointerFinder> m_finder;
    bool m_isPointerUnsure = false; ///< As it was asked for in this round of the main loop.
    bool m_isPanelShown = false;
    /// When the panel was last hidden before the window manager had heard of its showing.
    Clock::time_point m_hiddenUnheardOf;
    Task m_unusedTask; ///< Nobody has shown the panel since the pointer was asked for.
    xcb_window_t m_panel = XCB_NONE; ///< The one that was prepared last.
    QByteArray m_startupId; ///< Of the action that is being carried out.
};

} // namespace Tavik
