// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11SelectionOwner.h>

#include <utility>

#include <xcb/xfixes.h>

namespace Tavik {

X11SelectionOwner::X11SelectionOwner(const X11Connection& connection, xcb_atom_t selection)
    : m_selection(selection)
{
    xcb_connection_t* server = connection.get();
    const auto* fixes = xcb_get_extension_data(server, &xcb_xfixes_id);
    if (fixes && fixes->present) {
        m_event = fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY;
        // The extension must be greeted before it answers anything else.
        const X11Reply<xcb_xfixes_query_version_reply_t> version(xcb_xfixes_query_version_reply(
            server, xcb_xfixes_query_version(server, 5, 0), nullptr));
        xcb_xfixes_select_selection_input(
            server,
            connection.root(),
            selection,
            XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    }
    const X11Reply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(server, xcb_get_selection_owner(server, selection), nullptr));
    m_window = owner ? owner->owner : xcb_window_t{XCB_NONE};
}

bool X11SelectionOwner::handle(const xcb_generic_event_t& event)
{
    // Only the server's own word: what another client has made up is marked in its type.
    if (event.response_type != m_event) {
        return false;
    }
    const auto& change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
    return change.selection == m_selection && std::exchange(m_window, change.owner) != change.owner;
}

} // namespace Tavik
