// SPDX-License-Identifier: MIT
#include "KeyPresser.h"

#include <ranges>
#include <string>

#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon.h>

namespace Tavik::Benchmarks {

KeyPresser::KeyPresser(xcb_connection_t* connection)
    : m_connection(connection)
    , m_symbols(xcb_key_symbols_alloc(connection), &xcb_key_symbols_free)
{ }

std::optional<KeyPresser::Chord> KeyPresser::chord(std::string_view text) const
{
    Chord result;
    while (true) {
        const auto plus = text.find('+');
        const auto key = keycode(text.substr(0, plus));
        if (!key) {
            return std::nullopt;
        }
        if (plus == std::string_view::npos) {
            result.key = *key;
            return result;
        }
        result.modifiers.push_back(*key);
        text.remove_prefix(plus + 1);
    }
}

void KeyPresser::holdModifiers(const Chord& chord)
{
    for (const auto modifier : chord.modifiers) {
        fake(XCB_KEY_PRESS, modifier);
    }
    xcb_flush(m_connection);
}

void KeyPresser::pressKey(const Chord& chord)
{
    fake(XCB_KEY_PRESS, chord.key);
    xcb_flush(m_connection);
}

void KeyPresser::release(const Chord& chord)
{
    fake(XCB_KEY_RELEASE, chord.key);
    for (const auto modifier : std::ranges::reverse_view(chord.modifiers)) {
        fake(XCB_KEY_RELEASE, modifier);
    }
    xcb_flush(m_connection);
}

void KeyPresser::strike(const Chord& chord)
{
    holdModifiers(chord);
    pressKey(chord);
    release(chord);
}

std::optional<xcb_keycode_t> KeyPresser::keycode(std::string_view name) const
{
    std::string keysymName(name);
    if (name == "control" || name == "shift" || name == "alt" || name == "super") {
        keysymName[0] = static_cast<char>(name[0] - 'a' + 'A');
        keysymName += "_L";
    }
    const auto keysym = xkb_keysym_from_name(keysymName.c_str(), XKB_KEYSYM_NO_FLAGS);
    const std::unique_ptr<xcb_keycode_t, decltype(&std::free)> codes(
        xcb_key_symbols_get_keycode(m_symbols.get(), keysym), &std::free);
    if (keysym == XKB_KEY_NoSymbol || !codes || *codes == XCB_NO_SYMBOL) {
        return std::nullopt;
    }
    return *codes;
}

void KeyPresser::fake(std::uint8_t type, xcb_keycode_t key)
{
    xcb_test_fake_input(m_connection, type, key, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
}

} // namespace Tavik::Benchmarks
