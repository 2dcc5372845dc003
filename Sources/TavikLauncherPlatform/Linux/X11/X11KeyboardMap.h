// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11GrabModifiers.h>

#include <array>

#include <xcb/xcb.h>

namespace Tavik {

/// What the server tells of the keyboard: which keys type something, and which are modifiers. A
/// value.
struct X11KeyboardMap
{
    static constexpr std::size_t keyCount = 256;

    X11GrabModifiers modifiers;
    std::array<quint8, keyCount> modifiersOfKey{}; ///< The server's modifiers that a key holds.
    std::array<bool, keyCount> hasSymbol{};
    quint16 levels = 0; ///< The server's modifiers that AltGr and the like set.

    /// Two round trips, made at once.
    [[nodiscard]] static X11KeyboardMap read(xcb_connection_t* connection);

    /// The server's key for a virtual key code; absent when the keyboard has no such key.
    [[nodiscard]] std::optional<xcb_keycode_t> keyFor(quint16 virtualKeyCode) const;

    bool operator==(const X11KeyboardMap&) const = default;
};

} // namespace Tavik
