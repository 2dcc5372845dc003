// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace Tavik {

namespace {

/// In the order of X11Atom, without the last one, whose name holds the screen's number.
constexpr auto atomNames = std::to_array<const char*>({
    "WM_STATE",
    "_NET_ACTIVE_WINDOW",
    "_NET_CLIENT_LIST",
    "_NET_CLIENT_LIST_STACKING",
    "_NET_CURRENT_DESKTOP",
    "_NET_STARTUP_ID",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_WM_DESKTOP",
    "_NET_WM_NAME",
    "_NET_WM_PID",
    "_NET_WM_STATE",
    "_NET_WM_STATE_ABOVE",
    "_NET_WM_STATE_SKIP_PAGER",
    "_NET_WM_STATE_SKIP_TASKBAR",
    "_NET_WM_STATE_STICKY",
    "_NET_WM_STRUT",
    "_NET_WM_STRUT_PARTIAL",
    "_NET_WM_USER_TIME",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DIALOG",
    "_NET_WM_WINDOW_TYPE_NORMAL",
    "_GTK_APPLICATION_ID",
    "_GTK_FRAME_EXTENTS",
    "_KDE_NET_WM_DESKTOP_FILE",
    "_KDE_NET_WM_BLUR_BEHIND_REGION",
    "_BAMF_DESKTOP_FILE",
    "_TAVIK_CLOCK",
});
static_assert(atomNames.size() + 1 == static_cast<std::size_t>(X11Atom::count));

} // namespace

X11Atoms::X11Atoms(xcb_connection_t* connection, int screenNumber)
{
    std::array<xcb_intern_atom_cookie_t, static_cast<std::size_t>(X11Atom::count)> cookies{};
    const auto ask = [connection](const std::string& name) {
        return xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.c_str());
    };
    for (std::size_t i = 0; i < atomNames.size(); ++i) {
        cookies.at(i) = ask(atomNames.at(i));
    }
    cookies.back() = ask("_NET_WM_CM_S" + std::to_string(screenNumber));
    for (std::size_t i = 0; i < cookies.size(); ++i) {
        const X11Reply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection, cookies.at(i), nullptr));
        m_atoms.at(i) = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
}

X11Connection::X11Connection()
    : m_connection(xcb_connect(nullptr, &m_screenNumber))
    , m_root(isBroken() ? XCB_NONE : x11RootWindow(get(), m_screenNumber))
{ }

xcb_atom_t x11Atom(xcb_connection_t* connection, std::string_view name)
{
    const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.data()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_window_t x11RootWindow(xcb_connection_t* connection, int screenNumber)
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (screens.rem > 1 && screenNumber-- > 0) {
        xcb_screen_next(&screens);
    }
    return screens.rem > 0 ? screens.data->root : xcb_window_t{XCB_NONE};
}

void sendToWindowManager(xcb_connection_t* connection,
                         xcb_window_t root,
                         xcb_window_t window,
                         xcb_atom_t type,
                         const std::array<uint32_t, 5>& data)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = type;
    std::copy(data.begin(), data.end(), message.data.data32);
    sendEvent(connection,
              root,
              XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
              message);
    xcb_flush(connection);
}

void requestFocus(xcb_connection_t* connection,
                  xcb_window_t root,
                  const X11Atoms& atoms,
                  xcb_window_t window,
                  xcb_timestamp_t time)
{
    // EWMH: the request comes from a pager or the like, so it is the user's own wish.
    constexpr uint32_t sourcePager = 2;
    sendToWindowManager(connection,
                        root,
                        window,
                        atoms[X11Atom::netActiveWindow],
                        {sourcePager, time, XCB_NONE, 0, 0});
}

} // namespace Tavik
