// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/WindowSource.h>
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11EventPump.h>
#include <TavikLauncherPlatform/Linux/X11/X11Properties.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QHash>
#include <QList>
#include <QRect>
#include <QSet>

#include <optional>

namespace Tavik {

/// Follows the windows that the window manager manages, by events alone: which there are, what they
/// say of themselves, and which has the focus. Knows nothing of applications.
class X11WindowTracker final : public WindowSource
{
public:
    /// `isXwayland` says that other programs than those of this server run, too.
    explicit X11WindowTracker(MainQueue& mainQueue, bool isXwayland = false);
    X11WindowTracker(const X11WindowTracker&) = delete;
    X11WindowTracker& operator=(const X11WindowTracker&) = delete;

    /// Asks the server whether a window manager is there.
    [[nodiscard]] Means runningMeans() const override;
    [[nodiscard]] Means raisingMeans() const override;
    [[nodiscard]] bool tellsOfAll() const override { return !m_isXwayland; }
    [[nodiscard]] QList<WindowId> windows() const override { return m_order; }
    [[nodiscard]] Facts factsOf(WindowId window) const override;
    [[nodiscard]] WindowId activeWindow() const override { return m_activeWindow; }
    [[nodiscard]] WindowId mostRecent(const QList<WindowId>& windows) const override;
    /// A screen's geometry without panels and docks, in device pixels.
    [[nodiscard]] QRect availableArea(const QRect& screen) const;
    /// The middle of the active window in device pixels; asks the server.
    [[nodiscard]] std::optional<QPoint> focusedPoint();

    void activate(WindowId window) override;
    [[nodiscard]] LaunchTokens beginStart(const DesktopEntry& entry) override;
    void describeStart(const LaunchTokens& start, qint64 processId) override;
    void endStart(const LaunchTokens& start) override;

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
    bool m_isXwayland;
    X11Connection m_connection;
    X11Atoms m_atoms;
    mutable X11EventPump m_pump;
    QList<WindowId> m_order;
    QHash<xcb_window_t, Tracked> m_tracked;
    QSet<xcb_window_t> m_dirty;
    Task m_dirtyTask;
    Task m_inactiveTask;
    xcb_window_t m_activeWindow = XCB_NONE;
    quint64 m_activations = 0;
    quint64 m_starts = 0;
    QSet<QByteArray> m_announced; ///< Start-up IDs that somebody has been told of.
    QSize m_desktopSize;
    bool m_windowListChanged = false;
    bool m_activeChanged = false;
};

} // namespace Tavik
