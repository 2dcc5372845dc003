// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11EventPump.h>

#include <QColor>

#include <functional>
#include <optional>

namespace Tavik {

/// The tray of an X11 panel that takes other programs' small windows in, and the colour it asks
/// them to paint their symbols in.
class X11Tray
{
public:
    X11Tray();

    [[nodiscard]] bool isPresent() const { return m_manager != XCB_NONE; }
    [[nodiscard]] std::optional<QColor> symbolColor() const { return m_symbolColor; }

    /// Called when an answer has changed.
    std::function<void()> onChanged;

private:
    void handle(const xcb_generic_event_t& event);
    void follow();
    void readManager();
    void readColor();

    X11Connection m_connection;
    X11EventPump m_pump;
    xcb_atom_t m_selection = XCB_ATOM_NONE; ///< Owned by the tray of the screen.
    xcb_atom_t m_colors = XCB_ATOM_NONE;
    xcb_window_t m_manager = XCB_NONE;
    std::optional<QColor> m_symbolColor;
    uint8_t m_fixesEvent = 0;
};

} // namespace Tavik
