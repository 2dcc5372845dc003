// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Errand.h>
#include <TavikLauncherPlatform/Linux/X11/X11HotKeyGrabs.h>
#include <TavikLauncherPlatform/Linux/X11/XkbProtocol.h>

#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <utility>
#include <vector>

namespace Tavik {

namespace {

constexpr std::chrono::milliseconds longestHold{250};

/// Has a key that repeats told as presses only. Each event of a grab is answered once, and the
/// releases in between would be one event too many.
void askForTrueReleases(xcb_connection_t* connection)
{
    constexpr uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_xkb_id);
    if (!extension || !extension->present) {
        return;
    }
    const auto use
        = xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    const auto flags
        = xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
    const X11Reply<xcb_xkb_use_extension_reply_t> used(
        xcb_xkb_use_extension_reply(connection, use, nullptr));
    const X11Reply<xcb_xkb_per_client_flags_reply_t> set(
        xcb_xkb_per_client_flags_reply(connection, flags, nullptr));
}

} // namespace

/// Lives on the thread.
class X11HotKeyGrabs::Keeper final : public QObject
{
public:
    Keeper(const X11Connection& connection,
           std::function<void(const xcb_key_press_event_t&)> pressed)
        : m_connection(connection)
        , m_pressed(std::move(pressed))
        , m_notifier(xcb_get_file_descriptor(connection.get()), QSocketNotifier::Read, this)
        , m_longestHold(this)
    {
        m_longestHold.setSingleShot(true);
        m_longestHold.setInterval(longestHold);
        connect(&m_notifier, &QSocketNotifier::activated, this, [this] { drain(); });
        connect(&m_longestHold, &QTimer::timeout, this, [this] { giveUp(); });
    }

    void drain()
    {
        while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
            // What another client has made up has the highest bit set, and presses nothing.
            if (event->response_type == XCB_KEY_PRESS || event->response_type == XCB_KEY_RELEASE) {
                handle(*reinterpret_cast<const xcb_key_press_event_t*>(event.get()));
            }
        }
        if (m_connection.isBroken()) {
            m_notifier.setEnabled(false);
        }
    }

    void answer()
    {
        if (m_longestHold.isActive()) {
            m_longestHold.stop();
            // The next key is told to us first, since the hot key may still be down.
            allow(XCB_ALLOW_SYNC_KEYBOARD);
        }
    }

    bool event(QEvent* event) override { return Errand::run(*event) || QObject::event(event); }

private:
    /// From the press of a hot key to its release all keys are told here, each stopping the
    /// keyboard until it is answered.
    void handle(const xcb_key_press_event_t& event)
    {
        const bool isHotKey = m_hotKey == 0 || event.detail == m_hotKey;
        if (event.response_type == XCB_KEY_RELEASE) {
            if (isHotKey) {
                // It has ended the grab: an answer would be taken for that of the next press.
                m_hotKey = 0;
            } else {
                allow(XCB_ALLOW_SYNC_KEYBOARD);
            }
        } else if (!isHotKey) {
            // Typed while the hot key is still down: it is for the window that has the focus. With
            // that the grab ends, and the release of the hot key will not be told to us.
            m_hotKey = 0;
            allow(XCB_ALLOW_REPLAY_KEYBOARD);
        } else if (m_hotKey != 0) {
            allow(XCB_ALLOW_SYNC_KEYBOARD); // It repeats.
        } else {
            m_hotKey = event.detail;
            m_longestHold.start();
            m_pressed(event);
        }
    }

    void giveUp()
    {
        m_hotKey = 0;
        xcb_ungrab_keyboard(m_connection.get(), XCB_CURRENT_TIME);
        xcb_flush(m_connection.get());
    }

    void allow(uint8_t mode)
    {
        xcb_allow_events(m_connection.get(), mode, XCB_CURRENT_TIME);
        xcb_flush(m_connection.get());
    }

    const X11Connection& m_connection;
    std::function<void(const xcb_key_press_event_t&)> m_pressed;
    QSocketNotifier m_notifier;
    QTimer m_longestHold; ///< Runs while a press waits for its answer.
    xcb_keycode_t m_hotKey = 0; ///< The one that is down, while its grab lasts.
};

X11HotKeyGrabs::X11HotKeyGrabs(Pressed pressed)
    : m_pressed(std::move(pressed))
{
    if (m_connection.isBroken()) {
        return;
    }
    askForTrueReleases(m_connection.get());
    m_keeper = std::make_unique<Keeper>(m_connection, [this](const xcb_key_press_event_t& event) {
        Errand::send(*this, [this, event] { m_pressed(event); });
    });
    m_keeper->moveToThread(&m_thread);
    connect(
        &m_thread, &QThread::finished, this, [this] { handOver(this); }, Qt::DirectConnection);
    m_thread.setObjectName(QStringLiteral("hot keys"));
    m_thread.start();
}

X11HotKeyGrabs::~X11HotKeyGrabs()
{
    m_thread.quit();
    m_thread.wait();
    takeOver(this);
}

bool X11HotKeyGrabs::event(QEvent* event)
{
    return Errand::run(*event) || QObject::event(event);
}

int X11HotKeyGrabs::grab(const Grab& grab)
{
    // Each combination by itself: "any modifier" would fail as soon as another program holds a
    // single one.
    std::vector<xcb_void_cookie_t> cookies;
    for (const quint16 variant : grab.variants) {
        cookies.push_back(xcb_grab_key_checked(m_connection.get(),
                                               0,
                                               m_connection.root(),
                                               grab.mask | variant,
                                               grab.key,
                                               XCB_GRAB_MODE_ASYNC,
                                               XCB_GRAB_MODE_SYNC));
    }
    int status = m_keeper ? 0 : int{XCB_ACCESS};
    for (const xcb_void_cookie_t cookie : cookies) {
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(m_connection.get(), cookie));
        if (error && status == 0) {
            status = error->error_code;
        }
    }
    if (status != 0) {
        ungrab(grab);
    }
    wakeKeeper();
    return status;
}

void X11HotKeyGrabs::ungrab(const Grab& grab)
{
    for (const quint16 variant : grab.variants) {
        xcb_ungrab_key(m_connection.get(), grab.key, m_connection.root(), grab.mask | variant);
    }
    xcb_flush(m_connection.get());
}

void X11HotKeyGrabs::answer()
{
    if (m_keeper) {
        Errand::send(*m_keeper, [keeper = m_keeper.get()] { keeper->answer(); });
    }
}

void X11HotKeyGrabs::wakeKeeper()
{
    if (m_keeper) {
        Errand::send(*m_keeper, [keeper = m_keeper.get()] { keeper->drain(); });
    }
}

} // namespace Tavik
