// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11EventTap.h>
#include <TavikLauncherPlatform/Linux/X11/X11ModifierState.h>

#include <QPointer>

#include <bit>
#include <cstring>
#include <utility>

#include <xcb/xcbext.h>

namespace Tavik {

namespace {

/// What the answers to the one request are about, as the protocol numbers it.
enum class Category : uint8_t {
    fromServer = 0,
    startOfData = 4,
    endOfData = 5
};

constexpr int eventSize = 32;

} // namespace

/// The two connections with the recording between them.
class X11EventTap::Link
{
public:
    Link()
    {
        if (m_control.isBroken() || m_data.isBroken()) {
            return;
        }
        const xcb_query_extension_reply_t* record
            = xcb_get_extension_data(m_control.get(), &xcb_record_id);
        if (!record || !record->present) {
            return;
        }
        const X11Reply<xcb_record_query_version_reply_t> version(xcb_record_query_version_reply(
            m_control.get(),
            xcb_record_query_version(
                m_control.get(), XCB_RECORD_MAJOR_VERSION, XCB_RECORD_MINOR_VERSION),
            nullptr));
        const xcb_record_context_t context = xcb_generate_id(m_control.get());
        xcb_record_range_t range{};
        range.device_events.first = XCB_KEY_PRESS;
        range.device_events.last = XCB_KEY_RELEASE;
        const xcb_record_client_spec_t clients = XCB_RECORD_CS_ALL_CLIENTS;
        const X11Reply<xcb_generic_error_t> error(
            xcb_request_check(m_control.get(),
                              xcb_record_create_context_checked(
                                  m_control.get(), context, 0, 1, 1, &clients, &range)));
        if (version && !error) {
            m_context = context;
        }
    }

    [[nodiscard]] xcb_connection_t* data() const { return m_data.get(); }
    [[nodiscard]] xcb_record_context_t context() const { return m_context; }
    [[nodiscard]] bool isBroken() const
    {
        return m_context == 0 || m_control.isBroken() || m_data.isBroken();
    }
    /// Asks the server whether the recording still exists.
    [[nodiscard]] bool isAlive() const
    {
        if (isBroken()) {
            return false;
        }
        const X11Reply<xcb_record_get_context_reply_t> reply(xcb_record_get_context_reply(
            m_control.get(), xcb_record_get_context(m_control.get(), m_context), nullptr));
        return reply != nullptr;
    }

    std::unique_ptr<QSocketNotifier> notifier;

private:
    X11Connection m_control;
    X11Connection m_data;
    xcb_record_context_t m_context = 0;
};

X11EventTap::X11EventTap(Dependencies dependencies,
                         KeyEvents::Kind kind,
                         KeyEvents::Observer observer,
                         std::function<void()> disabled)
    : m_dependencies(std::move(dependencies))
    , m_kind(kind)
    , m_observer(std::move(observer))
    , m_disabled(std::move(disabled))
{
    enable();
}

X11EventTap::~X11EventTap() = default;

bool X11EventTap::isEnabled() const
{
    return m_isEnabled && !m_link->isBroken();
}

xcb_record_context_t X11EventTap::context() const
{
    return m_link ? m_link->context() : 0;
}

bool X11EventTap::enable()
{
    if (isEnabled()) {
        return true;
    }
    m_isEnabled = false;
    if (!m_link || !m_link->isAlive()) {
        m_link = std::make_unique<Link>();
        if (m_link->isBroken()) {
            return false;
        }
        m_link->notifier = std::make_unique<QSocketNotifier>(
            xcb_get_file_descriptor(m_link->data()), QSocketNotifier::Read);
        connect(m_link->notifier.get(), &QSocketNotifier::activated, this, [this] { drain(); });
    }
    m_reader.forget();
    m_request = xcb_record_enable_context(m_link->data(), m_link->context()).sequence;
    xcb_flush(m_link->data());
    m_hasStarted = false;
    m_isEnabled = true;
    return true;
}

void X11EventTap::drain()
{
    xcb_connection_t* connection = m_link->data();
    // Asking for an event is what reads the socket; there are none on this connection.
    while (const X11Reply<xcb_generic_event_t> ignored{xcb_poll_for_event(connection)}) { }
    for (;;) {
        void* answer = nullptr;
        xcb_generic_error_t* failure = nullptr;
        const bool isKnown = xcb_poll_for_reply(connection, m_request, &answer, &failure) != 0;
        const X11Reply<xcb_record_enable_context_reply_t> reply(
            static_cast<xcb_record_enable_context_reply_t*>(answer));
        const X11Reply<xcb_generic_error_t> error(failure);
        if (!isKnown) {
            return; // More will come.
        }
        if (!reply) {
            ended();
            return;
        }
        if (!handle(*reply)) {
            return;
        }
    }
}

bool X11EventTap::handle(const xcb_record_enable_context_reply_t& reply)
{
    switch (static_cast<Category>(reply.category)) {
    case Category::startOfData:
        m_hasStarted = true;
        return true;
    case Category::endOfData:
        ended();
        return true;
    case Category::fromServer:
        break;
    default:
        return true;
    }
    const QPointer<X11EventTap> self(this);
    const int length = reply.client_swapped ? 0 : xcb_record_enable_context_data_length(&reply);
    const uint8_t* data = xcb_record_enable_context_data(&reply);
    for (int offset = 0; offset + eventSize <= length; offset += eventSize) {
        xcb_key_press_event_t event{};
        static_assert(sizeof event == eventSize);
        std::memcpy(&event, data + offset, sizeof event);
        handleKey(event);
        if (!self) {
            return false;
        }
    }
    return true;
}

void X11EventTap::handleKey(const xcb_key_press_event_t& event)
{
    const int type = x11EventType(event.response_type);
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE) {
        return;
    }
    if (m_kind == KeyEvents::Kind::modifiersChanged) {
        handleModifiers(event);
        return;
    }
    const std::optional<KeyEvents::Event> meaning
        = m_reader.read(event, m_dependencies.map(), m_dependencies.uptime());
    if (meaning) {
        // A copy, because the observer may end its own tap.
        const KeyEvents::Observer observer = m_observer;
        observer(*meaning);
    }
}

void X11EventTap::handleModifiers(const xcb_key_press_event_t& event)
{
    const X11KeyboardMap& map = m_dependencies.map();
    const double time = uptimeOfServerTime(event.time, m_dependencies.uptime());
    const KeyEvents::Observer observer = m_observer;
    if (map.modifiersOfKey.at(event.detail) != 0) {
        m_dependencies.modifiers.ask(this, time, [observer](quint64 flags, double eventTime) {
            observer({.modifierFlags = flags, .time = eventTime});
        });
        return;
    }
    const bool isPress = x11EventType(event.response_type) == XCB_KEY_PRESS;
    const quint64 held = map.modifiers.flagsFor(event.state);
    if (isPress && std::popcount(held) > 1 && !m_dependencies.isOurs(event.detail, event.time)) {
        observer({.kind = KeyEvents::Kind::takenElsewhere, .modifierFlags = held, .time = time});
    }
}

void X11EventTap::ended()
{
    if (m_link->isBroken()) {
        // A socket at its end would wake the main loop for ever.
        m_link->notifier->setEnabled(false);
    }
    const bool wasRecording = std::exchange(m_hasStarted, false);
    if (!std::exchange(m_isEnabled, false) || !wasRecording) {
        return; // A refusal: to ask again at once would be refused again.
    }
    // Later, because the answer may be to throw these connections away.
    QMetaObject::invokeMethod(
        this, [this] { m_disabled(); }, Qt::QueuedConnection);
}

} // namespace Tavik
