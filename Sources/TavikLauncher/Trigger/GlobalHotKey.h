// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncher/Trigger/ModifierEventOrder.h>
#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <map>
#include <optional>

namespace Tavik {

class AccessibilityPermission;

/// Why a chord is no longer held.
enum class ReleaseReason {
    chordReleased,
    unregistered
};

/// Turns the trigger shortcut into presses and releases, whichever application is frontmost. A
/// shortcut with a key is a system-wide hot key, or is watched for where that is refused; a chord
/// of modifiers alone is recognised from up to three sources, any one of which is enough. What
/// presses and releases do is decided elsewhere. One instance per registration, owned by the
/// application delegate.
class GlobalHotKey
{
public:
    struct Dependencies
    {
        KeyEvents& keyEvents;
        const AccessibilityPermission& permission;
        MainQueue& mainQueue;
    };
    /// Times are those of the events, in seconds of system uptime.
    using PressHandler = std::function<void(double time)>;
    using ReleaseHandler = std::function<void(ReleaseReason reason, double time)>;

    /// Shortcuts with a key have no release.
    GlobalHotKey(const Dependencies& dependencies,
                 HotKeyConfig config,
                 PressHandler onPress,
                 ReleaseHandler onRelease);
    ~GlobalHotKey();
    GlobalHotKey(const GlobalHotKey&) = delete;
    GlobalHotKey& operator=(const GlobalHotKey&) = delete;

    /// A trial: why the shortcut could not be had now, in words for the user; absent when it could.
    [[nodiscard]] static std::optional<QString> refusal(KeyEvents& keyEvents,
                                                        const HotKeyConfig& config);

    /// Returns whether at least one way of delivery was installed. (`register` would be its name,
    /// were it not a word of the language.)
    bool registerHotKey();
    /// Undoes everything that `registerHotKey` did; a chord that is held ends.
    void unregister();

    /// Called after the permission was withdrawn and this has unregistered itself; may destroy it.
    std::function<void()> onAccessibilityRevoked;

private:
    /// How far one source has come in what it tells of the chord.
    struct Told
    {
        bool isHeld = false;
        double releaseTime = 0;
    };
    void registerChord();
    void registerKey();
    [[nodiscard]] bool matches(const KeyEvents::Event& event) const;
    void installEventTap(KeyEvents::Kind kind);
    void handleEventTapEvent(const KeyEvents::Event& event);
    /// Returns whether the key is ours.
    bool handleLocalKeyDown(const KeyEvents::Event& event);
    void handleGlobalKeyDown(const KeyEvents::Event& event);
    void handleModifiers(KeySource source, const KeyEvents::Event& event);
    void handleModifierFlags(quint64 flags, double time);
    [[nodiscard]] bool isChord(quint64 flags) const;
    /// Whether a press is the one that has been released already.
    [[nodiscard]] bool isToldLate(const Told& told, double time) const;
    void checkHeldModifiers();
    Told& toldBy(KeySource source);
    void checkTapHealth();
    void reenableTap();
    void press(double time);
    void release(ReleaseReason reason, double time);

    Dependencies m_dependencies;
    HotKeyConfig m_config;
    PressHandler m_onPress;
    ReleaseHandler m_onRelease;
    std::unique_ptr<KeyMonitor> m_localMonitor;
    std::unique_ptr<KeyMonitor> m_globalMonitor;
    std::unique_ptr<KeyMonitor> m_focusMonitor;
    std::unique_ptr<EventTap> m_eventTap;
    std::unique_ptr<HotKeyRegistration> m_hotKey;
    ModifierEventOrder m_order;
    bool m_isChordActive = false;
    std::map<KeySource, Told> m_told; ///< Of the sources that have told anything.
    double m_chordPressTime = 0;
    std::optional<double> m_chordReleaseTime;
    double m_lastPressTime = 0; ///< Of the key, by its event.
    double m_lastGlobalPressUptime = 0;
    double m_lastTapReenableUptime = 0;
    Task m_tapHealthTimer;
    Task m_heldModifiersTimer; ///< Runs only while the chord is held.
};

} // namespace Tavik
