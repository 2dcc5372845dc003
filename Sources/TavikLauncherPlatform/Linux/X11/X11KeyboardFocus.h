// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11EventPump.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <deque>
#include <functional>
#include <utility>

namespace Tavik {

/// Who has the keyboard: gives it to our windows, and takes care of the panel's while that is
/// shown.
///
/// The panel is a window that no window manager manages, so that none can frame, move, tile or
/// delay it. Its focus is set by ourselves and watched by ourselves: a click elsewhere and another
/// window that takes the keyboard end it, a focus that merely follows the pointer is taken back.
/// Under a server that speaks for another window system the focus is not ours to give, and KWin
/// draws an unmanaged window late; there the panel is managed, and the focus is asked for.
class X11KeyboardFocus
{
public:
    struct Dependencies
    {
        xcb_connection_t* toolkit; ///< What must be in order with what the toolkit does goes here.
        const X11Connection& connection;
        const X11Atoms& atoms;
        X11EventPump& pump; ///< Of `connection`.
        MainQueue& mainQueue;
        bool isPanelManaged = false;
        std::function<void()> panelLeft; ///< The user has turned to something else.
    };

    explicit X11KeyboardFocus(Dependencies dependencies);

    /// Gives the keyboard to a shown window, also against focus-stealing prevention.
    void take(xcb_window_t window);

    /// The panel is not mapped yet.
    void preparePanel(xcb_window_t panel);
    /// Remembers who has the keyboard, and gives it to the panel that was prepared last.
    void takeForPanel();
    /// Gives the keyboard back, unless another window has taken it since. The panel is still mapped
    /// and, unless it is managed, no longer so afterwards.
    void giveBack();

    /// Runs `done` as soon as the panel's keyboard is under way no longer: at once, unless a window
    /// manager has still to give it, else when it has come or the panel goes.
    void whenSettled(const std::function<void()>& done);

    [[nodiscard]] bool has(xcb_window_t window) const;
    /// Whether the panel got the press of a key at that time. The press is known to the server.
    [[nodiscard]] bool panelGotKey(xcb_keycode_t key, xcb_timestamp_t time);
    void handle(const xcb_generic_event_t& event);

private:
    struct Desktop
    {
        xcb_timestamp_t time = XCB_CURRENT_TIME; ///< The server's.
        bool hasManager = false;
    };
    /// As they are now; one round trip.
    [[nodiscard]] Desktop desktop();
    [[nodiscard]] xcb_window_t focusedWindow(xcb_connection_t* connection) const;
    [[nodiscard]] bool isNobodys(xcb_window_t focus) const;
    [[nodiscard]] bool isViewable(xcb_window_t window) const;
    [[nodiscard]] bool isHere(xcb_window_t window) const;
    struct Pointer
    {
        std::pair<int, int> place; ///< Device pixels on the root window.
        xcb_window_t window = XCB_NONE; ///< The window right below the root that it is in.
    };
    [[nodiscard]] Pointer pointer() const;
    void rememberPrevious();
    void tellManagerTime();
    void watchPanel(bool watches);
    void settle();
    void checkPanelFocus(bool isFinal);
    void checkClick();
    void giveToPrevious();
    void unmapUnnoticed();
    void giveToSomebody();
    [[nodiscard]] xcb_window_t visibleWindow() const;

    Dependencies m_dependencies;
    int m_inputExtension = -1; ///< The number of the input extension, which tells of clicks.
    xcb_window_t m_panel = XCB_NONE; ///< While it is shown with the keyboard.
    xcb_window_t m_preparedPanel = XCB_NONE;
    xcb_window_t m_manager = XCB_NONE; ///< The window manager's mark, as far as is known.
    xcb_window_t m_previousActive = XCB_NONE; ///< What the window manager called active.
    xcb_window_t m_previousFocus = XCB_NONE; ///< What really had the keyboard.
    std::pair<int, int> m_pointerPlace; ///< Of the pointer when the panel took the keyboard.
    xcb_timestamp_t m_takenAt = XCB_CURRENT_TIME; ///< When the panel took the keyboard last.
    int m_retakes = 0; ///< Since the keyboard stayed here for a while.
    std::function<void()> m_whenSettled;
    Task m_checkTask; ///< Whether the keyboard has been had in the end.
    Task m_lossTask;
    Task m_returnTask;
    std::deque<std::pair<xcb_keycode_t, xcb_timestamp_t>> m_panelKeys; ///< The last few presses.
};

} // namespace Tavik
