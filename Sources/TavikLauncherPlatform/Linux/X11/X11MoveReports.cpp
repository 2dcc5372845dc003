// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>
#include <TavikLauncherPlatform/Linux/X11/X11MoveReports.h>
#include <TavikLauncherPlatform/Linux/X11/X11WindowTree.h>

#include <algorithm>

namespace Tavik {

namespace {

/// The window's properties too, which the window server reads: a window has one mask for each
/// connection.
void listen(xcb_connection_t* connection, xcb_window_t window)
{
    const uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &mask);
}

} // namespace

X11MoveReports::X11MoveReports(const X11Connection& connection)
    : m_connection(connection)
{ }

void X11MoveReports::follow(xcb_window_t window)
{
    if (m_connection.isBroken()
        || std::ranges::find(m_followed, window, &Followed::window) != m_followed.end()) {
        return;
    }
    listen(m_connection.get(), window);
    m_followed.push_back({.window = window, .frame = XCB_NONE});
    findFrame(m_followed.back());
}

void X11MoveReports::handle(const xcb_generic_event_t& event)
{
    switch (event.response_type) {
    case XCB_CONFIGURE_NOTIFY:
        frameChanged(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
        break;
    case XCB_REPARENT_NOTIFY: {
        const auto& moved = reinterpret_cast<const xcb_reparent_notify_event_t&>(event);
        const auto found = std::ranges::find(m_followed, moved.window, &Followed::window);
        if (found != m_followed.end()) {
            findFrame(*found);
        }
        break;
    }
    case XCB_DESTROY_NOTIFY: {
        const auto& gone = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
        std::erase_if(m_followed,
                      [&](const Followed& followed) { return followed.window == gone.window; });
        break;
    }
    default:
        break;
    }
}

void X11MoveReports::frameChanged(const xcb_configure_notify_event_t& event)
{
    const auto found = std::ranges::find(m_followed, event.window, &Followed::frame);
    if (found == m_followed.end()) {
        return;
    }
    // Of another size the window is told by the server itself. A frame that is being put around a
    // window is not yet what the toolkit takes it for.
    const bool isOnlyMoved = event.width == found->frameWidth && event.height == found->frameHeight;
    found->frameWidth = event.width;
    found->frameHeight = event.height;
    if (isOnlyMoved) {
        report(found->window);
    }
}

void X11MoveReports::findFrame(Followed& followed) const
{
    xcb_connection_t* connection = m_connection.get();
    const xcb_window_t topLevel = X11WindowTree::topLevelOf(m_connection, followed.window);
    followed.frame = topLevel == followed.window ? xcb_window_t{XCB_NONE} : topLevel;
    if (followed.frame == XCB_NONE) {
        return;
    }
    listen(connection, followed.frame);
    const X11Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, followed.frame), nullptr));
    followed.frameWidth = size ? size->width : uint16_t{0};
    followed.frameHeight = size ? size->height : uint16_t{0};
}

void X11MoveReports::report(xcb_window_t window) const
{
    xcb_connection_t* connection = m_connection.get();
    const auto placeCookie
        = xcb_translate_coordinates(connection, window, m_connection.root(), 0, 0);
    const auto sizeCookie = xcb_get_geometry(connection, window);
    const X11Reply<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(connection, placeCookie, nullptr));
    const X11Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(connection, sizeCookie, nullptr));
    if (!place || !size) {
        return;
    }
    // The very message by which a window manager tells the place (ICCCM, 4.1.5).
    xcb_configure_notify_event_t message{};
    message.response_type = XCB_CONFIGURE_NOTIFY;
    message.event = window;
    message.window = window;
    message.x = place->dst_x;
    message.y = place->dst_y;
    message.width = size->width;
    message.height = size->height;
    sendEvent(connection, window, XCB_EVENT_MASK_STRUCTURE_NOTIFY, message);
    xcb_flush(connection);
}

} // namespace Tavik
