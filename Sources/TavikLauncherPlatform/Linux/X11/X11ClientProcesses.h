// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QtGlobal>

#include <deque>

#include <xcb/res.h>

namespace Tavik {

/// Asks the server, which knows its clients itself, what processes some windows come from. The
/// answers can be fetched one by one, in the order of the windows, after other requests.
class X11ClientProcesses
{
public:
    X11ClientProcesses(xcb_connection_t* connection, const QList<xcb_window_t>& windows);
    ~X11ClientProcesses();
    Q_DISABLE_COPY_MOVE(X11ClientProcesses)

    /// 0 where the server cannot tell.
    [[nodiscard]] qint64 next();

private:
    xcb_connection_t* m_connection;
    std::deque<xcb_res_query_client_ids_cookie_t> m_cookies;
};

} // namespace Tavik
