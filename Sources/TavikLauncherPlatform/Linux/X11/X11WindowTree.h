// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>

namespace Tavik::X11WindowTree {

/// Which window is inside of which other, and which above which. Each question waits for the
/// server; what it does not know is inside of nothing.

/// What a focus may be instead of a program's window: none, the root, or wherever the pointer is.
[[nodiscard]] bool isNowhere(const X11Connection& connection, xcb_window_t focus);

/// True for `ancestor` itself too.
[[nodiscard]] bool
isWithin(const X11Connection& connection, xcb_window_t window, xcb_window_t ancestor);

/// The window right below the root that `window` is inside of: the window manager's frame around
/// it. `window` itself where there is none.
[[nodiscard]] xcb_window_t topLevelOf(const X11Connection& connection, xcb_window_t window);

enum class Blending {
    off,
    on, ///< A window with an alpha channel lets through what is below.
};
/// True when other windows leave nothing of `window` to be seen.
[[nodiscard]] bool
isCovered(const X11Connection& connection, xcb_window_t window, Blending blending);

} // namespace Tavik::X11WindowTree
