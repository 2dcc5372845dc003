// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

#include <utility>

#include <xcb/xcb.h>

namespace Tavik::X11StartupNotification {

/// The start-up notification protocol: who started a program shows that something is on its way
/// until it hears that it has come. Identifiers come from other programs.

/// True for one that may be repeated to others: of a sensible length, without blanks or controls.
[[nodiscard]] bool isValid(const QByteArray& startupId);

/// Says that `window` is what was waited for, so that it appears on the desktop where the user
/// asked for it. Nothing happens for an empty identifier; nor in the next.
void mark(xcb_connection_t* connection, xcb_window_t window, const QByteArray& startupId);

/// The words that a message tells, by their keys.
using Words = QList<std::pair<QByteArray, QByteArray>>;

/// Tells everybody who listens on the root window that a program is about to be started ("new"),
/// or more of it ("change").
void tell(xcb_connection_t* connection,
          xcb_window_t root,
          const QByteArray& kind,
          const QByteArray& startupId,
          const Words& words);

/// Tells them that nothing more is to be waited for.
void complete(xcb_connection_t* connection, xcb_window_t root, const QByteArray& startupId);

} // namespace Tavik::X11StartupNotification
