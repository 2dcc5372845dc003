// SPDX-License-Identifier: MIT
#include "TestClient.h"

#include <TavikLauncherPlatform/Linux/X11/X11Properties.h>
#include <TavikLauncherPlatform/Linux/X11/XkbProtocol.h>

#include <array>

#include <xcb/record.h>
#include <xcb/xtest.h>

namespace Tavik::Test {

xcb_window_t TestClient::createWindow(const QByteArray& classes, qint64 processId)
{
    const xcb_window_t window = xcb_generate_id(connection());
    xcb_create_window(connection(),
                      XCB_COPY_FROM_PARENT,
                      window,
                      root(),
                      100,
                      100,
                      200,
                      150,
                      0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT,
                      0,
                      nullptr);
    setText(window, "WM_CLASS", classes, "STRING");
    // Input hint: the window takes the focus from the window manager.
    setNumbers(window, "WM_HINTS", {1, 1, 0, 0, 0, 0, 0, 0, 0}, "WM_HINTS");
    if (processId != 0) {
        setNumbers(window, "_NET_WM_PID", {static_cast<uint32_t>(processId)}, "CARDINAL");
    }
    return window;
}

void TestClient::map(xcb_window_t window)
{
    xcb_map_window(connection(), window);
    sync();
}

void TestClient::place(xcb_window_t window, const QRect& frame)
{
    const std::array values{frame.x(), frame.y(), frame.width(), frame.height()};
    xcb_configure_window(connection(),
                         window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH
                             | XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    sync();
}

void TestClient::destroy(xcb_window_t window)
{
    xcb_destroy_window(connection(), window);
    sync();
}

void TestClient::setNumbers(xcb_window_t window,
                            const char* property,
                            const QList<uint32_t>& numbers,
                            const char* type)
{
    const auto* data = reinterpret_cast<const char*>(numbers.constData());
    const auto size = static_cast<qsizetype>(sizeof(uint32_t)) * numbers.size();
    change(window, property, type, 32, QByteArray::fromRawData(data, size));
}

void TestClient::change(xcb_window_t window,
                        const char* property,
                        const char* type,
                        uint8_t bits,
                        const QByteArray& data)
{
    constexpr uint32_t bitsOfByte = 8;
    xcb_change_property(connection(),
                        XCB_PROP_MODE_REPLACE,
                        window,
                        atom(property),
                        atom(type),
                        bits,
                        static_cast<uint32_t>(data.size()) * bitsOfByte / bits,
                        data.constData());
    sync();
}

QList<uint32_t> TestClient::numbers(xcb_window_t window, const char* property) const
{
    return X11Properties::numbers(connection(), window, atom(property));
}

void TestClient::focus(xcb_window_t window)
{
    const xcb_timestamp_t now = time();
    if (numbers(root(), "_NET_SUPPORTING_WM_CHECK").isEmpty()) {
        xcb_set_input_focus(connection(), XCB_INPUT_FOCUS_PARENT, window, now);
    } else {
        setNumbers(window, "_NET_WM_USER_TIME", {now}, "CARDINAL");
        sendToWindowManager(
            connection(), root(), window, atom("_NET_ACTIVE_WINDOW"), {2, now, 0, 0, 0});
    }
    sync();
}

xcb_window_t TestClient::focused() const
{
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
    return reply->focus;
}

bool TestClient::grabKey(uint16_t modifiers, xcb_keycode_t key)
{
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(
        connection(),
        xcb_grab_key_checked(
            connection(), 0, root(), modifiers, key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
    return !error;
}

void TestClient::ungrabKey(uint16_t modifiers, xcb_keycode_t key)
{
    xcb_ungrab_key(connection(), key, root(), modifiers);
    sync();
}

void TestClient::pressKey(xcb_keycode_t key)
{
    fake(XCB_KEY_PRESS, key);
    sync();
}

void TestClient::releaseKey(xcb_keycode_t key)
{
    fake(XCB_KEY_RELEASE, key);
    sync();
}

void TestClient::tapKey(xcb_keycode_t key)
{
    const xcb_timestamp_t before = time();
    while (time() == before) { }
    // At once, so that the server has no time to repeat the key.
    fake(XCB_KEY_PRESS, key);
    fake(XCB_KEY_RELEASE, key);
    sync();
}

void TestClient::movePointer(QPoint place)
{
    fake(XCB_MOTION_NOTIFY, 0, place);
    sync();
}

void TestClient::lockModifiers(quint8 mask, quint8 locked)
{
    const auto use
        = xcb_xkb_use_extension(connection(), XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    const X11Reply<xcb_xkb_use_extension_reply_t> used(
        xcb_xkb_use_extension_reply(connection(), use, nullptr));
    xcb_xkb_latch_lock_state(connection(), XCB_XKB_ID_USE_CORE_KBD, mask, locked, 0, 0, 0, 0, 0);
    sync();
}

void TestClient::click(QPoint place, quint8 button)
{
    movePointer(place);
    fake(XCB_BUTTON_PRESS, button);
    fake(XCB_BUTTON_RELEASE, button);
    sync();
}

bool TestClient::isRecording(xcb_record_context_t context) const
{
    const X11Reply<xcb_record_get_context_reply_t> reply(xcb_record_get_context_reply(
        connection(), xcb_record_get_context(connection(), context), nullptr));
    return reply && reply->enabled;
}

void TestClient::fake(uint8_t type, uint8_t detail, QPoint place)
{
    xcb_test_fake_input(connection(),
                        type,
                        detail,
                        XCB_CURRENT_TIME,
                        root(),
                        static_cast<int16_t>(place.x()),
                        static_cast<int16_t>(place.y()),
                        0);
}

} // namespace Tavik::Test
