// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Desktops/ShortcutSource.h>

namespace Tavik::Test {

constexpr quint64 chordFlags = ModifierFlags::control | ModifierFlags::option;
const KeyEvents::HotKey chord{.keyCode = {}, .modifierFlags = chordFlags};
const KeyEvents::HotKey chordAndSpace{.keyCode = quint16{49}, .modifierFlags = chordFlags};
const KeyEvents::HotKey superK{
    .keyCode = quint16{40}, .modifierFlags = ModifierFlags::command, .label = QStringLiteral("k")};

/// What a desktop tells of a shortcut: "P" it is pressed, "R" released, "J" joined, "L" lost.
struct ShortcutStory
{
    [[nodiscard]] ShortcutSource::Handlers handlers()
    {
        const auto tell = [this](char16_t letter) {
            return [this, letter](auto...) {
                told += letter;
            };
        };
        return {tell(u'P'), tell(u'R'), tell(u'J'), tell(u'L')};
    }

    QString told;
};

} // namespace Tavik::Test
