// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/AccessibilityPermission.h>
#include <TavikLauncherPlatform/Linux/Session/KeyCodes.h>
#include <TavikLauncherPlatform/Linux/Session/KeySymbols.h>
#include <TavikLauncherPlatform/Linux/Session/SessionAccessibilityPermission.h>
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11EventTap.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyEvents.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyMonitors.h>
#include <TavikLauncherPlatform/Linux/X11/XkbProtocol.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QPointer>

#include <algorithm>
#include <utility>

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

X11KeyEvents::X11KeyEvents(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
    , m_map(X11KeyboardMap::read(m_dependencies.toolkit))
    , m_modifiers({.mainQueue = m_dependencies.mainQueue,
                   .map = [this]() -> const X11KeyboardMap& { return m_map; },
                   .retellsKeys = m_dependencies.isXwayland})
    , m_grabs([this](const xcb_key_press_event_t& event) { pressed(event); })
{
    const xcb_query_extension_reply_t* xkb
        = xcb_get_extension_data(m_dependencies.toolkit, &xcb_xkb_id);
    if (xkb && xkb->present) {
        m_xkbEvent = xkb->first_event;
    }
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11KeyEvents::~X11KeyEvents() = default;

Means X11KeyEvents::triggerMeans(bool isChord) const
{
    if (m_dependencies.isXwayland) {
        return {.way = Texts::tr("Only the keys of the launcher's own windows."),
                .lack = SessionAccessibilityPermission::waylandLimit()};
    }
    return {.way = isChord ? Texts::tr("The X server tells which modifiers are held.")
                           : Texts::tr("The X server reserves the key for the launcher.")};
}

Means X11KeyEvents::releaseMeans() const
{
    return {.way = m_dependencies.isXwayland
                ? Texts::tr("The ring's own keyboard, while it is open.")
                : Texts::tr("The X server tells which modifiers are held.")};
}

KeyEvents::HotKeyResult X11KeyEvents::registerHotKey(const HotKey& hotKey, HotKeyHandlers handlers)
{
    const std::optional<X11HotKeyGrabs::Grab> wanted = grabFor(hotKey);
    if (!wanted) {
        return {.registration = nullptr, .status = badValue};
    }
    const int status = isHeld(*wanted) ? badAccess : m_grabs.grab(*wanted);
    if (status != 0) {
        return {.registration = nullptr, .status = status};
    }
    m_held.push_back({m_nextId++, hotKey, *wanted, std::move(handlers)});
    return {.registration = std::make_unique<Registration>(this, m_held.back().id), .status = 0};
}

int X11KeyEvents::hotKeyStatus(const HotKey& hotKey)
{
    const std::optional<X11HotKeyGrabs::Grab> wanted = grabFor(hotKey);
    if (!wanted) {
        return badValue;
    }
    if (isHeld(*wanted)) {
        return 0;
    }
    const int status = m_grabs.grab(*wanted);
    if (status == 0) {
        m_grabs.ungrab(*wanted);
    }
    return status;
}

std::optional<X11HotKeyGrabs::Grab> X11KeyEvents::grabFor(const HotKey& hotKey) const
{
    const std::optional<xcb_keycode_t> key
        = hotKey.keyCode ? m_map.keyFor(*hotKey.keyCode) : std::nullopt;
    const std::optional<quint16> mask = m_map.modifiers.maskFor(hotKey.modifierFlags);
    if (!key || !mask) {
        return std::nullopt;
    }
    return X11HotKeyGrabs::Grab{.key = *key, .mask = *mask, .variants = m_map.modifiers.variants()};
}

bool X11KeyEvents::isHeld(const X11HotKeyGrabs::Grab& grab) const
{
    return std::ranges::any_of(m_held, [&grab](const Held& other) {
        return other.grab.key == grab.key && other.grab.mask == grab.mask;
    });
}

bool X11KeyEvents::hasKeys(quint64 modifierFlags, std::optional<quint16> keyCode) const
{
    return m_map.modifiers.maskFor(modifierFlags) && (!keyCode || m_map.keyFor(*keyCode));
}

X11KeyMonitorDependencies X11KeyEvents::monitorDependencies()
{
    return {.map = [this]() -> const X11KeyboardMap& { return m_map; },
            .uptime = [this] { return m_dependencies.mainQueue.systemUptime(); },
            .isTrusted = [this] { return m_dependencies.permission.isTrusted(); },
            .modifiers = m_modifiers};
}

std::unique_ptr<KeyMonitor> X11KeyEvents::addLocalMonitor(Kind kind, Filter filter)
{
    return std::make_unique<X11LocalKeyMonitor>(monitorDependencies(), kind, std::move(filter));
}

std::unique_ptr<KeyMonitor> X11KeyEvents::addGlobalMonitor(Kind kind, Observer observer)
{
    if (kind != Kind::modifiersChanged || !m_modifiers.isNotified()) {
        return nullptr;
    }
    return std::make_unique<X11ModifierMonitor>(monitorDependencies(), std::move(observer));
}

std::unique_ptr<EventTap>
X11KeyEvents::createEventTap(Kind kind, Observer observer, std::function<void()> disabled)
{
    const X11KeyMonitorDependencies shared = monitorDependencies();
    auto tap = std::make_unique<X11EventTap>(
        X11EventTap::Dependencies{
            shared.map, shared.uptime, shared.modifiers, m_dependencies.ringGotKey},
        kind,
        std::move(observer),
        std::move(disabled));
    return tap->isEnabled() ? std::move(tap) : nullptr;
}

std::optional<quint64> X11KeyEvents::heldModifiers()
{
    return m_modifiers.now();
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
    return KeySymbols::text(key.symbol);
}

KeyEvents::LevelUse X11KeyEvents::levelUse(const NativeKey& key) const
{
    if (KeySymbols::choosesLevel(key.symbol)) {
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
    if (type == XCB_MAPPING_NOTIFY) {
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

void X11KeyEvents::release(quint64 id)
{
    const auto found = std::ranges::find(m_held, id, &Held::id);
    if (found != m_held.end()) {
        m_grabs.ungrab(found->grab);
        m_held.erase(found);
    }
}

void X11KeyEvents::pressed(const xcb_key_press_event_t& event)
{
    const auto mask = static_cast<quint16>(event.state & realModifiers & ~m_map.modifiers.others);
    const auto found = std::ranges::find_if(m_held, [&](const Held& held) {
        return held.grab.key == event.detail && held.grab.mask == mask;
    });
    const QPointer<X11KeyEvents> self(this);
    if (found != m_held.end()) {
        // A copy, because the press may end its own registration.
        const std::function<void(double)> handler = found->handlers.pressed;
        m_isAnswering = true;
        handler(uptimeOfServerTime(event.time, m_dependencies.mainQueue.systemUptime()));
    }
    if (!self) {
        return;
    }
    m_isAnswering = false;
    // The keys wait on another connection: what has just been asked for on the toolkit's, such as
    // the focus for the ring, must have been done before they go on.
    const X11Reply<xcb_get_input_focus_reply_t> done(xcb_get_input_focus_reply(
        m_dependencies.toolkit, xcb_get_input_focus(m_dependencies.toolkit), nullptr));
    m_dependencies.whenSettled([self] {
        if (self) {
            self->m_grabs.answer();
        }
    });
}

void X11KeyEvents::mappingChanged()
{
    if (!m_mappingTask.isActive()) {
        m_mappingTask = m_dependencies.mainQueue.after(mappingSettleSeconds, [this] { readMap(); });
    }
}

void X11KeyEvents::readMap()
{
    const X11KeyboardMap map = X11KeyboardMap::read(m_dependencies.toolkit);
    if (map == m_map) {
        return;
    }
    const bool hasMoved = map.modifiers != m_map.modifiers;
    m_map = map;
    if (hasMoved) {
        grabAgain();
    }
    if (onKeyboardChanged) {
        onKeyboardChanged();
    }
}

void X11KeyEvents::grabAgain()
{
    for (const Held& held : m_held) {
        m_grabs.ungrab(held.grab);
    }
    std::vector<std::pair<std::function<void(int)>, int>> lost;
    for (Held& held : std::exchange(m_held, {})) {
        const std::optional<X11HotKeyGrabs::Grab> wanted = grabFor(held.hotKey);
        const int status = wanted ? m_grabs.grab(*wanted) : badValue;
        if (status == 0) {
            held.grab = *wanted;
            m_held.push_back(std::move(held));
        } else {
            qCWarning(log, "The hot key was lost when the keyboard map changed: status %d", status);
            lost.emplace_back(held.handlers.lost, status);
        }
    }
    for (const auto& [tell, status] : lost) {
        if (tell) {
            tell(status);
        }
    }
}

} // namespace Tavik
