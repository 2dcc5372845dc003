// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11Properties.h>
#include <TavikLauncherPlatform/Linux/X11/X11Tray.h>

#include <algorithm>
#include <string>

#include <xcb/xfixes.h>

namespace Tavik {

namespace {

constexpr uint8_t sentMark = 0x80; // An event that another client has made up.

} // namespace

X11Tray::X11Tray()
    : m_pump(
        m_connection, XCB_ATOM_NONE, [this](const xcb_generic_event_t& event) { handle(event); })
{
    if (m_connection.isBroken()) {
        return;
    }
    xcb_connection_t* connection = m_connection.get();
    m_selection
        = x11Atom(connection, "_NET_SYSTEM_TRAY_S" + std::to_string(m_connection.screenNumber()));
    m_colors = x11Atom(connection, "_NET_SYSTEM_TRAY_COLORS");
    follow();
    readManager();
}

void X11Tray::follow()
{
    xcb_connection_t* connection = m_connection.get();
    const auto* fixes = xcb_get_extension_data(connection, &xcb_xfixes_id);
    if (!fixes || !fixes->present) {
        return;
    }
    m_fixesEvent = fixes->first_event;
    // The extension must be greeted before it answers anything else.
    const X11Reply<xcb_xfixes_query_version_reply_t> version(xcb_xfixes_query_version_reply(
        connection, xcb_xfixes_query_version(connection, 5, 0), nullptr));
    xcb_xfixes_select_selection_input(connection,
                                      m_connection.root(),
                                      m_selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                                          | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                                          | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
}

void X11Tray::handle(const xcb_generic_event_t& event)
{
    const xcb_window_t managerBefore = m_manager;
    const std::optional<QColor> colorBefore = m_symbolColor;
    const auto type = static_cast<uint8_t>(event.response_type & ~sentMark);
    if (m_fixesEvent != 0 && type == m_fixesEvent + XCB_XFIXES_SELECTION_NOTIFY) {
        readManager();
    } else if (type == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.window == m_manager && change.atom == m_colors) {
            readColor();
            m_pump.drainSoon();
        }
    }
    if ((m_manager != managerBefore || m_symbolColor != colorBefore) && onChanged) {
        onChanged();
    }
}

void X11Tray::readManager()
{
    xcb_connection_t* connection = m_connection.get();
    const X11Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, m_selection), nullptr));
    m_manager = owner ? owner->owner : xcb_window_t{XCB_NONE};
    if (m_manager != XCB_NONE) {
        constexpr uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(connection, m_manager, XCB_CW_EVENT_MASK, &events);
    }
    readColor();
    m_pump.drainSoon();
}

void X11Tray::readColor()
{
    m_symbolColor.reset();
    if (m_manager == XCB_NONE) {
        return;
    }
    // Red, green and blue, 16 bits each, of the symbols; then those of errors and the like.
    const QList<uint32_t> numbers = X11Properties::numbers(m_connection.get(), m_manager, m_colors);
    constexpr uint32_t brightest = 0xffff;
    if (numbers.size() >= 3 && std::ranges::max(numbers.first(3)) <= brightest) {
        const auto channel = [&numbers](qsizetype i) {
            return static_cast<int>(numbers.at(i) >> 8);
        };
        m_symbolColor = QColor(channel(0), channel(1), channel(2));
    }
}

} // namespace Tavik
