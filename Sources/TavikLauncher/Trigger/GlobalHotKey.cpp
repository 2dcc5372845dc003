// SPDX-License-Identifier: MIT
#include <TavikLauncher/Trigger/GlobalHotKey.h>
#include <TavikLauncherPlatform/AccessibilityPermission.h>

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
/// How long a release that nobody told of can keep a chord alive.
constexpr double heldModifiersSeconds = 0.25;
/// A press that another source tells so soon after a release may be the one before it.
constexpr double lateReportSeconds = 0.05;

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

} // namespace

GlobalHotKey::GlobalHotKey(const Dependencies& dependencies,
                           HotKeyConfig config,
                           PressHandler onPress,
                           ReleaseHandler onRelease)
    : m_dependencies(dependencies)
    , m_config(std::move(config))
    , m_onPress(std::move(onPress))
    , m_onRelease(std::move(onRelease))
{ }

GlobalHotKey::~GlobalHotKey()
{
    unregister();
}

std::optional<QString> GlobalHotKey::refusal(KeyEvents& keyEvents, const HotKeyConfig& config)
{
    const quint64 modifiers = modifiersOf(config);
    if (modifiers == 0) {
        return u"A shortcut needs at least one modifier key."_s;
    }
    if (!keyEvents.hasKeys(modifiers, config.keyCode)) {
        return u"This keyboard does not have all the keys of %1."_s.arg(config.displayName);
    }
    if (config.keyCode
        && keyEvents.hotKeyStatus({.keyCode = *config.keyCode, .modifierFlags = modifiers}) != 0) {
        return u"%1 is already used by another application."_s.arg(config.displayName);
    }
    return std::nullopt;
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
    m_localMonitor = keys.addLocalMonitor(modifiersChanged, [this](const KeyEvents::Event& event) {
        handleModifiers(KeySource::localMonitor, event);
        return false;
    });
    installEventTap(modifiersChanged);
    m_globalMonitor
        = keys.addGlobalMonitor(modifiersChanged, [this](const KeyEvents::Event& event) {
              handleModifiers(KeySource::globalMonitor, event);
          });
    m_focusMonitor = keys.addFocusMonitor([this] { checkHeldModifiers(); });
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
    const KeyEvents::HotKey hotKey{.keyCode = *m_config.keyCode,
                                   .modifierFlags = modifiersOf(m_config)};
    KeyEvents::HotKeyResult result
        = m_dependencies.keyEvents.registerHotKey(hotKey, [this](double time) { press(time); });
    m_hotKey = std::move(result.registration);
    if (!m_hotKey) {
        qCWarning(log, "Tavik Launcher: RegisterEventHotKey status %d", result.status);
        qCWarning(log,
                  "Tavik Launcher: Carbon RegisterEventHotKey failed, falling back to NSEvent "
                  "monitors");
    }
    m_localMonitor = m_dependencies.keyEvents.addLocalMonitor(
        KeyEvents::Kind::keyDown,
        [this](const KeyEvents::Event& event) { return handleLocalKeyDown(event); });
    if (!m_hotKey) {
        installEventTap(KeyEvents::Kind::keyDown);
        m_globalMonitor = m_dependencies.keyEvents.addGlobalMonitor(
            KeyEvents::Kind::keyDown,
            [this](const KeyEvents::Event& event) { handleGlobalKeyDown(event); });
    }
}

bool GlobalHotKey::matches(const KeyEvents::Event& event) const
{
    return event.keyCode == m_config.keyCode && isChord(event.modifierFlags);
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
    if (event.kind == KeyEvents::Kind::modifiersChanged) {
        if (m_config.isModifierOnly()) {
            handleModifiers(KeySource::eventTap, event);
        }
    } else if (!m_config.isModifierOnly()) {
        handleGlobalKeyDown(event);
    }
}

void GlobalHotKey::handleModifiers(KeySource source, const KeyEvents::Event& event)
{
    const bool isNews = m_order.accepts(source, event.time);
    const bool isHeld = isChord(event.modifierFlags);
    const bool isRelease = isNews && !isHeld && m_isChordActive;
    Told& told = toldBy(source);
    if (isRelease || (told.isHeld && !isHeld)) {
        told.releaseTime = event.time;
    }
    told.isHeld = isHeld;
    if (!isNews || (isHeld && isToldLate(told, event.time))) {
        return;
    }
    if (isRelease) {
        m_chordReleaseTime = event.time;
    }
    handleModifierFlags(event.modifierFlags, event.time);
}

bool GlobalHotKey::isChord(quint64 flags) const
{
    return ((flags ^ m_config.modifierFlagsRaw) & ModifierFlags::all) == 0;
}

bool GlobalHotKey::isToldLate(const Told& told, double time) const
{
    if (m_isChordActive || !m_chordReleaseTime || time - *m_chordReleaseTime > lateReportSeconds) {
        return false;
    }
    // Who has told the end of the last chord is at the next one, even if that is over as well by
    // the time we hear of it.
    if (told.releaseTime >= m_chordPressTime && told.releaseTime < time) {
        return false;
    }
    // Sources stamp the same event with times that differ by what the system was busy for, so the
    // order alone cannot tell. The keyboard itself can, and this is rare enough to ask it.
    const std::optional<quint64> held = m_dependencies.keyEvents.heldModifiers();
    return held && !isChord(*held);
}

void GlobalHotKey::handleModifierFlags(quint64 flags, double time)
{
    if (isChord(flags) == m_isChordActive) {
        return;
    }
    if (m_isChordActive) {
        release(ReleaseReason::chordReleased, time);
        return;
    }
    m_isChordActive = true;
    m_chordPressTime = time;
    m_heldModifiersTimer
        = m_dependencies.mainQueue.every(heldModifiersSeconds, [this] { checkHeldModifiers(); });
    press(time);
}

void GlobalHotKey::checkHeldModifiers()
{
    if (!m_isChordActive) {
        return;
    }
    const std::optional<quint64> held = m_dependencies.keyEvents.heldModifiers();
    if (held) {
        handleModifierFlags(*held, m_dependencies.mainQueue.systemUptime());
    }
}

GlobalHotKey::Told& GlobalHotKey::toldBy(KeySource source)
{
    const auto [told, isFirst] = m_told.try_emplace(source);
    if (isFirst) {
        qCInfo(log, "Tavik Launcher hotkey: first event from %s", nameOf(source));
    }
    return told->second;
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
    m_focusMonitor.reset();
    m_eventTap.reset();
    m_hotKey.reset();
    if (m_isChordActive) {
        release(ReleaseReason::unregistered, m_dependencies.mainQueue.systemUptime());
    }
}

void GlobalHotKey::press(double time)
{
    // Copied, because the owner may answer by replacing this.
    const PressHandler handler = m_onPress;
    handler(time);
}

void GlobalHotKey::release(ReleaseReason reason, double time)
{
    m_isChordActive = false;
    m_heldModifiersTimer.cancel();
    const ReleaseHandler handler = m_onRelease;
    handler(reason, time);
}

} // namespace Tavik
