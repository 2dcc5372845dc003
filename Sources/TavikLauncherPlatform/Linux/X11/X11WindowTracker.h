// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11EventPump.h>
#include <TavikLauncherPlatform/Linux/X11/X11Properties.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QHash>
#include <QList>
#include <QRect>
#include <QSet>

#include <functional>
#include <optional>

namespace Tavik {

/// Follows the windows that the window manager manages, by events alone: which there are, what they
/// say of themselves, and which has the focus. Knows nothing of applications.
class X11WindowTracker
{
public:
    explicit X11WindowTracker(MainQueue& mainQueue);
    X11WindowTracker(const X11WindowTracker&) = delete;
    X11WindowTracker& operator=(const X11WindowTracker&) = delete;

    /// In the order in which they were first seen.
    [[nodiscard]] const QList<xcb_window_t>& windows() const { return m_order; }
    /// The facts of one of `windows()`.
    [[nodiscard]] const X11WindowFacts& facts(xcb_window_t window) const;
    /// The window that has the focus, or XCB_NONE. A moment without one between two is not told.
    [[nodiscard]] xcb_window_t activeWindow() const { return m_activeWindow; }
    /// The one of `windows` that had the focus last, the newest if none had it.
    [[nodiscard]] xcb_window_t mostRecent(const QList<xcb_window_t>& windows) const;
    /// A screen's geometry without panels and docks, in device pixels.
    [[nodiscard]] QRect availableArea(const QRect& screen) const;
    /// The middle of the active window in device pixels; asks the server.
    [[nodiscard]] std::optional<QPoint> focusedPoint();

    /// Raises a window, focuses it, and shows it if it is minimised or on another desktop.
    void activate(xcb_window_t window);
    [[nodiscard]] xcb_timestamp_t serverTime() { return m_pump.serverTime(); }

    /// Called when windows came, went or changed their facts.
    std::function<void()> onWindowsChanged;
    /// Called when another window, or after a while none, has the focus.
    std::function<void()> onActiveWindowChanged;

private:
    struct Tracked
    {
        X11WindowFacts facts;
        quint64 lastActive = 0; ///< Larger is later; 0 for never.
    };
    void handle(const xcb_generic_event_t& event);
    void handleProperty(const xcb_property_notify_event_t& change);
    void finishBatch();
    void readWindows();
    void readDirtyFacts();
    void readActiveWindow();
    void setActiveWindow(xcb_window_t window);

    MainQueue& m_mainQueue;
    X11Connection m_connection;
    X11Atoms m_atoms;
    X11EventPump m_pump;
    QList<xcb_window_t> m_order;
    QHash<xcb_window_t, Tracked> m_tracked;
    QSet<xcb_window_t> m_dirty;
    Task m_dirtyTask;
    Task m_inactiveTask;
    xcb_window_t m_activeWindow = XCB_NONE;
    quint64 m_activations = 0;
    QSize m_desktopSize;
    bool m_windowListChanged = false;
    bool m_activeChanged = false;
};

} // namespace Tavik
