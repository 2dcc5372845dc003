// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>

#include <QList>
#include <QObject>
#include <QThread>

#include <functional>
#include <memory>

namespace Tavik {

/// Keys grabbed on the root window, on a connection and a thread of their own.
///
/// A press freezes the keyboard at the server. What is typed next waits there, in order, until the
/// main thread has answered or a quarter of a second has passed, and then goes to whoever has the
/// focus by that time. The thread does nothing else, so that a busy main thread holds nobody's keys
/// back for longer.
class X11HotKeyGrabs final : public QObject
{
public:
    struct Grab
    {
        xcb_keycode_t key = 0;
        quint16 mask = 0;
        QList<quint16> variants; ///< Further modifiers that make no difference, in all their sets.
    };
    /// Must be followed by `answer`. Called on the main thread.
    using Pressed = std::function<void(const xcb_key_press_event_t& event)>;

    explicit X11HotKeyGrabs(Pressed pressed);
    ~X11HotKeyGrabs() override;

    /// 0, or the X error with which one of the variants was refused; then none is kept. A round
    /// trip.
    [[nodiscard]] int grab(const Grab& grab);
    void ungrab(const Grab& grab);
    /// Lets the keys go on to whoever has the focus.
    void answer();

    bool event(QEvent* event) override;

private:
    class Keeper;
    /// What arrived along with an answer no longer wakes the thread.
    void wakeKeeper();

    X11Connection m_connection;
    Pressed m_pressed;
    QThread m_thread;
    std::unique_ptr<Keeper> m_keeper;
};

} // namespace Tavik
