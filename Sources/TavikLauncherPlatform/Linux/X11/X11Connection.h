// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include <xcb/xcb.h>

namespace Tavik {

struct X11Freed
{
    void operator()(void* memory) const { std::free(memory); }
};
/// What the server answered; null when it answered with an error.
template <typename T> using X11Reply = std::unique_ptr<T, X11Freed>;

/// Sends an event of any kind: the library reads as many bytes as the largest has.
template <typename Event>
void sendEvent(xcb_connection_t* connection, xcb_window_t to, uint32_t mask, const Event& event)
{
    constexpr std::size_t wireSize = 32;
    static_assert(sizeof(Event) <= wireSize);
    std::array<char, wireSize> bytes{};
    std::memcpy(bytes.data(), &event, sizeof event);
    xcb_send_event(connection, 0, to, mask, bytes.data());
}

enum class X11Atom : std::size_t {
    wmState,
    netActiveWindow,
    netClientList,
    netClientListStacking,
    netCurrentDesktop,
    netStartupId,
    netSupportingWmCheck,
    netWmDesktop,
    netWmName,
    netWmPid,
    netWmState,
    netWmStateAbove,
    netWmStateSkipPager,
    netWmStateSkipTaskbar,
    netWmStateSticky,
    netWmStrut,
    netWmStrutPartial,
    netWmUserTime,
    netWmWindowType,
    netWmWindowTypeDialog,
    netWmWindowTypeNormal,
    gtkApplicationId,
    gtkFrameExtents,
    kdeDesktopFile,
    kdeBlurBehindRegion,
    bamfDesktopFile,
    tavikClock,
    compositor, ///< The selection that a compositor of the screen owns.
    count,
};

/// The atoms in use, asked for in one round trip. They are the same on every connection to a
/// server.
class X11Atoms
{
public:
    X11Atoms(xcb_connection_t* connection, int screenNumber);

    [[nodiscard]] xcb_atom_t operator[](X11Atom atom) const
    {
        return m_atoms.at(static_cast<std::size_t>(atom));
    }

private:
    std::array<xcb_atom_t, static_cast<std::size_t>(X11Atom::count)> m_atoms{};
};

/// A connection of our own to the X server, so that the event masks of the toolkit's stay as they
/// are. Never null, but it can be broken.
class X11Connection
{
public:
    /// Connects to $DISPLAY.
    X11Connection();

    [[nodiscard]] xcb_connection_t* get() const { return m_connection.get(); }
    [[nodiscard]] bool isBroken() const { return xcb_connection_has_error(get()) != 0; }
    [[nodiscard]] int screenNumber() const { return m_screenNumber; }
    /// Valid unless broken.
    [[nodiscard]] xcb_window_t root() const { return m_root; }

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    int m_screenNumber = 0;
    xcb_window_t m_root = XCB_NONE;
};

/// One atom that is needed rarely; a round trip. XCB_ATOM_NONE when the connection is broken.
[[nodiscard]] xcb_atom_t x11Atom(xcb_connection_t* connection, std::string_view name);

/// What an event's `response_type` is about, also when another client has made the event up.
[[nodiscard]] constexpr int x11EventType(uint8_t responseType)
{
    return responseType & 0x7f;
}

/// The root window of a connection's screen.
[[nodiscard]] xcb_window_t x11RootWindow(xcb_connection_t* connection, int screenNumber);

/// Asks the window manager for something about `window` with an EWMH message of the kind `type`.
void sendToWindowManager(xcb_connection_t* connection,
                         xcb_window_t root,
                         xcb_window_t window,
                         xcb_atom_t type,
                         const std::array<uint32_t, 5>& data);

/// Asks the window manager to show and focus `window`, as the user wished at the server's `time`.
void requestFocus(xcb_connection_t* connection,
                  xcb_window_t root,
                  const X11Atoms& atoms,
                  xcb_window_t window,
                  xcb_timestamp_t time);

} // namespace Tavik
