// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11ModifierState.h>
#include <TavikLauncherPlatform/Linux/X11/XkbProtocol.h>

#include <QMetaObject>

#include <array>
#include <utility>

#include <xcb/xcbext.h>

namespace Tavik {

namespace {

/// Nobody lets go of a chord and holds it again within this time.
constexpr double settlingSeconds = 0.05;

} // namespace

X11ModifierState::X11ModifierState(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
{
    if (m_connection.isBroken()) {
        return;
    }
    selectNotifications();
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection.get()),
                                                   QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] { drain(); });
    m_believed = now().value_or(0);
}

void X11ModifierState::selectNotifications()
{
    xcb_connection_t* connection = m_connection.get();
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_xkb_id);
    if (!extension || !extension->present) {
        return;
    }
    const X11Reply<xcb_xkb_use_extension_reply_t> used(xcb_xkb_use_extension_reply(
        connection,
        xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION),
        nullptr));
    if (!used || !used->supported) {
        return;
    }
    constexpr uint16_t effective = XCB_XKB_STATE_PART_MODIFIER_STATE;
    const std::array<uint16_t, 2> details{effective, effective}; // What is meant, and its values.
    xcb_xkb_select_events(connection,
                          XCB_XKB_ID_USE_CORE_KBD,
                          XCB_XKB_EVENT_TYPE_STATE_NOTIFY,
                          0,
                          0,
                          0,
                          0,
                          details.data());
    xcb_flush(connection);
    m_keyboardEvent = extension->first_event;
}

quint64 X11ModifierState::flagsFor(quint16 mask) const
{
    return m_dependencies.map().modifiers.flagsFor(mask);
}

void X11ModifierState::follow(QObject* listener, Observer observer)
{
    std::erase_if(m_followers, [](const Listener& other) { return !other.object; });
    m_followers.push_back({listener, std::move(observer)});
}

void X11ModifierState::ask(QObject* listener, double time, Observer observer)
{
    // The pointer's query answers with the effective modifiers too, and needs no extension.
    m_questions.push_back({.cookie = xcb_query_pointer(m_connection.get(), m_connection.root()),
                           .time = time,
                           .listener = {listener, std::move(observer)}});
    xcb_flush(m_connection.get());
}

std::optional<quint64> X11ModifierState::now()
{
    const X11Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        m_connection.get(), xcb_query_pointer(m_connection.get(), m_connection.root()), nullptr));
    // What arrived with the answer no longer wakes the main loop.
    drainSoon();
    if (!reply) {
        return std::nullopt;
    }
    const quint64 flags = flagsFor(reply->mask);
    const bool isLoss = (flags & m_believed) != m_believed;
    if ((m_dependencies.retellsKeys || m_settling.isActive()) && isLoss) {
        tell(flags, m_dependencies.mainQueue.systemUptime(), {}, false);
        return m_believed;
    }
    return flags;
}

void X11ModifierState::drainSoon()
{
    if (!std::exchange(m_willDrain, true)) {
        QMetaObject::invokeMethod(
            this, [this] { drain(); }, Qt::QueuedConnection);
    }
}

void X11ModifierState::drain()
{
    m_willDrain = false;
    while (hasNext()) {
        if (m_questions.empty() || isOlderThanAnswer(*m_next)) {
            handleNext();
        } else if (!answerNext()) {
            break;
        }
    }
    while (!m_questions.empty() && answerNext()) { }
    if (m_connection.isBroken()) {
        m_notifier->setEnabled(false);
    }
}

bool X11ModifierState::hasNext()
{
    if (!m_next) {
        m_next.reset(xcb_poll_for_event(m_connection.get()));
    }
    return m_next != nullptr;
}

bool X11ModifierState::isOlderThanAnswer(const xcb_generic_event_t& event) const
{
    // An event carries the number of the request after which the server wrote it.
    const uint32_t distance = event.full_sequence - m_questions.front().cookie.sequence;
    return static_cast<int32_t>(distance) < 0;
}

void X11ModifierState::handleNext()
{
    // Taken first, because a listener may have the events drained.
    const Event event = std::move(m_next);
    handle(*event);
}

bool X11ModifierState::answerNext()
{
    void* answer = nullptr;
    xcb_generic_error_t* failure = nullptr;
    if (xcb_poll_for_reply(
            m_connection.get(), m_questions.front().cookie.sequence, &answer, &failure)
        == 0) {
        return false;
    }
    const X11Reply<xcb_query_pointer_reply_t> reply(
        static_cast<xcb_query_pointer_reply_t*>(answer));
    const X11Reply<xcb_generic_error_t> error(failure);
    // What is older may have arrived along with it.
    while (hasNext() && isOlderThanAnswer(*m_next)) {
        handleNext();
    }
    const Question question = std::move(m_questions.front());
    m_questions.pop_front();
    if (reply) {
        tell(flagsFor(reply->mask), question.time, question.listener, false);
    }
    return true;
}

void X11ModifierState::handle(const xcb_generic_event_t& event)
{
    if (x11EventType(event.response_type) != m_keyboardEvent
        || event.pad0 != XCB_XKB_STATE_NOTIFY) {
        return;
    }
    const auto& state = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event);
    const quint64 flags = flagsFor(state.mods);
    const double time = uptimeOfServerTime(state.time, m_dependencies.mainQueue.systemUptime());
    // What an ordinary key lets go of had been latched for it. Whoever gets the key is to have it
    // before that is told.
    const bool isUsedUp
        = state.keycode != 0 && m_dependencies.map().modifiersOfKey.at(state.keycode) == 0;
    // A copy, because a listener may add another.
    const std::vector<Listener> followers = m_followers;
    if (followers.empty()) {
        tell(flags, time, {}, isUsedUp);
    }
    for (const Listener& follower : followers) {
        tell(flags, time, follower, isUsedUp);
    }
}

void X11ModifierState::tell(quint64 flags, double time, const Listener& listener, bool isUsedUp)
{
    const bool isLoss = (flags & m_believed) != m_believed;
    if ((m_dependencies.retellsKeys || isUsedUp || m_settling.isActive()) && isLoss) {
        m_doubted = flags;
        m_losses.push_back({time, listener});
        if (!m_settling.isActive()) {
            m_settling = m_dependencies.mainQueue.after(settlingSeconds, [this] { believeLoss(); });
        }
        return;
    }
    m_believed = flags;
    m_losses.clear();
    m_settling.cancel();
    if (listener.object) {
        listener.observer(flags, time);
    }
}

void X11ModifierState::believeLoss()
{
    m_believed = m_doubted;
    const std::vector<Loss> losses = std::exchange(m_losses, {});
    for (const Loss& loss : losses) {
        if (loss.listener.object) {
            loss.listener.observer(m_believed, losses.front().time);
        }
    }
}

} // namespace Tavik
