// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tavik {

/// The trigger shortcut: modifiers and a key that toggle the ring, or modifiers alone that show it
/// while they are held. Its name is made once and travels with it.
struct HotKeyConfig
{
    quint64 modifierFlagsRaw = 0; ///< Bits of ModifierFlags; the low 16 bits are zero.
    std::optional<quint16> keyCode; ///< Virtual key code; absent for modifiers alone.
    QString displayName;

    bool operator==(const HotKeyConfig&) const = default;

    /// Hold Control and Option.
    [[nodiscard]] static HotKeyConfig defaultConfig();
    /// The record for a gesture, with its name; `characters` are what the key types without
    /// modifiers.
    [[nodiscard]] static HotKeyConfig make(quint64 modifierFlags,
                                           std::optional<quint16> keyCode,
                                           const std::optional<QString>& characters = {});
    /// What a key is called: by the table of named keys, else by its characters, else by its code.
    [[nodiscard]] static QString keyLabel(quint16 keyCode,
                                          const std::optional<QString>& characters);

    /// Absent unless `json` is an object with members of the right types and ranges.
    [[nodiscard]] static std::optional<HotKeyConfig> fromJson(const QByteArray& json);
    [[nodiscard]] QByteArray toJson() const;

    [[nodiscard]] bool isModifierOnly() const { return !keyCode; }
    /// The same modifiers with Space: for desktops that need a key.
    [[nodiscard]] HotKeyConfig withSpace() const;
    /// What the key is called in the name, which begins with the modifiers.
    [[nodiscard]] QString nameOfKey() const;
};

} // namespace Tavik
