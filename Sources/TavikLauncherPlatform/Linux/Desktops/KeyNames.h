// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// What desktops call a key of a shortcut, which names its place on the keyboard.
namespace Tavik::KeyNames {

/// The toolkit's number of the key, which is its character where it has one. `label` is what it was
/// called in the layout in which the shortcut was recorded. Absent where that tells no key.
[[nodiscard]] std::optional<int> toolkitKey(quint16 virtualKeyCode, const QString& label);
/// Its name for an accelerator in GNOME's settings, or its place where it has none that is the same
/// in every layout. Absent for a key that keyboards here do not have.
[[nodiscard]] std::optional<QString> acceleratorKey(quint16 virtualKeyCode);

/// The name of its symbol in the layout in which the shortcut was recorded, as the keyboard's
/// library has it.
[[nodiscard]] std::optional<QString> symbolName(quint16 virtualKeyCode, const QString& label);

} // namespace Tavik::KeyNames
