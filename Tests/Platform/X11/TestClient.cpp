// SPDX-License-Identifier: MIT
#include "TestClient.h"

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>

#include <cstring>

#include <xcb/xtest.h>

namespace Tavik::Test {

TestClient::TestClient()
    : m_connection(xcb_connect(nullptr, nullptr))
    , m_root(x11RootWindow(m_connection, 0))
    , m_clock(createWindow("clock\0Clock\0"))
{ }

TestClient::~TestClient()
{
    xcb_disconnect(m_connection);
}

xcb_atom_t TestClient::atom(const char* name) const
{
    const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        m_connection,
        xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(std::strlen(name)), name),
        nullptr));
    return reply->atom;
}

xcb_window_t TestClient::createWindow(const QByteArray& classes, qint64 processId)
{
    const xcb_window_t window = xcb_generate_id(m_connection);
    const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection,
                      XCB_COPY_FROM_PARENT,
                      window,
                      m_root,
                      100,
                      100,
                      200,
                      150,
                      0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT,
                      XCB_CW_EVENT_MASK,
                      &mask);
    setText(window, "WM_CLASS", classes, "STRING");
    if (processId != 0) {
        setNumbers(window, "_NET_WM_PID", {static_cast<uint32_t>(processId)}, "CARDINAL");
    }
    return window;
}

void TestClient::map(xcb_window_t window)
{
    xcb_map_window(m_connection, window);
    sync();
}

void TestClient::destroy(xcb_window_t window)
{
    xcb_destroy_window(m_connection, window);
    sync();
}

void TestClient::setText(xcb_window_t window,
                         const char* property,
                         const QByteArray& text,
                         const char* type)
{
    xcb_change_property(m_connection,
                        XCB_PROP_MODE_REPLACE,
                        window,
                        atom(property),
                        atom(type),
                        8,
                        static_cast<uint32_t>(text.size()),
                        text.constData());
    sync();
}

void TestClient::setNumbers(xcb_window_t window,
                            const char* property,
                            const QList<uint32_t>& numbers,
                            const char* type)
{
    xcb_change_property(m_connection,
                        XCB_PROP_MODE_REPLACE,
                        window,
                        atom(property),
                        atom(type),
                        32,
                        static_cast<uint32_t>(numbers.size()),
                        numbers.constData());
    sync();
}

QList<uint32_t> TestClient::numbers(xcb_window_t window, const char* property) const
{
    const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        m_connection,
        xcb_get_property(m_connection, 0, window, atom(property), XCB_ATOM_ANY, 0, 64),
        nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* values = static_cast<const uint32_t*>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

void TestClient::focus(xcb_window_t window)
{
    const xcb_timestamp_t now = time();
    if (numbers(m_root, "_NET_SUPPORTING_WM_CHECK").isEmpty()) {
        xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, window, now);
    } else {
        setNumbers(window, "_NET_WM_USER_TIME", {now}, "CARDINAL");
        sendToWindowManager(
            m_connection, m_root, window, atom("_NET_ACTIVE_WINDOW"), {2, now, 0, 0, 0});
    }
    sync();
}

xcb_window_t TestClient::focused() const
{
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return reply->focus;
}

xcb_timestamp_t TestClient::time()
{
    xcb_change_property(m_connection,
                        XCB_PROP_MODE_APPEND,
                        m_clock,
                        XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING,
                        8,
                        0,
                        nullptr);
    xcb_flush(m_connection);
    while (const X11Reply<xcb_generic_event_t> event{xcb_wait_for_event(m_connection)}) {
        const auto* change = reinterpret_cast<const xcb_property_notify_event_t*>(event.get());
        if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY && change->window == m_clock
            && change->atom == XCB_ATOM_WM_NAME) {
            return change->time;
        }
    }
    return XCB_CURRENT_TIME;
}

bool TestClient::grabKey(uint16_t modifiers, xcb_keycode_t key)
{
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(
        m_connection,
        xcb_grab_key_checked(
            m_connection, 0, m_root, modifiers, key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
    return !error;
}

void TestClient::ungrabKey(uint16_t modifiers, xcb_keycode_t key)
{
    xcb_ungrab_key(m_connection, key, m_root, modifiers);
    sync();
}

void TestClient::pressKey(xcb_keycode_t key)
{
    fake(XCB_KEY_PRESS, key);
}

void TestClient::releaseKey(xcb_keycode_t key)
{
    fake(XCB_KEY_RELEASE, key);
}

void TestClient::tapKey(xcb_keycode_t key)
{
    const xcb_timestamp_t before = time();
    while (time() == before) { }
    pressKey(key);
    releaseKey(key);
}

void TestClient::movePointer(int x, int y)
{
    fake(XCB_MOTION_NOTIFY, 0, x, y);
}

void TestClient::sync() const
{
    static_cast<void>(focused());
}

void TestClient::fake(uint8_t type, uint8_t detail, int x, int y)
{
    xcb_test_fake_input(m_connection,
                        type,
                        detail,
                        XCB_CURRENT_TIME,
                        m_root,
                        static_cast<int16_t>(x),
                        static_cast<int16_t>(y),
                        0);
    sync();
}

} // namespace Tavik::Test
