// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/AccessibilityPermission.h>
#include <TavikLauncherPlatform/Linux/Session/KeyCodes.h>
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11EventTap.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyEvents.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyMonitors.h>
#include <TavikLauncherPlatform/Linux/X11/XkbProtocol.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QPointer>

#include <algorithm>
#include <array>
#include <utility>

#include <xkbcommon/xkbcommon.h>

namespace Tavik {

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.x11")

constexpr int badValue = XCB_VALUE;
constexpr int badAccess = XCB_ACCESS;
/// The map changes in bursts, one event for each key.
constexpr double mappingSettleSeconds = 0.2;
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

X11KeyEvents::X11KeyEvents(xcb_connection_t* connection,
                           MainQueue& mainQueue,
                           const AccessibilityPermission& permission)
    : m_connection(connection)
    , m_mainQueue(mainQueue)
    , m_permission(permission)
    , m_root(x11RootWindow(connection, 0))
    , m_map(X11KeyboardMap::read(connection))
{
    const xcb_query_extension_reply_t* xkb = xcb_get_extension_data(connection, &xcb_xkb_id);
    if (xkb && xkb->present) {
        m_xkbEvent = xkb->first_event;
    }
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
    std::optional<Grab> wanted = grabFor(hotKey);
    if (!wanted) {
        return {.registration = nullptr, .status = badValue};
    }
    const int status = isHeld(*wanted) ? badAccess : grab(*wanted);
    if (status != 0) {
        return {.registration = nullptr, .status = status};
    }
    wanted->id = m_nextId++;
    wanted->pressed = std::move(pressed);
    m_grabs.push_back(std::move(*wanted));
    return {.registration = std::make_unique<Registration>(this, m_grabs.back().id), .status = 0};
}

int X11KeyEvents::hotKeyStatus(const HotKey& hotKey)
{
    const std::optional<Grab> wanted = grabFor(hotKey);
    if (!wanted) {
        return badValue;
    }
    if (isHeld(*wanted)) {
        return 0;
    }
    const int status = grab(*wanted);
    if (status == 0) {
        ungrab(*wanted);
    }
    return status;
}

std::optional<X11KeyEvents::Grab> X11KeyEvents::grabFor(const HotKey& hotKey) const
{
    const std::optional<xcb_keycode_t> key = m_map.keyFor(hotKey.keyCode);
    const std::optional<quint16> mask = m_map.modifiers.maskFor(hotKey.modifierFlags);
    if (!key || !mask) {
        return std::nullopt;
    }
    return Grab{.hotKey = hotKey, .key = *key, .mask = *mask};
}

bool X11KeyEvents::isHeld(const Grab& grab) const
{
    return std::ranges::any_of(m_grabs, [&grab](const Grab& other) {
        return other.key == grab.key && other.mask == grab.mask;
    });
}

bool X11KeyEvents::hasKeys(quint64 modifierFlags, std::optional<quint16> keyCode) const
{
    return m_map.modifiers.maskFor(modifierFlags) && (!keyCode || m_map.keyFor(*keyCode));
}

X11KeyMonitorDependencies X11KeyEvents::monitorDependencies() const
{
    return {.map = [this]() -> const X11KeyboardMap& { return m_map; },
            .uptime = [this] { return m_mainQueue.systemUptime(); },
            .isTrusted =
                [this] {
                    return m_permission.isTrusted();
                }};
}

std::unique_ptr<KeyMonitor> X11KeyEvents::addLocalMonitor(Kind kind, Filter filter)
{
    return std::make_unique<X11LocalKeyMonitor>(monitorDependencies(), kind, std::move(filter));
}

std::unique_ptr<KeyMonitor> X11KeyEvents::addGlobalMonitor(Kind kind, Observer observer)
{
    if (kind != Kind::modifiersChanged || m_xkbEvent < 0) {
        return nullptr;
    }
    return std::make_unique<X11ModifierMonitor>(
        monitorDependencies(), m_xkbEvent, std::move(observer));
}

std::unique_ptr<EventTap>
X11KeyEvents::createEventTap(Kind kind, Observer observer, std::function<void()> disabled)
{
    const X11KeyMonitorDependencies shared = monitorDependencies();
    auto tap = std::make_unique<X11EventTap>(X11EventTap::Dependencies{shared.map, shared.uptime},
                                             kind,
                                             std::move(observer),
                                             std::move(disabled));
    return tap->isEnabled() ? std::move(tap) : nullptr;
}

std::unique_ptr<KeyMonitor> X11KeyEvents::addFocusMonitor(std::function<void()> changed)
{
    return std::make_unique<X11FocusMonitor>(std::move(changed));
}

std::optional<quint64> X11KeyEvents::heldModifiers() const
{
    // The pointer's query answers with the keyboard's state too, and needs no extension.
    const X11Reply<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(m_connection, xcb_query_pointer(m_connection, m_root), nullptr));
    return reply ? std::optional(m_map.modifiers.flagsFor(reply->mask)) : std::nullopt;
}

std::optional<quint16> X11KeyEvents::keyCode(const NativeKey& key) const
{
    if (key.scanCode < KeyCodes::x11Offset || key.scanCode >= X11KeyboardMap::keyCount) {
        return std::nullopt;
    }
    return KeyCodes::virtualKeyCode(static_cast<quint16>(key.scanCode - KeyCodes::x11Offset));
}

std::optional<QString> X11KeyEvents::characters(const NativeKey& key) const
{
    if (key.symbol == XKB_KEY_NoSymbol) {
        return std::nullopt;
    }
    std::array<char, 8> text{};
    xkb_keysym_to_utf8(key.symbol, text.data(), text.size());
    const QString characters = QString::fromUtf8(text.data());
    return characters.isEmpty() || !characters.front().isPrint() ? QString() : characters;
}

KeyEvents::LevelUse X11KeyEvents::levelUse(const NativeKey& key) const
{
    if (X11KeyboardMap::choosesLevel(key.symbol)) {
        return LevelUse::chooser;
    }
    return (key.modifiers & m_map.levels) != 0 ? LevelUse::chosen : LevelUse::none;
}

bool X11KeyEvents::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t") {
        return false;
    }
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const int type = x11EventType(event->response_type);
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
    for (const quint16 locks : m_map.modifiers.lockVariants()) {
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
    for (const quint16 locks : m_map.modifiers.lockVariants()) {
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
    if (event.event != m_root) {
        return;
    }
    if (!isPress) {
        m_keys.release(event.detail, event.time);
        return;
    }
    if (m_keys.press(event.detail, event.time)) {
        return;
    }
    const auto mask = static_cast<quint16>(event.state & realModifiers & ~m_map.modifiers.locks);
    const auto found = std::ranges::find_if(
        m_grabs, [&](const Grab& grab) { return grab.key == event.detail && grab.mask == mask; });
    if (found != m_grabs.end()) {
        // A copy, because the press may end its own registration.
        const std::function<void(double)> pressed = found->pressed;
        pressed(uptimeOfServerTime(event.time, m_mainQueue.systemUptime()));
    }
}

void X11KeyEvents::mappingChanged()
{
    if (!m_mappingTask.isActive()) {
        m_mappingTask = m_mainQueue.after(mappingSettleSeconds, [this] { grabAgain(); });
    }
}

void X11KeyEvents::grabAgain()
{
    const X11KeyboardMap map = X11KeyboardMap::read(m_connection);
    if (map == m_map) {
        return;
    }
    const bool hasMoved = map.modifiers != m_map.modifiers;
    if (hasMoved) {
        for (const Grab& held : m_grabs) {
            ungrab(held);
        }
    }
    m_map = map;
    for (Grab& wanted : m_grabs) {
        if (!hasMoved) {
            break;
        }
        const std::optional<quint16> mask = m_map.modifiers.maskFor(wanted.hotKey.modifierFlags);
        wanted.mask = mask.value_or(wanted.mask);
        const int status = mask ? grab(wanted) : badValue;
        if (status != 0) {
            qCWarning(log, "The hot key was lost when the keyboard map changed: status %d", status);
        }
    }
    if (onKeyboardChanged) {
        onKeyboardChanged();
    }
}

} // namespace Tavik
