// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyboardMap.h>

namespace Tavik {

/// One key event as the X protocol tells it.
struct X11KeyEvent
{
    bool isPress = false;
    xcb_keycode_t key = 0;
    quint16 stateBefore = 0;
    quint32 time = 0; ///< Of the server, in milliseconds.
};

/// Tells presses of a key from its repetitions.
class X11KeyRepeat
{
public:
    /// Returns whether this press is a repetition.
    bool press(xcb_keycode_t key, quint32 time);
    void release(xcb_keycode_t key, quint32 time);
    [[nodiscard]] bool isDown(std::size_t key) const { return m_keys.at(key).isDown; }
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

/// Follows the key events of one source and says what each of them means. The protocol tells the
/// modifiers before an event; what counts is what is held after it.
class X11KeyReader
{
public:
    /// Absent for what nobody asks about: the release of an ordinary key, and the lock keys.
    [[nodiscard]] std::optional<KeyEvents::Event>
    read(const X11KeyEvent& event, const X11KeyboardMap& map, double now);
    void forget() { m_keys.forget(); }

private:
    [[nodiscard]] quint16 stateAfter(const X11KeyEvent& event, const X11KeyboardMap& map) const;

    X11KeyRepeat m_keys;
};

} // namespace Tavik
