// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11EventPump.h>
#include <TavikLauncherPlatform/Linux/X11/X11SelectionOwner.h>

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

    [[nodiscard]] bool isPresent() const { return m_manager.window() != XCB_NONE; }
    [[nodiscard]] std::optional<QColor> symbolColor() const { return m_symbolColor; }

    /// Called when an answer has changed.
    std::function<void()> onChanged;

private:
    void handle(const xcb_generic_event_t& event);
    void followManager();
    void readColor();

    X11Connection m_connection;
    xcb_atom_t m_colors;
    X11SelectionOwner m_manager;
    X11EventPump m_pump;
    std::optional<QColor> m_symbolColor;
};

} // namespace Tavik
