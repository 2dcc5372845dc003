// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <optional>

/// Translates between the virtual key codes of the shortcut records and the kernel's key codes,
/// both of which name a place on the keyboard and not what is printed there.
namespace Tavik::KeyCodes {

/// X servers number keys as the kernel does, plus this.
inline constexpr int x11Offset = 8;

/// Absent when no key of that place exists here.
[[nodiscard]] std::optional<quint16> evdevCode(quint16 virtualKeyCode);
[[nodiscard]] std::optional<quint16> virtualKeyCode(quint16 evdevCode);

} // namespace Tavik::KeyCodes
