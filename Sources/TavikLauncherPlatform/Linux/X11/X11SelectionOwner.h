// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>

namespace Tavik {

/// Who owns a selection of the screen: that is how trays and compositors make themselves known.
class X11SelectionOwner
{
public:
    /// `connection` is one of our own, whose events are handed to `handle`, and must outlive this.
    X11SelectionOwner(const X11Connection& connection, xcb_atom_t selection);

    /// XCB_NONE without one.
    [[nodiscard]] xcb_window_t window() const { return m_window; }

    /// Any event of the connection. Returns whether the selection has another owner now.
    bool handle(const xcb_generic_event_t& event);

private:
    xcb_atom_t m_selection;
    int m_event = -1; ///< The number of the server's events about owners.
    xcb_window_t m_window = XCB_NONE;
};

} // namespace Tavik
