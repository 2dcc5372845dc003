// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyReader.h>
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
///
/// They are grabbed on the toolkit's connection, not on one of our own: the press that comes back
/// there also refreshes the toolkit's idea of when the user last acted, which window managers with
/// focus-stealing prevention compare when the panel is shown.
class X11KeyEvents final : public QObject, public KeyEvents, public QAbstractNativeEventFilter
{
public:
    /// `connection` is the toolkit's and must outlive this.
    X11KeyEvents(xcb_connection_t* connection,
                 MainQueue& mainQueue,
                 const AccessibilityPermission& permission);
    ~X11KeyEvents() override;

    [[nodiscard]] HotKeyResult registerHotKey(const HotKey& hotKey,
                                              std::function<void(double)> pressed) override;
    [[nodiscard]] int hotKeyStatus(const HotKey& hotKey) override;
    [[nodiscard]] bool hasKeys(quint64 modifierFlags,
                               std::optional<quint16> keyCode) const override;
    [[nodiscard]] std::unique_ptr<KeyMonitor> addLocalMonitor(Kind kind, Filter filter) override;
    /// Only for modifiers: nothing but a tap tells of other keys.
    [[nodiscard]] std::unique_ptr<KeyMonitor> addGlobalMonitor(Kind kind,
                                                               Observer observer) override;
    [[nodiscard]] std::unique_ptr<EventTap>
    createEventTap(Kind kind, Observer observer, std::function<void()> disabled) override;
    [[nodiscard]] std::unique_ptr<KeyMonitor>
    addFocusMonitor(std::function<void()> changed) override;
    [[nodiscard]] std::optional<quint64> heldModifiers() const override;
    [[nodiscard]] std::optional<quint16> keyCode(const NativeKey& key) const override;
    [[nodiscard]] std::optional<QString> characters(const NativeKey& key) const override;
    [[nodiscard]] LevelUse levelUse(const NativeKey& key) const override;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    class Registration;
    struct Grab
    {
        quint64 id = 0;
        HotKey hotKey;
        xcb_keycode_t key = 0;
        quint16 mask = 0;
        std::function<void(double)> pressed;
    };
    /// A grab with nothing missing but its number; absent when the keyboard lacks a key for it.
    [[nodiscard]] std::optional<Grab> grabFor(const HotKey& hotKey) const;
    [[nodiscard]] bool isHeld(const Grab& grab) const;
    [[nodiscard]] int grab(const Grab& grab);
    void ungrab(const Grab& grab);
    void release(quint64 id);
    void handleKey(const xcb_key_press_event_t& event, bool isPress);
    void mappingChanged();
    void grabAgain();
    [[nodiscard]] X11KeyMonitorDependencies monitorDependencies() const;

    xcb_connection_t* m_connection;
    MainQueue& m_mainQueue;
    const AccessibilityPermission& m_permission;
    xcb_window_t m_root;
    int m_xkbEvent = -1; ///< The number of the keyboard extension's events.
    X11KeyboardMap m_map;
    std::vector<Grab> m_grabs;
    X11KeyRepeat m_keys;
    Task m_mappingTask;
    quint64 m_nextId = 1;
};

} // namespace Tavik
