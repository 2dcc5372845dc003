// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11InputGrabs.h>

namespace Tavik {

X11InputGrabs::X11InputGrabs(xcb_connection_t* connection)
    : m_connection(connection)
    , m_window(xcb_generate_id(connection))
{
    xcb_create_window(connection,
                      XCB_COPY_FROM_PARENT,
                      m_window,
                      x11RootWindow(connection, 0),
                      -1,
                      -1,
                      1,
                      1,
                      0,
                      XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT,
                      0,
                      nullptr);
}

bool X11InputGrabs::areHeldElsewhere() const
{
    // Nobody can grab for a window that is not shown, so these two never succeed. But the server
    // looks for another client's grab first, and that is the answer.
    const auto keyboardCookie = xcb_grab_keyboard(
        m_connection, 0, m_window, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const auto pointerCookie = xcb_grab_pointer(m_connection,
                                                0,
                                                m_window,
                                                0,
                                                XCB_GRAB_MODE_ASYNC,
                                                XCB_GRAB_MODE_ASYNC,
                                                XCB_NONE,
                                                XCB_NONE,
                                                XCB_CURRENT_TIME);
    const X11Reply<xcb_grab_keyboard_reply_t> keyboard(
        xcb_grab_keyboard_reply(m_connection, keyboardCookie, nullptr));
    const X11Reply<xcb_grab_pointer_reply_t> pointer(
        xcb_grab_pointer_reply(m_connection, pointerCookie, nullptr));
    return keyboard && pointer && keyboard->status == XCB_GRAB_STATUS_ALREADY_GRABBED
        && pointer->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

} // namespace Tavik
