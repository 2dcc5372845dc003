// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyboardMap.h>

namespace Tavik {

/// Tells presses of a key from its repetitions.
class X11KeyRepeat
{
public:
    /// Returns whether this press is a repetition.
    bool press(xcb_keycode_t key, quint32 time);
    void release(xcb_keycode_t key, quint32 time);
    [[nodiscard]] bool isDown(xcb_keycode_t key) const { return m_keys.at(key).isDown; }
    /// Keys may have gone up or down unseen.
    void forget() { m_keys.fill({}); }

private:
    struct KeyState
    {
        bool isDown = false;
        quint32 lastPress = 0;
        quint32 lastRelease = 0;
    };
    std::array<KeyState, X11KeyboardMap::keyCount> m_keys{};
};

/// Follows the ordinary keys of one source.
class X11KeyReader
{
public:
    /// What a press means, with the modifiers before it. Absent for releases, for modifiers and for
    /// keys that the standard layout does not have. `now` is the system's uptime.
    [[nodiscard]] std::optional<KeyEvents::Event>
    read(const xcb_key_press_event_t& event, const X11KeyboardMap& map, double now);
    void forget() { m_keys.forget(); }

private:
    X11KeyRepeat m_keys;
};

} // namespace Tavik
