// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/KeyEvents.h>

#include <QString>
#include <Qt>

#include <optional>

class QKeyEvent;

namespace Tavik {

/// Says what a key press of our windows is in the terms of the rules, which know nothing of the
/// toolkit. Where the window system has no answer, the toolkit's own one is used.
namespace KeyTranslation {

/// What the key types without Control, Option and Command, in the user's layout.
[[nodiscard]] QString charactersIgnoringModifiers(const QKeyEvent& event, const KeyEvents& keys);
/// The virtual key code of the standard layout for the key's place; absent for keys it lacks.
[[nodiscard]] std::optional<quint16> keyCode(const QKeyEvent& event, const KeyEvents& keys);
/// The digit 1 to 9 of the row above the letters, by place and not by what the layout types there.
[[nodiscard]] std::optional<int> digitOfRow(quint16 keyCode);
/// Bits of ModifierFlags.
[[nodiscard]] quint64 modifierFlags(Qt::KeyboardModifiers modifiers);
/// Whether the key is itself a modifier or a lock.
[[nodiscard]] bool isModifierKey(const QKeyEvent& event);
/// What AltGr and the like have to do with the event.
[[nodiscard]] KeyEvents::LevelUse levelUse(const QKeyEvent& event, const KeyEvents& keys);
/// The modifiers held after the press or release of a modifier key.
[[nodiscard]] quint64 modifierFlagsAfter(const QKeyEvent& event);

} // namespace KeyTranslation

} // namespace Tavik
