// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyReader.h>

#include <QObject>
#include <QSocketNotifier>

#include <xcb/record.h>

namespace Tavik {

class X11ModifierState;

/// The key events of the whole session through the server's recording of device events, which no
/// grab keeps from us. It needs two connections of its own: one holds the recording, and the other
/// can do nothing but receive it.
class X11EventTap final : public QObject, public EventTap
{
public:
    struct Dependencies
    {
        std::function<const X11KeyboardMap&()> map;
        std::function<double()> uptime; ///< The main queue's clock.
        X11ModifierState& modifiers;
        /// Whether the ring got the key press of that time; asked only with modifiers held.
        std::function<bool(xcb_keycode_t, xcb_timestamp_t)> isOurs;
    };

    X11EventTap(Dependencies dependencies,
                KeyEvents::Kind kind,
                KeyEvents::Observer observer,
                std::function<void()> disabled);
    ~X11EventTap() override;

    [[nodiscard]] bool isEnabled() const override;
    bool enable() override;
    /// The recording's name on the server; 0 without one.
    [[nodiscard]] xcb_record_context_t context() const;

private:
    class Link;
    void drain();
    /// Returns false when this has been destroyed.
    bool handle(const xcb_record_enable_context_reply_t& reply);
    void handleKey(const xcb_key_press_event_t& event);
    void handleModifiers(const xcb_key_press_event_t& event);
    void ended();

    Dependencies m_dependencies;
    KeyEvents::Kind m_kind;
    KeyEvents::Observer m_observer;
    std::function<void()> m_disabled;
    X11KeyReader m_reader;
    std::unique_ptr<Link> m_link;
    unsigned int m_request = 0; ///< The request that the recording answers.
    bool m_isEnabled = false;
    bool m_hasStarted = false; ///< The server has agreed to record.
};

} // namespace Tavik
