// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

/// Takes F10 for the whole display, as long as the connection lasts. Its code, or 0 when another
/// program has it.
[[nodiscard]] xcb_keycode_t takeF10(xcb_connection_t* connection);
