// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/KeyTranslation.h>

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace Tavik::KeyTranslation {

namespace {

constexpr int firstNamedKey = 0x01000000; // Below it a key is the character it stands for.

struct Key
{
    int key;
    quint16 code;
};

/// For events without a place on the keyboard: the keys as they lie on the standard layout.
constexpr auto standardLayout = std::to_array<Key>({
    // clang-format off
    {Qt::Key_A, 0}, {Qt::Key_S, 1}, {Qt::Key_D, 2}, {Qt::Key_F, 3}, {Qt::Key_H, 4}, {Qt::Key_G, 5},
    {Qt::Key_Z, 6}, {Qt::Key_X, 7}, {Qt::Key_C, 8}, {Qt::Key_V, 9}, {Qt::Key_B, 11},
    {Qt::Key_Q, 12}, {Qt::Key_W, 13}, {Qt::Key_E, 14}, {Qt::Key_R, 15}, {Qt::Key_Y, 16},
    {Qt::Key_T, 17}, {Qt::Key_1, 18}, {Qt::Key_2, 19}, {Qt::Key_3, 20}, {Qt::Key_4, 21},
    {Qt::Key_6, 22}, {Qt::Key_5, 23}, {Qt::Key_Equal, 24}, {Qt::Key_9, 25}, {Qt::Key_7, 26},
    {Qt::Key_Minus, 27}, {Qt::Key_8, 28}, {Qt::Key_0, 29}, {Qt::Key_BracketRight, 30},
    {Qt::Key_O, 31}, {Qt::Key_U, 32}, {Qt::Key_BracketLeft, 33}, {Qt::Key_I, 34}, {Qt::Key_P, 35},
    {Qt::Key_Return, 36}, {Qt::Key_L, 37}, {Qt::Key_J, 38}, {Qt::Key_Apostrophe, 39},
    {Qt::Key_K, 40}, {Qt::Key_Semicolon, 41}, {Qt::Key_Backslash, 42}, {Qt::Key_Comma, 43},
    {Qt::Key_Slash, 44}, {Qt::Key_N, 45}, {Qt::Key_M, 46}, {Qt::Key_Period, 47}, {Qt::Key_Tab, 48},
    {Qt::Key_Space, 49}, {Qt::Key_QuoteLeft, 50}, {Qt::Key_Backspace, 51}, {Qt::Key_Escape, 53},
    {Qt::Key_F17, 64}, {Qt::Key_Enter, 76}, {Qt::Key_F18, 79}, {Qt::Key_F19, 80},
    {Qt::Key_F20, 90}, {Qt::Key_F5, 96}, {Qt::Key_F6, 97}, {Qt::Key_F7, 98}, {Qt::Key_F3, 99},
    {Qt::Key_F8, 100}, {Qt::Key_F9, 101}, {Qt::Key_F11, 103}, {Qt::Key_F13, 105},
    {Qt::Key_F16, 106}, {Qt::Key_F14, 107}, {Qt::Key_F10, 109}, {Qt::Key_Menu, 110},
    {Qt::Key_F12, 111}, {Qt::Key_F15, 113}, {Qt::Key_Insert, 114}, {Qt::Key_Home, 115},
    {Qt::Key_PageUp, 116}, {Qt::Key_Delete, 117}, {Qt::Key_F4, 118}, {Qt::Key_End, 119},
    {Qt::Key_F2, 120}, {Qt::Key_PageDown, 121}, {Qt::Key_F1, 122}, {Qt::Key_Left, 123},
    {Qt::Key_Right, 124}, {Qt::Key_Down, 125}, {Qt::Key_Up, 126}, // clang-format on
});

/// Virtual key codes of the digits 1 to 9.
constexpr std::array<quint16, 9> digitRow{18, 19, 20, 21, 23, 22, 26, 28, 25};

struct Modifier
{
    int key;
    Qt::KeyboardModifier modifier;
    quint64 flag;
};

constexpr std::array<Modifier, 4> modifierTable{{
    {Qt::Key_Shift, Qt::ShiftModifier, ModifierFlags::shift},
    {Qt::Key_Control, Qt::ControlModifier, ModifierFlags::control},
    {Qt::Key_Alt, Qt::AltModifier, ModifierFlags::option},
    {Qt::Key_Meta, Qt::MetaModifier, ModifierFlags::command},
}};

constexpr std::array<int, 9> otherModifierKeys{Qt::Key_Super_L,
                                               Qt::Key_Super_R,
                                               Qt::Key_Hyper_L,
                                               Qt::Key_Hyper_R,
                                               Qt::Key_AltGr,
                                               Qt::Key_CapsLock,
                                               Qt::Key_NumLock,
                                               Qt::Key_ScrollLock,
                                               Qt::Key_Mode_switch};

KeyEvents::NativeKey nativeKey(const QKeyEvent& event)
{
    return {.scanCode = event.nativeScanCode(),
            .symbol = event.nativeVirtualKey(),
            .modifiers = event.nativeModifiers()};
}

const Modifier* modifierOf(const QKeyEvent& event)
{
    // The toolkit names the Super keys so, but reports them as the Meta modifier.
    const int key = event.key() == Qt::Key_Super_L || event.key() == Qt::Key_Super_R
        ? int{Qt::Key_Meta}
        : event.key();
    const auto* found = std::ranges::find(modifierTable, key, &Modifier::key);
    return found == modifierTable.end() ? nullptr : found;
}

} // namespace

QString charactersIgnoringModifiers(const QKeyEvent& event, const KeyEvents& keys)
{
    constexpr auto transforming = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if ((event.modifiers() & transforming) == 0) {
        return event.text();
    }
    // The event's text is no help now: Control turns it into a control character, and its key is a
    // Latin one even where the layout has none.
    if (const std::optional<QString> characters = keys.characters(nativeKey(event))) {
        return *characters;
    }
    if (event.key() >= firstNamedKey || event.key() < Qt::Key_Space) {
        return {};
    }
    const QString text
        = QString::fromUcs4(std::array{static_cast<char32_t>(event.key())}.data(), 1);
    return event.modifiers() & Qt::ShiftModifier ? text : text.toLower();
}

std::optional<quint16> keyCode(const QKeyEvent& event, const KeyEvents& keys)
{
    if (const std::optional<quint16> code = keys.keyCode(nativeKey(event))) {
        return code;
    }
    const auto* found = std::ranges::find(standardLayout, event.key(), &Key::key);
    return found == standardLayout.end() ? std::nullopt : std::optional(found->code);
}

std::optional<int> digitOfRow(quint16 keyCode)
{
    const auto* found = std::ranges::find(digitRow, keyCode);
    return found == digitRow.end()
        ? std::nullopt
        : std::optional(static_cast<int>(std::distance(digitRow.begin(), found)) + 1);
}

quint64 modifierFlags(Qt::KeyboardModifiers modifiers)
{
    quint64 flags = 0;
    for (const Modifier& entry : modifierTable) {
        flags |= modifiers.testFlag(entry.modifier) ? entry.flag : 0;
    }
    return flags;
}

bool isModifierKey(const QKeyEvent& event)
{
    return modifierOf(event)
        || std::ranges::find(otherModifierKeys, event.key()) != otherModifierKeys.end();
}

KeyEvents::LevelUse levelUse(const QKeyEvent& event, const KeyEvents& keys)
{
    using LevelUse = KeyEvents::LevelUse;
    const LevelUse use = keys.levelUse(nativeKey(event));
    if (use != LevelUse::none) {
        return use;
    }
    if (event.key() == Qt::Key_AltGr || event.key() == Qt::Key_Mode_switch) {
        return LevelUse::chooser;
    }
    return event.modifiers().testFlag(Qt::GroupSwitchModifier) ? LevelUse::chosen : LevelUse::none;
}

quint64 modifierFlagsAfter(const QKeyEvent& event)
{
    const quint64 flags = modifierFlags(event.modifiers());
    const Modifier* own = modifierOf(event);
    if (!own) {
        return flags;
    }
    return event.type() == QEvent::KeyPress ? flags | own->flag : flags & ~own->flag;
}

} // namespace Tavik::KeyTranslation
