// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11EventPump.h>

#include <QByteArray>
#include <QGuiApplication>
#include <QList>
#include <QRect>
#include <QTest>

#include <xcb/record.h>
#include <xcb/xcb.h>

namespace Tavik::Test {

constexpr quint16 f9 = 101; // The virtual key code …
constexpr xcb_keycode_t f9Key = 75; // … and the server's.
constexpr xcb_keycode_t control = 37;
constexpr xcb_keycode_t shift = 50;
constexpr xcb_keycode_t capsLock = 66;

inline xcb_connection_t* toolkitConnection()
{
    return qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

/// For what should not come: long enough that it would have.
inline void settle()
{
    QTest::qWait(60);
}

/// Another program on the same X server: it has windows, holds keys, and types.
class TestClient
{
public:
    [[nodiscard]] xcb_connection_t* connection() const { return m_connection.get(); }
    [[nodiscard]] xcb_window_t root() const { return m_connection.root(); }
    [[nodiscard]] xcb_atom_t atom(const char* name) const { return x11Atom(connection(), name); }

    /// A window that is not yet shown. `classes` is the whole property ("instance\0class\0").
    xcb_window_t createWindow(const QByteArray& classes, qint64 processId = 0);
    void map(xcb_window_t window);
    void place(xcb_window_t window, const QRect& frame);
    void destroy(xcb_window_t window);
    void
    setText(xcb_window_t window, const char* property, const QByteArray& text, const char* type)
    {
        change(window, property, type, 8, text);
    }
    void setNumbers(xcb_window_t window,
                    const char* property,
                    const QList<uint32_t>& numbers,
                    const char* type);
    [[nodiscard]] QList<uint32_t> numbers(xcb_window_t window, const char* property) const;
    /// Asks the window manager to focus a window, or takes the focus where there is none.
    void focus(xcb_window_t window);
    [[nodiscard]] xcb_window_t focused() const;
    /// The server's time now.
    [[nodiscard]] xcb_timestamp_t time() { return m_pump.serverTime(); }

    [[nodiscard]] bool grabKey(uint16_t modifiers, xcb_keycode_t key);
    void ungrabKey(uint16_t modifiers, xcb_keycode_t key);
    void pressKey(xcb_keycode_t key);
    void releaseKey(xcb_keycode_t key);
    /// A press and a release by hand: not in the same millisecond as the event before.
    void tapKey(xcb_keycode_t key);
    void movePointer(QPoint place);
    /// Locks modifiers among those of `mask` without a key.
    void lockModifiers(quint8 mask, quint8 locked);
    void click(QPoint place, quint8 button);
    [[nodiscard]] bool isRecording(xcb_record_context_t context) const;
    /// Until the server has done everything so far.
    void sync() const { static_cast<void>(focused()); }

private:
    void change(xcb_window_t window,
                const char* property,
                const char* type,
                uint8_t bits,
                const QByteArray& data);
    void fake(uint8_t type, uint8_t detail, QPoint place = {});

    X11Connection m_connection;
    X11EventPump m_pump{m_connection, XCB_ATOM_WM_NAME, [](const xcb_generic_event_t&) {
                        }};
};

} // namespace Tavik::Test
