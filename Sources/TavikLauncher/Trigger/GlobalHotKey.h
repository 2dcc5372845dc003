// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncher/Trigger/ChordRecogniser.h>
#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <optional>
#include <set>

namespace Tavik {

class AccessibilityPermission;

/// The sources that tell of key events, each of its own accord.
enum class KeySource {
    localMonitor,
    eventTap,
    globalMonitor
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

    enum class Hearing {
        heard,
        shared, ///< Somebody else has been given the key; we hear of it, too.
        unheard, ///< But in our own windows.
    };

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

    /// What has become of the registration by now.
    [[nodiscard]] Hearing hearing() const;

    /// Returns whether at least one way of delivery was installed. (`register` would be its name,
    /// were it not a word of the language.)
    bool registerHotKey();
    /// A command told of a press, which the desktop runs at a key that is bound to it: the chord's,
    /// or any other.
    void summon();
    /// Undoes everything that `registerHotKey` did; a chord that is held ends.
    void unregister();

    /// Called after the permission was withdrawn and this has unregistered itself; may destroy it.
    std::function<void()> onAccessibilityRevoked;
    /// Called when a press whose release was told turns out to be still held, with its time. Only a
    /// desktop or a command that tells presses alone can be mistaken like this.
    std::function<void(double)> onHeldAfterAll;
    /// Called when another key has joined the chord: before the press if it did so from the start,
    /// before the release if that ends the chord, and after it if the news is late.
    std::function<void(OtherKey)> onOtherKey;
    /// Called when the modifiers of a chord that another key had joined are no longer all held.
    /// Until then every press is the same one, come back.
    std::function<void()> onLetGo;
    /// Called when the key was taken from us later on, with the system's error code; this watches
    /// for it as far as it can.
    std::function<void(int)> onHotKeyLost;

private:
    void registerChord();
    void registerKey();
    [[nodiscard]] bool matches(const KeyEvents::Event& event) const;
    void installEventTap(KeyEvents::Kind kind);
    void handleEventTapEvent(const KeyEvents::Event& event);
    /// Returns whether the key is ours.
    bool handleLocalKeyDown(const KeyEvents::Event& event);
    void handleGlobalKeyDown(const KeyEvents::Event& event);
    void handleModifiers(KeySource source, const KeyEvents::Event& event);
    void noteDelivery(KeySource source);
    void tell(const ChordRecogniser::News& news);
    void hotKeyLost(int status);
    void watchForKey();
    void checkTapHealth();
    void reenableTap();
    void press(double time);

    Dependencies m_dependencies;
    HotKeyConfig m_config;
    PressHandler m_onPress;
    ReleaseHandler m_onRelease;
    std::unique_ptr<KeyMonitor> m_localMonitor;
    std::unique_ptr<KeyMonitor> m_globalMonitor;
    std::unique_ptr<EventTap> m_eventTap;
    std::unique_ptr<HotKeyRegistration> m_hotKey;
    ChordRecogniser m_chord; ///< Hears nothing where the shortcut has a key.
    std::set<KeySource> m_sourcesSeen;
    double m_lastPressTime = 0; ///< Of the key, by its event.
    double m_lastGlobalPressUptime = 0;
    double m_lastTapReenableUptime = 0;
    Task m_tapHealthTimer;
};

} // namespace Tavik
