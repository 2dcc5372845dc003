// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/ShortcutWords.h>
#include <TavikLauncher/Trigger/GlobalHotKey.h>
#include <TavikLauncherPlatform/AccessibilityPermission.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QLoggingCategory>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "tavik.trigger")

/// Two reports of one key press are closer together than two presses.
constexpr double duplicatePressSeconds = 0.1;
/// What a tap tells just after it was switched on again may be old.
constexpr double staleTapSeconds = 0.25;
constexpr double tapHealthSeconds = 1.0;
const char* nameOf(KeySource source)
{
    switch (source) {
    case KeySource::localMonitor:
        return "local monitor";
    case KeySource::eventTap:
        return "event tap";
    case KeySource::globalMonitor:
        return "global monitor";
    }
    return "";
}

quint64 modifiersOf(const HotKeyConfig& config)
{
    return config.modifierFlagsRaw & ModifierFlags::all;
}

KeyEvents::HotKey hotKeyOf(const HotKeyConfig& config)
{
    return {.keyCode = config.keyCode,
            .modifierFlags = modifiersOf(config),
            .label = config.nameOfKey()};
}

} // namespace

GlobalHotKey::GlobalHotKey(const Dependencies& dependencies,
                           HotKeyConfig config,
                           PressHandler onPress,
                           ReleaseHandler onRelease)
    : m_dependencies(dependencies)
    , m_config(std::move(config))
    , m_onPress(std::move(onPress))
    , m_onRelease(std::move(onRelease))
    , m_chord({.keyEvents = dependencies.keyEvents, .mainQueue = dependencies.mainQueue},
              modifiersOf(m_config),
              [this](const ChordRecogniser::News& news) { tell(news); })
{ }

GlobalHotKey::~GlobalHotKey()
{
    unregister();
}

std::optional<QString> GlobalHotKey::refusal(KeyEvents& keyEvents, const HotKeyConfig& config)
{
    const quint64 modifiers = modifiersOf(config);
    if (modifiers == 0) {
        return Texts::tr("A shortcut needs at least one modifier key.");
    }
    if (!keyEvents.hasKeys(modifiers, config.keyCode)) {
        return Texts::tr("This keyboard does not have all the keys of %1.")
            .arg(ShortcutWords::keys(config));
    }
    if (!config.keyCode && !keyEvents.hearsChords()) {
        return Texts::
            tr("This desktop gives programs no shortcut of modifiers alone. Add a key: %1, say.")
                .arg(ShortcutWords::keys(config.withSpace()));
    }
    if (config.keyCode && keyEvents.hotKeyStatus(hotKeyOf(config)) != 0) {
        return Texts::tr("%1 is already used by another application.")
            .arg(ShortcutWords::keys(config));
    }
    return std::nullopt;
}

GlobalHotKey::Hearing GlobalHotKey::hearing() const
{
    if (m_hotKey) {
        return Hearing::heard;
    }
    if (!m_eventTap && !m_globalMonitor) {
        return Hearing::unheard;
    }
    return m_config.isModifierOnly() ? Hearing::heard : Hearing::shared;
}

bool GlobalHotKey::registerHotKey()
{
    // Without modifiers a chord would be held whenever nothing is, and a key would be taken from
    // everything that can be typed into.
    if (modifiersOf(m_config) == 0
        || !m_dependencies.keyEvents.hasKeys(modifiersOf(m_config), m_config.keyCode)) {
        qCWarning(
            log,
            "Tavik Launcher: failed to install hotkey monitors: this keyboard cannot give %ls",
            qUtf16Printable(m_config.displayName.left(32)));
        return false;
    }
    if (m_config.isModifierOnly()) {
        registerChord();
    } else {
        registerKey();
    }
    if (m_hotKey || m_localMonitor || m_eventTap || m_globalMonitor) {
        return true;
    }
    qCWarning(log, "Tavik Launcher: failed to install hotkey monitors");
    return false;
}

void GlobalHotKey::registerChord()
{
    using enum KeyEvents::Kind;
    KeyEvents& keys = m_dependencies.keyEvents;
    m_hotKey
        = keys.registerHotKey(
                  hotKeyOf(m_config),
                  {.pressed = [this](double time) { m_chord.pressTold(time); },
                   .released = [this](double time) { m_chord.releaseTold(time); },
                   .joined
                   = [this](double time) { m_chord.otherKeyTaken(modifiersOf(m_config), time); },
                   .lost =
                       [this](int status) {
                           hotKeyLost(status);
                       }})
              .registration;
    m_chord.setAskedFor(m_hotKey != nullptr);
    m_localMonitor = keys.addLocalMonitor(modifiersChanged, [this](const KeyEvents::Event& event) {
        handleModifiers(KeySource::localMonitor, event);
        return false;
    });
    installEventTap(modifiersChanged);
    m_globalMonitor
        = keys.addGlobalMonitor(modifiersChanged, [this](const KeyEvents::Event& event) {
              handleModifiers(KeySource::globalMonitor, event);
          });
    qCInfo(log,
           "Tavik Launcher hotkey registered (modifier-only): local=%d tap=%d global=%d "
           "AXTrusted=%d",
           m_localMonitor != nullptr,
           m_eventTap != nullptr,
           m_globalMonitor != nullptr,
           m_dependencies.permission.isTrusted());
}

void GlobalHotKey::registerKey()
{
    KeyEvents::HotKeyResult result
        = m_dependencies.keyEvents.registerHotKey(hotKeyOf(m_config),
                                                  {.pressed = [this](double time) { press(time); },
                                                   .lost =
                                                       [this](int status) {
                                                           hotKeyLost(status);
                                                       }});
    m_hotKey = std::move(result.registration);
    m_localMonitor = m_dependencies.keyEvents.addLocalMonitor(
        KeyEvents::Kind::keyDown,
        [this](const KeyEvents::Event& event) { return handleLocalKeyDown(event); });
    if (!m_hotKey) {
        qCWarning(log, "Tavik Launcher: RegisterEventHotKey status %d", result.status);
        watchForKey();
    }
}

void GlobalHotKey::watchForKey()
{
    qCWarning(log,
              "Tavik Launcher: Carbon RegisterEventHotKey failed, falling back to NSEvent "
              "monitors");
    installEventTap(KeyEvents::Kind::keyDown);
    m_globalMonitor = m_dependencies.keyEvents.addGlobalMonitor(
        KeyEvents::Kind::keyDown,
        [this](const KeyEvents::Event& event) { handleGlobalKeyDown(event); });
}

void GlobalHotKey::hotKeyLost(int status)
{
    m_hotKey.reset();
    m_chord.setAskedFor(false);
    if (!m_config.isModifierOnly()) {
        watchForKey();
    }
    // Copied, because the owner may answer by replacing this.
    if (const std::function<void(int)> lost = onHotKeyLost) {
        lost(status);
    }
}

bool GlobalHotKey::matches(const KeyEvents::Event& event) const
{
    return event.keyCode == m_config.keyCode
        && (event.modifierFlags & ModifierFlags::all) == modifiersOf(m_config);
}

bool GlobalHotKey::handleLocalKeyDown(const KeyEvents::Event& event)
{
    if (!matches(event)) {
        return false;
    }
    // A tap sees our own windows' keys as well, and tells them first.
    if (!event.isRepeat && event.time != m_lastPressTime) {
        m_lastPressTime = event.time;
        press(event.time);
    }
    return true;
}

void GlobalHotKey::handleGlobalKeyDown(const KeyEvents::Event& event)
{
    const double now = m_dependencies.mainQueue.systemUptime();
    if (!matches(event) || event.isRepeat || event.time == m_lastPressTime
        || now - m_lastGlobalPressUptime <= duplicatePressSeconds) {
        return;
    }
    m_lastGlobalPressUptime = now;
    m_lastPressTime = event.time;
    press(event.time);
}

void GlobalHotKey::installEventTap(KeyEvents::Kind kind)
{
    if (!m_dependencies.permission.isTrusted()) {
        return;
    }
    m_eventTap = m_dependencies.keyEvents.createEventTap(
        kind,
        [this](const KeyEvents::Event& event) { handleEventTapEvent(event); },
        [this] { reenableTap(); });
    if (m_eventTap) {
        m_tapHealthTimer
            = m_dependencies.mainQueue.every(tapHealthSeconds, [this] { checkTapHealth(); });
    }
}

void GlobalHotKey::handleEventTapEvent(const KeyEvents::Event& event)
{
    const double now = m_dependencies.mainQueue.systemUptime();
    if (now - m_lastTapReenableUptime <= staleTapSeconds) {
        return;
    }
    switch (event.kind) {
    case KeyEvents::Kind::modifiersChanged:
        if (m_config.isModifierOnly()) {
            handleModifiers(KeySource::eventTap, event);
        }
        break;
    case KeyEvents::Kind::keyDown:
        if (!m_config.isModifierOnly()) {
            handleGlobalKeyDown(event);
        }
        break;
    case KeyEvents::Kind::takenElsewhere:
        if (m_config.isModifierOnly()) {
            m_chord.otherKeyTaken(event.modifierFlags, event.time);
        }
        break;
    }
}

void GlobalHotKey::summon()
{
    const double now = m_dependencies.mainQueue.systemUptime();
    if (m_config.isModifierOnly()) {
        m_chord.pressTold(now);
    } else {
        press(now);
    }
}

void GlobalHotKey::handleModifiers(KeySource source, const KeyEvents::Event& event)
{
    noteDelivery(source);
    m_chord.modifiersAre(event.modifierFlags, event.time);
}

void GlobalHotKey::noteDelivery(KeySource source)
{
    if (m_sourcesSeen.insert(source).second) {
        qCInfo(log, "Tavik Launcher hotkey: first event from %s", nameOf(source));
    }
}

void GlobalHotKey::tell(const ChordRecogniser::News& news)
{
    // Copied, because the owner may answer by replacing this.
    const PressHandler press = m_onPress;
    const ReleaseHandler release = m_onRelease;
    const std::function<void(OtherKey)> otherKey = onOtherKey;
    const std::function<void(double)> heldAfterAll = onHeldAfterAll;
    const std::function<void()> letGo = onLetGo;
    if (news.joinedBy && otherKey) {
        otherKey(*news.joinedBy);
    }
    if (news.endedBefore) {
        release(*news.endedBefore, news.time);
    }
    if (news.isLetGoBefore && letGo) {
        letGo();
    }
    if (news.isPress) {
        press(news.time);
    }
    if (news.heldSince && heldAfterAll) {
        heldAfterAll(*news.heldSince);
    }
    if (news.releasedBy) {
        release(*news.releasedBy, news.time);
    }
    if (news.isLetGo && letGo) {
        letGo();
    }
}

void GlobalHotKey::checkTapHealth()
{
    if (m_eventTap->isEnabled()) {
        return;
    }
    if (m_dependencies.permission.isTrusted()) {
        reenableTap();
        return;
    }
    qCWarning(log, "Tavik Launcher hotkey: Accessibility revoked mid-session — standing down");
    // Copied, because the owner may answer by replacing this.
    const std::function<void()> revoked = onAccessibilityRevoked;
    unregister();
    if (revoked) {
        revoked();
    }
}

void GlobalHotKey::reenableTap()
{
    m_lastTapReenableUptime = m_dependencies.mainQueue.systemUptime();
    m_eventTap->enable();
}

void GlobalHotKey::unregister()
{
    m_tapHealthTimer.cancel();
    m_localMonitor.reset();
    m_globalMonitor.reset();
    m_eventTap.reset();
    m_hotKey.reset();
    m_chord.setAskedFor(false);
    if (m_chord.stop()) {
        const ReleaseHandler release = m_onRelease;
        release(ReleaseReason::unregistered, m_dependencies.mainQueue.systemUptime());
    }
}

void GlobalHotKey::press(double time)
{
    const PressHandler handler = m_onPress;
    handler(time);
}

} // namespace Tavik
