// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace Tavik {

struct HotKeyConfig;

/// What there is to tell people about a shortcut, in whole sentences.
namespace ShortcutWords {

/// The keys as they are printed on a keyboard, one for each: "Ctrl", "Alt". A shortcut that
/// somebody has named is one key of that name.
[[nodiscard]] QStringList keycaps(const HotKeyConfig& config);
/// The same in one line, as in "Ctrl + Alt + Space".
[[nodiscard]] QString keys(const HotKeyConfig& config);
/// What it does, in the words of a keyboard, for those to whom its glyphs say nothing.
[[nodiscard]] QString description(const HotKeyConfig& config);
/// What the user loses by it, as programs everywhere use it themselves or it types something;
/// absent for one that costs nobody anything.
[[nodiscard]] std::optional<QString> warning(const HotKeyConfig& config);
/// How it gets along with the shortcuts that the desktop and other programs have asked for.
[[nodiscard]] QString coexistence(const HotKeyConfig& config);
/// That it cannot be had, and what may be the reason: two sentences apart.
[[nodiscard]] QString lost(const HotKeyConfig& config);
[[nodiscard]] QString whyLost();
/// Why a gesture with AltGr becomes no shortcut.
[[nodiscard]] QString levelRefusal();

} // namespace ShortcutWords

} // namespace Tavik
