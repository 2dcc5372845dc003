// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11ClientProcesses.h>
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>

namespace Tavik {

X11ClientProcesses::X11ClientProcesses(xcb_connection_t* connection,
                                       const QList<xcb_window_t>& windows)
    : m_connection(connection)
{
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_res_id);
    if (!extension || !extension->present) {
        return;
    }
    for (const xcb_window_t window : windows) {
        const xcb_res_client_id_spec_t wanted{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        m_cookies.push_back(xcb_res_query_client_ids(connection, 1, &wanted));
    }
}

X11ClientProcesses::~X11ClientProcesses()
{
    for (const auto& cookie : m_cookies) {
        xcb_discard_reply(m_connection, cookie.sequence);
    }
}

qint64 X11ClientProcesses::next()
{
    if (m_cookies.empty()) {
        return 0;
    }
    const X11Reply<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(m_connection, m_cookies.front(), nullptr));
    m_cookies.pop_front();
    if (!reply) {
        return 0;
    }
    const xcb_res_client_id_value_iterator_t ids
        = xcb_res_query_client_ids_ids_iterator(reply.get());
    const bool hasProcess = ids.rem > 0 && xcb_res_client_id_value_value_length(ids.data) > 0;
    return hasProcess ? *xcb_res_client_id_value_value(ids.data) : 0;
}

} // namespace Tavik
