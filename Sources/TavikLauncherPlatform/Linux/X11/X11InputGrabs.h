// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>

namespace Tavik {

/// Tells whether another client has grabbed keyboard and pointer, and disturbs nobody by asking.
class X11InputGrabs
{
public:
    /// `connection` is the toolkit's: what our own windows have grabbed is not another's. It must
    /// outlive this.
    explicit X11InputGrabs(xcb_connection_t* connection);

    /// Whether both are another client's; one round trip.
    [[nodiscard]] bool areHeldElsewhere() const;

private:
    xcb_connection_t* m_connection;
    xcb_window_t m_window; ///< Never shown.
};

} // namespace Tavik
