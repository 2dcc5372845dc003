// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11Properties.h>
#include <TavikLauncherPlatform/Linux/X11/X11Tray.h>

#include <algorithm>
#include <string>

namespace Tavik {

X11Tray::X11Tray()
    : m_colors(x11Atom(m_connection.get(), "_NET_SYSTEM_TRAY_COLORS"))
    , m_manager(m_connection,
                x11Atom(m_connection.get(),
                        "_NET_SYSTEM_TRAY_S" + std::to_string(m_connection.screenNumber())))
    , m_pump(
          m_connection, XCB_ATOM_NONE, [this](const xcb_generic_event_t& event) { handle(event); })
{
    followManager();
    m_pump.drainSoon();
}

void X11Tray::handle(const xcb_generic_event_t& event)
{
    const std::optional<QColor> colorBefore = m_symbolColor;
    const bool isOther = m_manager.handle(event);
    if (isOther) {
        followManager();
    } else if (x11EventType(event.response_type) == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.window == m_manager.window() && change.atom == m_colors) {
            readColor();
        }
    }
    if ((isOther || m_symbolColor != colorBefore) && onChanged) {
        onChanged();
    }
}

void X11Tray::followManager()
{
    if (isPresent()) {
        constexpr uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(
            m_connection.get(), m_manager.window(), XCB_CW_EVENT_MASK, &events);
    }
    readColor();
}

void X11Tray::readColor()
{
    m_symbolColor.reset();
    if (!isPresent()) {
        return;
    }
    // Red, green and blue, 16 bits each, of the symbols; then those of errors and the like.
    const QList<uint32_t> numbers
        = X11Properties::numbers(m_connection.get(), m_manager.window(), m_colors);
    constexpr uint32_t brightest = 0xffff;
    if (numbers.size() >= 3 && std::ranges::max(numbers.first(3)) <= brightest) {
        const auto channel = [&numbers](qsizetype i) {
            return static_cast<int>(numbers.at(i) >> 8);
        };
        m_symbolColor = QColor(channel(0), channel(1), channel(2));
    }
}

} // namespace Tavik
