// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/KeyCodes.h>
#include <TavikLauncherPlatform/Linux/Session/KeySymbols.h>
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11KeyboardMap.h>

#include <algorithm>

namespace Tavik {

namespace {

constexpr std::size_t modifierCount = 8;

using KeysOfModifiers = std::array<QList<quint8>, modifierCount>;

KeysOfModifiers keysOfModifiers(const xcb_get_modifier_mapping_reply_t& reply)
{
    KeysOfModifiers keysOf;
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(&reply);
    const std::size_t perModifier = reply.keycodes_per_modifier;
    for (std::size_t i = 0; i < modifierCount; ++i) {
        for (std::size_t j = 0; j < perModifier; ++j) {
            if (const xcb_keycode_t code = codes[i * perModifier + j]; code != 0) {
                keysOf.at(i).append(code);
            }
        }
    }
    return keysOf;
}

/// The key symbols that are on the keys, key by key.
class Symbols
{
public:
    Symbols(const xcb_get_keyboard_mapping_reply_t& reply, int firstKey)
        : m_symbols(xcb_get_keyboard_mapping_keysyms(&reply))
        , m_count(xcb_get_keyboard_mapping_keysyms_length(&reply))
        , m_perKey(reply.keysyms_per_keycode)
        , m_firstKey(firstKey)
    { }

    [[nodiscard]] QList<quint32> operator[](std::size_t key) const
    {
        QList<quint32> result;
        const int first = (static_cast<int>(key) - m_firstKey) * m_perKey;
        for (int i = first; first >= 0 && i < std::min(first + m_perKey, m_count); ++i) {
            if (m_symbols[i] != XCB_NO_SYMBOL) {
                result.append(m_symbols[i]);
            }
        }
        return result;
    }

private:
    const xcb_keysym_t* m_symbols;
    int m_count;
    int m_perKey;
    int m_firstKey;
};

} // namespace

X11KeyboardMap X11KeyboardMap::read(xcb_connection_t* connection)
{
    const xcb_setup_t* setup = xcb_get_setup(connection);
    const auto modifiersCookie = xcb_get_modifier_mapping(connection);
    const auto keysCookie = xcb_get_keyboard_mapping(
        connection,
        setup->min_keycode,
        static_cast<uint8_t>(setup->max_keycode - setup->min_keycode + 1));
    const X11Reply<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(connection, modifiersCookie, nullptr));
    const X11Reply<xcb_get_keyboard_mapping_reply_t> keys(
        xcb_get_keyboard_mapping_reply(connection, keysCookie, nullptr));
    X11KeyboardMap map;
    if (!modifiers || !keys) {
        map.modifiers = X11GrabModifiers::fromMap({}, [](quint8) { return QList<quint32>(); });
        return map;
    }
    const KeysOfModifiers keysOf = keysOfModifiers(*modifiers);
    const Symbols symbols(*keys, setup->min_keycode);
    map.modifiers
        = X11GrabModifiers::fromMap(keysOf, [&symbols](quint8 key) { return symbols[key]; });
    for (std::size_t i = 0; i < modifierCount; ++i) {
        for (const quint8 key : keysOf.at(i)) {
            map.modifiersOfKey.at(key) |= static_cast<quint8>(1U << i);
            if (std::ranges::any_of(symbols[key], KeySymbols::choosesLevel)) {
                map.levels |= static_cast<quint16>(1U << i);
            }
        }
    }
    // A modifier that a shortcut may have is that first of all.
    map.levels &= static_cast<quint16>(~(map.modifiers.option | map.modifiers.command));
    for (std::size_t key = 0; key < keyCount; ++key) {
        map.hasSymbol.at(key) = !symbols[key].isEmpty();
    }
    return map;
}

std::optional<xcb_keycode_t> X11KeyboardMap::keyFor(quint16 virtualKeyCode) const
{
    const std::optional<quint16> evdev = KeyCodes::evdevCode(virtualKeyCode);
    const std::size_t key = evdev.value_or(keyCount) + std::size_t{KeyCodes::x11Offset};
    if (key >= keyCount || !hasSymbol.at(key)) {
        return std::nullopt;
    }
    return static_cast<xcb_keycode_t>(key);
}

} // namespace Tavik
