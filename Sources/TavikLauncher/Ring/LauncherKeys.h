// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace Tavik {

struct LauncherCommands;

/// One key press as the panel's key handling looks at it.
struct LauncherKey
{
    /// Virtual key code of the standard layout, for the keys that have a command of their own.
    std::optional<quint16> keyCode;
    /// What the key types without Control, Option and Command, in the user's layout.
    QString charactersIgnoringModifiers;
    bool hasCommand = false; ///< Command+digit launches.
    bool isAutoRepeat = false;
};

namespace LauncherKeyCode {
inline constexpr quint16 returnKey = 36;
inline constexpr quint16 deleteKey = 51;
inline constexpr quint16 escape = 53;
inline constexpr quint16 forwardDelete = 117;
inline constexpr quint16 leftArrow = 123;
inline constexpr quint16 rightArrow = 124;
inline constexpr quint16 downArrow = 125;
inline constexpr quint16 upArrow = 126;
} // namespace LauncherKeyCode

/// Turns a key press into a ring command. Returns whether the key was used up; a key that has a
/// command is used up even while that command is empty. A repeated key moves, types and deletes,
/// but never launches.
bool dispatchLauncherKey(const LauncherKey& key, const LauncherCommands& commands);

} // namespace Tavik
