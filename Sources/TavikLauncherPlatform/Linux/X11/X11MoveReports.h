// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>

#include <vector>

namespace Tavik {

/// Tells the toolkit of every step in which a window of ours is moved. Some window managers tell
/// only of the last one, although the window is seen moving with the frame around it.
class X11MoveReports
{
public:
    /// `connection` is one of our own, whose events are handed to `handle`.
    explicit X11MoveReports(const X11Connection& connection);

    /// From now on, until the window is destroyed.
    void follow(xcb_window_t window);
    /// Any event of the connection; what other clients, or we, have made up is ignored.
    void handle(const xcb_generic_event_t& event);

private:
    struct Followed
    {
        xcb_window_t window = XCB_NONE;
        xcb_window_t frame = XCB_NONE; ///< The window manager's around it; none without one.
        uint16_t frameWidth = 0;
        uint16_t frameHeight = 0;
    };

    void frameChanged(const xcb_configure_notify_event_t& event);
    void findFrame(Followed& followed) const;
    void report(xcb_window_t window) const;

    const X11Connection& m_connection;
    std::vector<Followed> m_followed;
};

} // namespace Tavik
