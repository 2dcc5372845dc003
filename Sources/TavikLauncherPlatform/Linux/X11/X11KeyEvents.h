// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/Linux/X11/X11HotKeyGrabs.h>
#include <TavikLauncherPlatform/Linux/X11/X11ModifierState.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <vector>

#include <xcb/xcb.h>

namespace Tavik {

class AccessibilityPermission;
struct X11KeyMonitorDependencies;

/// Hot keys as passive grabs on the root window; monitors and taps through the facilities that suit
/// each.
class X11KeyEvents final : public QObject, public KeyEvents, public QAbstractNativeEventFilter
{
public:
    struct Dependencies
    {
        xcb_connection_t* toolkit; ///< The toolkit's connection; outlives this.
        MainQueue& mainQueue;
        const AccessibilityPermission& permission;
        /// Whether the ring got the press of a key at a time of the server.
        std::function<bool(xcb_keycode_t, xcb_timestamp_t)> ringGotKey;
        /// Runs its argument when the ring's keyboard is under way no longer; see X11KeyboardFocus.
        std::function<void(const std::function<void()>&)> whenSettled
            = [](const std::function<void()>& done) {
                  done();
              };
        /// Whether the server speaks for another window system.
        bool isXwayland = false;
    };

    explicit X11KeyEvents(Dependencies dependencies);
    ~X11KeyEvents() override;

    [[nodiscard]] HotKeyResult registerHotKey(const HotKey& hotKey,
                                              HotKeyHandlers handlers) override;
    [[nodiscard]] int hotKeyStatus(const HotKey& hotKey) override;
    [[nodiscard]] Means triggerMeans(bool isChord) const override;
    [[nodiscard]] Means releaseMeans() const override;
    [[nodiscard]] bool hasKeys(quint64 modifierFlags,
                               std::optional<quint16> keyCode) const override;
    [[nodiscard]] std::unique_ptr<KeyMonitor> addLocalMonitor(Kind kind, Filter filter) override;
    /// Only for modifiers: nothing but a tap tells of other keys.
    [[nodiscard]] std::unique_ptr<KeyMonitor> addGlobalMonitor(Kind kind,
                                                               Observer observer) override;
    [[nodiscard]] std::unique_ptr<EventTap>
    createEventTap(Kind kind, Observer observer, std::function<void()> disabled) override;
    [[nodiscard]] std::optional<quint64> heldModifiers() override;
    [[nodiscard]] std::optional<quint16> keyCode(const NativeKey& key) const override;
    [[nodiscard]] std::optional<QString> characters(const NativeKey& key) const override;
    [[nodiscard]] LevelUse levelUse(const NativeKey& key) const override;

    /// True inside a hot key's `pressed`: then the keyboard is grabbed, by ourselves.
    [[nodiscard]] bool isAnsweringHotKey() const { return m_isAnswering; }

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    class Registration;
    struct Held
    {
        quint64 id = 0;
        HotKey hotKey;
        X11HotKeyGrabs::Grab grab;
        HotKeyHandlers handlers;
    };
    /// Absent when the keyboard lacks a key for it.
    [[nodiscard]] std::optional<X11HotKeyGrabs::Grab> grabFor(const HotKey& hotKey) const;
    [[nodiscard]] bool isHeld(const X11HotKeyGrabs::Grab& grab) const;
    void release(quint64 id);
    void pressed(const xcb_key_press_event_t& event);
    void mappingChanged();
    void readMap();
    void grabAgain();
    [[nodiscard]] X11KeyMonitorDependencies monitorDependencies();

    Dependencies m_dependencies;
    int m_xkbEvent = -1; ///< The number of the keyboard extension's events.
    X11KeyboardMap m_map;
    X11ModifierState m_modifiers;
    X11HotKeyGrabs m_grabs;
    std::vector<Held> m_held;
    Task m_mappingTask;
    quint64 m_nextId = 1;
    bool m_isAnswering = false;
};

} // namespace Tavik
