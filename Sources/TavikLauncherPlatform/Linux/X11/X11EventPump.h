// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>

#include <QObject>
#include <QSocketNotifier>

#include <deque>
#include <functional>

namespace Tavik {

/// Hands the events of a connection of our own to one listener, on the main loop.
class X11EventPump final : public QObject
{
public:
    using Handler = std::function<void(const xcb_generic_event_t&)>;

    /// `connection` must outlive the pump. `batchDone` runs after the events that were waiting
    /// together.
    X11EventPump(const X11Connection& connection,
                 xcb_atom_t clockProperty,
                 Handler handler,
                 std::function<void()> batchDone = {});

    /// The server's time now, which window managers take for the newest act of the user; one round
    /// trip. XCB_CURRENT_TIME when the connection is broken.
    [[nodiscard]] xcb_timestamp_t serverTime();
    /// Hands over, before it returns, all that the server has written by now; one round trip.
    void catchUp();
    /// Must follow a request whose answer was waited for: events that arrived with the answer no
    /// longer wake the main loop.
    void drainSoon();

private:
    using Event = X11Reply<xcb_generic_event_t>;
    void drain();
    void dispatch(const Event& event);

    const X11Connection& m_connection;
    xcb_atom_t m_clockProperty;
    Handler m_handler;
    std::function<void()> m_batchDone;
    QSocketNotifier m_notifier;
    xcb_window_t m_clockWindow = XCB_NONE;
    std::deque<Event> m_held; ///< Met while the server's time was waited for.
    bool m_willDrain = false;
};

} // namespace Tavik
