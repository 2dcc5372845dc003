// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncher/Settings/ShortcutWords.h>
#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/Texts.h>

#include <algorithm>
#include <array>

namespace Tavik::ShortcutWords {

using namespace Qt::StringLiterals;
using namespace ModifierFlags;

namespace {

struct ModifierName
{
    quint64 flag;
    const char* name;
};

constexpr std::array modifierNames{
    ModifierName{control, QT_TRANSLATE_NOOP("Tavik::Texts", "Control")},
    ModifierName{option, QT_TRANSLATE_NOOP("Tavik::Texts", "Alt")},
    ModifierName{shift, QT_TRANSLATE_NOOP("Tavik::Texts", "Shift")},
    ModifierName{command, QT_TRANSLATE_NOOP("Tavik::Texts", "Super")}};

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
    const char* purpose;
};

constexpr std::array customs{
    Custom{control, u"A", QT_TRANSLATE_NOOP("Tavik::Texts", "to select all")},
    Custom{control, u"C", QT_TRANSLATE_NOOP("Tavik::Texts", "to copy")},
    Custom{control, u"F", QT_TRANSLATE_NOOP("Tavik::Texts", "to find")},
    Custom{control, u"S", QT_TRANSLATE_NOOP("Tavik::Texts", "to save")},
    Custom{control, u"V", QT_TRANSLATE_NOOP("Tavik::Texts", "to paste")},
    Custom{control, u"X", QT_TRANSLATE_NOOP("Tavik::Texts", "to cut")},
    Custom{control, u"Z", QT_TRANSLATE_NOOP("Tavik::Texts", "to undo")},
    Custom{control | shift, u"Z", QT_TRANSLATE_NOOP("Tavik::Texts", "to redo")},
    Custom{option, u"F4", QT_TRANSLATE_NOOP("Tavik::Texts", "to close a window")}};

/// The combinations of modifiers that programs share out among themselves.
constexpr std::array<quint64, 4> programsOwn{control, control | shift, option, shift};

/// What is pressed, key by key.
QStringList keyNames(const HotKeyConfig& config)
{
    QStringList keys;
    for (const auto& [flag, name] : modifierNames) {
        if ((config.modifierFlagsRaw & flag) != 0) {
            keys.append(Texts::tr(name));
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
    return keyNames(config).replaceInStrings(Texts::tr("Control"), Texts::tr("Ctrl"));
}

QString keys(const HotKeyConfig& config)
{
    return keycaps(config).join(u" + "_s);
}

QString description(const HotKeyConfig& config)
{
    return (config.isModifierOnly() ? Texts::tr("Hold %1 to show the ring, let go to dismiss it")
                                    : Texts::tr("Press %1 to show or dismiss the ring"))
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
        return Texts::tr("%1 types a character. As the shortcut of the ring it could not be typed "
                         "in any program any more.")
            .arg(keys);
    }
    const bool isTheirs = std::ranges::find(programsOwn, held) != programsOwn.end()
        && (use == KeyUse::types || use == KeyUse::edits);
    if (!isTheirs && custom == customs.end()) {
        return std::nullopt;
    }
    const QString purpose
        = custom == customs.end() ? QString() : u" "_s + Texts::tr(custom->purpose);
    return Texts::tr("Programs use %1 themselves%2. As the shortcut of the ring it would not reach "
                     "any of them any more.")
        .arg(keys, purpose);
}

QString coexistence(const HotKeyConfig& config)
{
    if (config.isModifierOnly()) {
        return Texts::tr("Shortcuts of the desktop that begin with %1 go on working.")
            .arg(spoken(config));
    }
    return Texts::tr("Shortcuts that the desktop or another program has taken stay theirs.");
}

QString lost(const HotKeyConfig& config)
{
    return Texts::tr("%1 cannot be had.").arg(keys(config));
}

QString whyLost()
{
    return Texts::tr("Another application may use it, or the keyboard has changed. Choose another "
                     "shortcut in the settings.");
}

QString levelRefusal()
{
    return Texts::tr("AltGr only chooses which character a key types and cannot be part of a "
                     "shortcut. Try one without it.");
}

} // namespace Tavik::ShortcutWords
