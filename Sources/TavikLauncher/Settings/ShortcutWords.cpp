// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncher/Settings/ShortcutWords.h>
#include <TavikLauncherPlatform/KeyEvents.h>

#include <algorithm>
#include <array>

namespace Tavik::ShortcutWords {

using namespace Qt::StringLiterals;
using namespace ModifierFlags;

namespace {

struct ModifierName
{
    quint64 flag;
    QStringView name;
};

constexpr std::array modifierNames{ModifierName{control, u"Control"},
                                   ModifierName{option, u"Alt"},
                                   ModifierName{shift, u"Shift"},
                                   ModifierName{command, u"Super"}};

/// What a key is good for, by its place on the keyboard: what it types is the layout's business.
enum class KeyUse {
    types, ///< A letter, a digit, a sign.
    space,
    edits, ///< Moves in a text or a list, or changes it.
    other,
};

constexpr quint16 space = 49;
constexpr quint16 lastOfMainKeys = 50;
/// Return, Tab and Backspace; Insert, Home, Page Up, Delete, End and Page Down; the arrows.
constexpr std::array<quint16, 14> editingKeys{
    36, 48, 51, 76, 114, 115, 116, 117, 119, 121, 123, 124, 125, 126};

KeyUse useOf(quint16 keyCode)
{
    if (std::ranges::find(editingKeys, keyCode) != editingKeys.end()) {
        return KeyUse::edits;
    }
    if (keyCode == space) {
        return KeyUse::space;
    }
    return keyCode <= lastOfMainKeys ? KeyUse::types : KeyUse::other;
}

/// A shortcut that means the same in nearly every program.
struct Custom
{
    quint64 modifierFlags;
    QStringView key;
    QStringView purpose;
};

constexpr std::array customs{Custom{control, u"A", u"to select all"},
                             Custom{control, u"C", u"to copy"},
                             Custom{control, u"F", u"to find"},
                             Custom{control, u"S", u"to save"},
                             Custom{control, u"V", u"to paste"},
                             Custom{control, u"X", u"to cut"},
                             Custom{control, u"Z", u"to undo"},
                             Custom{control | shift, u"Z", u"to redo"},
                             Custom{option, u"F4", u"to close a window"}};

/// The combinations of modifiers that programs share out among themselves.
constexpr std::array<quint64, 4> programsOwn{control, control | shift, option, shift};

/// What is pressed, key by key.
QStringList keyNames(const HotKeyConfig& config)
{
    QStringList keys;
    for (const auto& [flag, name] : modifierNames) {
        if ((config.modifierFlagsRaw & flag) != 0) {
            keys.append(name.toString());
        }
    }
    if (config.isModifierOnly()) {
        return keys;
    }
    // The name is stored text. One of ours has a glyph for each modifier before the key.
    const QString glyphs
        = HotKeyConfig::make(config.modifierFlagsRaw, config.keyCode).displayName.left(keys.size());
    if (!config.displayName.startsWith(glyphs)) {
        return {config.displayName};
    }
    keys.append(config.displayName.mid(keys.size()));
    return keys;
}

QString spoken(const HotKeyConfig& config)
{
    return keyNames(config).join(u" + "_s);
}

} // namespace

QStringList keycaps(const HotKeyConfig& config)
{
    return keyNames(config).replaceInStrings(u"Control"_s, u"Ctrl"_s);
}

QString description(const HotKeyConfig& config)
{
    return (config.isModifierOnly() ? u"Hold %1 to show the ring, let go to dismiss it"_s
                                    : u"Press %1 to show or dismiss the ring"_s)
        .arg(spoken(config));
}

std::optional<QString> warning(const HotKeyConfig& config)
{
    if (config.isModifierOnly()) {
        return std::nullopt;
    }
    const quint64 held = config.modifierFlagsRaw & all;
    const QString keys = spoken(config);
    const auto custom = std::ranges::find_if(customs, [&](const Custom& known) {
        return known.modifierFlags == held && keyNames(config).constLast() == known.key;
    });
    const KeyUse use = useOf(*config.keyCode);
    if (held == shift && (use == KeyUse::types || use == KeyUse::space)) {
        return u"%1 types a character. As the shortcut of the ring it could not be typed in any program any more."_s
            .arg(keys);
    }
    const bool isTheirs = std::ranges::find(programsOwn, held) != programsOwn.end()
        && (use == KeyUse::types || use == KeyUse::edits);
    if (!isTheirs && custom == customs.end()) {
        return std::nullopt;
    }
    const QString purpose
        = custom == customs.end() ? QString() : u" "_s + custom->purpose.toString();
    return u"Programs use %1 themselves%2. As the shortcut of the ring it would not reach any of them any more."_s
        .arg(keys, purpose);
}

QString coexistence(const HotKeyConfig& config)
{
    if (config.isModifierOnly()) {
        return u"Shortcuts of the desktop that begin with %1 go on working."_s.arg(spoken(config));
    }
    return u"Shortcuts that the desktop or another program has taken stay theirs."_s;
}

QString levelRefusal()
{
    return u"AltGr only chooses which character a key types and cannot be part of a shortcut. Try one without it."_s;
}

} // namespace Tavik::ShortcutWords
