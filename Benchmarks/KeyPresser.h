// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

namespace Tavik::Benchmarks {

/// Presses keys on the real keyboard path of the X server, as a user's hand would.
class KeyPresser
{
public:
    struct Chord
    {
        std::vector<xcb_keycode_t> modifiers;
        xcb_keycode_t key = 0;
    };

    explicit KeyPresser(xcb_connection_t* connection);

    /// Reads "control+alt+space", "F10" or "b"; nothing when a name is unknown or has no key.
    [[nodiscard]] std::optional<Chord> chord(std::string_view text) const;

    /// Holds the modifiers down, so that what follows is one key event.
    void holdModifiers(const Chord& chord);
    /// Presses the key and sends it off at once.
    void pressKey(const Chord& chord);
    /// Lets the key and the modifiers go.
    void release(const Chord& chord);
    /// All three of the above.
    void strike(const Chord& chord);

private:
    [[nodiscard]] std::optional<xcb_keycode_t> keycode(std::string_view name) const;
    void fake(std::uint8_t type, xcb_keycode_t key);

    xcb_connection_t* m_connection;
    std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)> m_symbols;
};

} // namespace Tavik::Benchmarks
