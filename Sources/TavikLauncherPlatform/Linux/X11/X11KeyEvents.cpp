// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktop/KeyCodes.h>
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyEvents.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QPointer>

#include <algorithm>
#include <utility>

// The header names a member with a word that C++ keeps for itself.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

namespace Tavik {

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.x11")

constexpr int badValue = XCB_VALUE;
constexpr int badAccess = XCB_ACCESS;
/// The map changes in bursts, one event for each key.
constexpr double mappingSettleSeconds = 0.2;
/// A key that seems to be down for so long without repeating has been released unseen.
constexpr quint32 longestSilenceMilliseconds = 5000;
constexpr uint16_t realModifiers = 0xff;

} // namespace

/// Gives the key back; may outlive the key events.
class X11KeyEvents::Registration final : public HotKeyRegistration
{
public:
    Registration(X11KeyEvents* owner, quint64 id)
        : m_owner(owner)
        , m_id(id)
    { }
    ~Registration() override
    {
        if (m_owner) {
            m_owner->release(m_id);
        }
    }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

private:
    QPointer<X11KeyEvents> m_owner;
    quint64 m_id;
};

X11KeyEvents::X11KeyEvents(xcb_connection_t* connection, MainQueue& mainQueue)
    : m_connection(connection)
    , m_mainQueue(mainQueue)
    , m_root(x11RootWindow(connection, 0))
{
    const xcb_query_extension_reply_t* xkb = xcb_get_extension_data(connection, &xcb_xkb_id);
    if (xkb && xkb->present) {
        m_xkbEvent = xkb->first_event;
    }
    m_modifiers = readModifiers();
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11KeyEvents::~X11KeyEvents()
{
    for (const Grab& grab : m_grabs) {
        ungrab(grab);
    }
    xcb_flush(m_connection);
}

KeyEvents::HotKeyResult X11KeyEvents::registerHotKey(const HotKey& hotKey,
                                                     std::function<void(double)> pressed)
{
    const std::optional<quint16> evdev = KeyCodes::evdevCode(hotKey.keyCode);
    const std::optional<quint16> mask = m_modifiers.maskFor(hotKey.modifierFlags);
    const int key = evdev.value_or(0) + KeyCodes::x11Offset;
    if (!evdev || !mask || key > xcb_get_setup(m_connection)->max_keycode) {
        return {.registration = nullptr, .status = badValue};
    }
    const auto isSame = [key, mask](const Grab& other) {
        return other.key == key && other.mask == *mask;
    };
    if (std::ranges::any_of(m_grabs, isSame)) {
        return {.registration = nullptr, .status = badAccess};
    }
    Grab wanted{.id = m_nextId++,
                .hotKey = hotKey,
                .key = static_cast<xcb_keycode_t>(key),
                .mask = *mask,
                .pressed = std::move(pressed)};
    if (const int status = grab(wanted); status != 0) {
        return {.registration = nullptr, .status = status};
    }
    m_grabs.push_back(std::move(wanted));
    return {.registration = std::make_unique<Registration>(this, m_grabs.back().id), .status = 0};
}

bool X11KeyEvents::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t") {
        return false;
    }
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const int type = event->response_type & 0x7f;
    if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE) {
        handleKey(*reinterpret_cast<const xcb_key_press_event_t*>(event), type == XCB_KEY_PRESS);
    } else if (type == XCB_MAPPING_NOTIFY) {
        mappingChanged();
    } else if (type == m_xkbEvent) {
        // To a client that knows the keyboard extension the server tells these instead.
        const uint8_t kind = event->pad0;
        if (kind == XCB_XKB_NEW_KEYBOARD_NOTIFY || kind == XCB_XKB_MAP_NOTIFY) {
            mappingChanged();
        }
    }
    return false;
}

int X11KeyEvents::grab(const Grab& grab)
{
    // Each combination with the lock keys by itself: "any modifier" would fail as soon as another
    // program holds a single one.
    std::vector<xcb_void_cookie_t> cookies;
    for (const quint16 locks : m_modifiers.lockVariants()) {
        // The owner's windows get nothing themselves, or the release would reach the panel.
        cookies.push_back(xcb_grab_key_checked(m_connection,
                                               0,
                                               m_root,
                                               grab.mask | locks,
                                               grab.key,
                                               XCB_GRAB_MODE_ASYNC,
                                               XCB_GRAB_MODE_ASYNC));
    }
    int status = 0;
    for (const xcb_void_cookie_t cookie : cookies) {
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(m_connection, cookie));
        if (error && status == 0) {
            status = error->error_code;
        }
    }
    if (status != 0) {
        ungrab(grab);
    }
    return status;
}

void X11KeyEvents::ungrab(const Grab& grab)
{
    for (const quint16 locks : m_modifiers.lockVariants()) {
        xcb_ungrab_key(m_connection, grab.key, m_root, grab.mask | locks);
    }
    xcb_flush(m_connection);
}

void X11KeyEvents::release(quint64 id)
{
    const auto found = std::ranges::find(m_grabs, id, &Grab::id);
    if (found != m_grabs.end()) {
        ungrab(*found);
        m_grabs.erase(found);
    }
}

void X11KeyEvents::handleKey(const xcb_key_press_event_t& event, bool isPress)
{
    if (event.event != m_root || m_grabs.empty()) {
        return;
    }
    KeyState& state = m_keys.at(event.detail);
    if (!isPress) {
        state.isDown = false;
        state.lastRelease = event.time;
        return;
    }
    const bool isRepeated = isRepeat(state, event.time);
    state.isDown = true;
    state.lastPress = event.time;
    if (isRepeated) {
        return;
    }
    const auto mask = static_cast<quint16>(event.state & realModifiers & ~m_modifiers.locks);
    const auto found = std::ranges::find_if(
        m_grabs, [&](const Grab& grab) { return grab.key == event.detail && grab.mask == mask; });
    if (found != m_grabs.end()) {
        // A copy, because the press may end its own registration.
        const std::function<void(double)> pressed = found->pressed;
        pressed(uptimeOfServerTime(event.time, m_mainQueue.systemUptime()));
    }
}

bool X11KeyEvents::isRepeat(const KeyState& state, quint32 time)
{
    // The server repeats a key as a release and a press of the same time, or, to a client that has
    // asked for it, as presses only.
    return state.isDown ? time - state.lastPress < longestSilenceMilliseconds
                        : state.lastRelease != 0 && state.lastRelease == time;
}

void X11KeyEvents::mappingChanged()
{
    if (!m_mappingTask.isActive()) {
        m_mappingTask = m_mainQueue.after(mappingSettleSeconds, [this] { grabAgain(); });
    }
}

void X11KeyEvents::grabAgain()
{
    const X11GrabModifiers modifiers = readModifiers();
    if (modifiers == m_modifiers) {
        return;
    }
    for (const Grab& held : m_grabs) {
        ungrab(held);
    }
    m_modifiers = modifiers;
    for (Grab& wanted : m_grabs) {
        const std::optional<quint16> mask = m_modifiers.maskFor(wanted.hotKey.modifierFlags);
        wanted.mask = mask.value_or(wanted.mask);
        const int status = mask ? grab(wanted) : badValue;
        if (status != 0) {
            qCWarning(log, "The hot key was lost when the keyboard map changed: status %d", status);
        }
    }
}

X11GrabModifiers X11KeyEvents::readModifiers() const
{
    const xcb_setup_t* setup = xcb_get_setup(m_connection);
    const auto modifiersCookie = xcb_get_modifier_mapping(m_connection);
    const auto keysCookie = xcb_get_keyboard_mapping(
        m_connection,
        setup->min_keycode,
        static_cast<uint8_t>(setup->max_keycode - setup->min_keycode + 1));
    const X11Reply<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(m_connection, modifiersCookie, nullptr));
    const X11Reply<xcb_get_keyboard_mapping_reply_t> keys(
        xcb_get_keyboard_mapping_reply(m_connection, keysCookie, nullptr));
    std::array<QList<quint8>, 8> keysOf;
    if (!modifiers || !keys) {
        return X11GrabModifiers::fromMap(keysOf, [](quint8) { return QList<quint32>(); });
    }
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    const std::size_t perModifier = modifiers->keycodes_per_modifier;
    for (std::size_t i = 0; i < keysOf.size(); ++i) {
        for (std::size_t j = 0; j < perModifier; ++j) {
            if (const xcb_keycode_t code = codes[i * perModifier + j]; code != 0) {
                keysOf.at(i).append(code);
            }
        }
    }
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(keys.get());
    const int symbolCount = xcb_get_keyboard_mapping_keysyms_length(keys.get());
    const int perKey = keys->keysyms_per_keycode;
    return X11GrabModifiers::fromMap(keysOf, [&](quint8 code) {
        QList<quint32> result;
        const int first = (code - setup->min_keycode) * perKey;
        for (int i = std::max(first, 0); i < std::min(first + perKey, symbolCount); ++i) {
            result.append(symbols[i]);
        }
        return result;
    });
}

} // namespace Tavik
