// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

#include <xcb/xcb.h>

namespace Tavik {

/// Whether the server behind the toolkit's connection speaks for a Wayland compositor, and so hears
/// the keyboard only while one of its own windows has it.
[[nodiscard]] bool x11IsXwayland(xcb_connection_t* toolkit);

/// What keeps a program from watching the keyboard on that server, as a sentence for people; absent
/// when nothing does. A server asks nobody: whoever is connected may watch, provided that it has
/// one of the extensions which tell about it.
[[nodiscard]] std::optional<QString> x11KeyboardLimit(xcb_connection_t* toolkit);

} // namespace Tavik
