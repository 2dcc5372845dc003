// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11EventPump.h>

#include <QMetaObject>

#include <utility>

namespace Tavik {

X11EventPump::X11EventPump(const X11Connection& connection,
                           xcb_atom_t clockProperty,
                           Handler handler,
                           std::function<void()> batchDone)
    : m_connection(connection)
    , m_clockProperty(clockProperty)
    , m_handler(std::move(handler))
    , m_batchDone(std::move(batchDone))
    , m_notifier(xcb_get_file_descriptor(connection.get()), QSocketNotifier::Read)
{
    m_clockWindow = xcb_generate_id(connection.get());
    const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection.get(),
                      XCB_COPY_FROM_PARENT,
                      m_clockWindow,
                      connection.root(),
                      -1,
                      -1,
                      1,
                      1,
                      0,
                      XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT,
                      XCB_CW_EVENT_MASK,
                      &mask);
    xcb_flush(connection.get());
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] { drain(); });
}

xcb_timestamp_t X11EventPump::serverTime()
{
    // Appending nothing to a property changes nothing and still tells the time.
    xcb_change_property(m_connection.get(),
                        XCB_PROP_MODE_APPEND,
                        m_clockWindow,
                        m_clockProperty,
                        XCB_ATOM_CARDINAL,
                        32,
                        0,
                        nullptr);
    xcb_flush(m_connection.get());
    while (Event event{xcb_wait_for_event(m_connection.get())}) {
        if (x11EventType(event->response_type) == XCB_PROPERTY_NOTIFY) {
            const auto* change = reinterpret_cast<const xcb_property_notify_event_t*>(event.get());
            if (change->window == m_clockWindow) {
                drainSoon();
                return change->time;
            }
        }
        m_held.push_back(std::move(event));
    }
    return XCB_CURRENT_TIME;
}

void X11EventPump::catchUp()
{
    const X11Reply<xcb_get_input_focus_reply_t> answer(xcb_get_input_focus_reply(
        m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
    drain();
}

void X11EventPump::drainSoon()
{
    if (!std::exchange(m_willDrain, true)) {
        QMetaObject::invokeMethod(
            this, [this] { drain(); }, Qt::QueuedConnection);
    }
}

void X11EventPump::drain()
{
    m_willDrain = false;
    for (;;) {
        Event event;
        if (!m_held.empty()) {
            event = std::move(m_held.front());
            m_held.pop_front();
        } else {
            event.reset(xcb_poll_for_event(m_connection.get()));
        }
        if (!event) {
            break;
        }
        dispatch(event);
    }
    if (m_batchDone) {
        m_batchDone();
    }
    if (m_connection.isBroken()) {
        m_notifier.setEnabled(false);
    }
}

void X11EventPump::dispatch(const Event& event)
{
    // Type 0 is the error of a request nobody waited for: its window has gone.
    if (x11EventType(event->response_type) != 0) {
        m_handler(*event);
    }
}

} // namespace Tavik
