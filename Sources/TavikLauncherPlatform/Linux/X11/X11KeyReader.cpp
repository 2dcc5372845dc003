// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/KeyCodes.h>
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
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
X11KeyReader::read(const xcb_key_press_event_t& event, const X11KeyboardMap& map, double now)
{
    if (x11EventType(event.response_type) == XCB_KEY_RELEASE) {
        m_keys.release(event.detail, event.time);
        return std::nullopt;
    }
    const bool isRepeat = m_keys.press(event.detail, event.time);
    const std::optional<quint16> code
        = KeyCodes::virtualKeyCode(static_cast<quint16>(event.detail - KeyCodes::x11Offset));
    if (map.modifiersOfKey.at(event.detail) != 0 || !code) {
        return std::nullopt;
    }
    return KeyEvents::Event{.kind = KeyEvents::Kind::keyDown,
                            .keyCode = *code,
                            .modifierFlags = map.modifiers.flagsFor(event.state),
                            .isRepeat = isRepeat,
                            .time = uptimeOfServerTime(event.time, now)};
}

} // namespace Tavik
