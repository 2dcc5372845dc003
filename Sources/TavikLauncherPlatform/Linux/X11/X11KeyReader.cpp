// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/KeyCodes.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyReader.h>

namespace Tavik {

namespace {

/// A key that seems to be down for so long without repeating has been released unseen.
constexpr quint32 longestSilenceMilliseconds = 5000;

} // namespace

bool X11KeyRepeat::press(xcb_keycode_t key, quint32 time)
{
    KeyState& state = m_keys.at(key);
    // The server repeats a key as a release and a press of the same time, or, to a client that has
    // asked for it, as presses only.
    const bool isRepeat = state.isDown ? time - state.lastPress < longestSilenceMilliseconds
                                       : state.lastRelease != 0 && state.lastRelease == time;
    state.isDown = true;
    state.lastPress = time;
    return isRepeat;
}

void X11KeyRepeat::release(xcb_keycode_t key, quint32 time)
{
    KeyState& state = m_keys.at(key);
    state.isDown = false;
    state.lastRelease = time;
}

std::optional<KeyEvents::Event>
X11KeyReader::read(const X11KeyEvent& event, const X11KeyboardMap& map, double now)
{
    bool isRepeat = false;
    if (event.isPress) {
        isRepeat = m_keys.press(event.key, event.time);
    } else {
        m_keys.release(event.key, event.time);
    }
    const quint8 ownModifiers = map.modifiersOfKey.at(event.key);
    KeyEvents::Event result{.modifierFlags = map.modifiers.flagsFor(stateAfter(event, map)),
                            .isRepeat = isRepeat,
                            .time = uptimeOfServerTime(event.time, now)};
    if (ownModifiers != 0) {
        return map.modifiers.flagsFor(ownModifiers) != 0 ? std::optional(result) : std::nullopt;
    }
    const std::optional<quint16> code
        = KeyCodes::virtualKeyCode(static_cast<quint16>(event.key - KeyCodes::x11Offset));
    if (!event.isPress || !code) {
        return std::nullopt;
    }
    result.kind = KeyEvents::Kind::keyDown;
    result.keyCode = *code;
    return result;
}

quint16 X11KeyReader::stateAfter(const X11KeyEvent& event, const X11KeyboardMap& map) const
{
    quint8 changed = map.modifiersOfKey.at(event.key);
    if (event.isPress) {
        return event.stateBefore | changed;
    }
    // The other key of a pair may still hold the modifier.
    for (std::size_t key = 0; changed != 0 && key < X11KeyboardMap::keyCount; ++key) {
        if (m_keys.isDown(key)) {
            changed &= static_cast<quint8>(~map.modifiersOfKey.at(key));
        }
    }
    return event.stateBefore & static_cast<quint16>(~changed);
}

} // namespace Tavik
