// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/Linux/X11/X11GrabModifiers.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <vector>

#include <xcb/xcb.h>

namespace Tavik {

/// Hot keys as passive grabs on the root window.
///
/// They are grabbed on the toolkit's connection, not on one of our own: the press that comes back
/// there also refreshes the toolkit's idea of when the user last acted, which window managers with
/// focus-stealing prevention compare when the panel is shown.
class X11KeyEvents final : public QObject, public KeyEvents, public QAbstractNativeEventFilter
{
public:
    /// `connection` is the toolkit's and must outlive this.
    X11KeyEvents(xcb_connection_t* connection, MainQueue& mainQueue);
    ~X11KeyEvents() override;

    [[nodiscard]] HotKeyResult registerHotKey(const HotKey& hotKey,
                                              std::function<void(double)> pressed) override;

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
    /// One key of the keyboard, to tell a press from its repetitions.
    struct KeyState
    {
        bool isDown = false;
        quint32 lastPress = 0;
        quint32 lastRelease = 0;
    };
    [[nodiscard]] int grab(const Grab& grab);
    void ungrab(const Grab& grab);
    void release(quint64 id);
    void handleKey(const xcb_key_press_event_t& event, bool isPress);
    [[nodiscard]] static bool isRepeat(const KeyState& state, quint32 time);
    void mappingChanged();
    void grabAgain();
    [[nodiscard]] X11GrabModifiers readModifiers() const;

    xcb_connection_t* m_connection;
    MainQueue& m_mainQueue;
    xcb_window_t m_root;
    int m_xkbEvent = -1; ///< The number of the keyboard extension's events.
    X11GrabModifiers m_modifiers;
    std::vector<Grab> m_grabs;
    std::array<KeyState, 256> m_keys{};
    Task m_mappingTask;
    quint64 m_nextId = 1;
};

} // namespace Tavik
