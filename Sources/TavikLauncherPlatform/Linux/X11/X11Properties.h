// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/WindowSource.h>
#include <TavikLauncherPlatform/Linux/X11/X11Connection.h>

#include <QList>
#include <QRect>

#include <span>
#include <vector>

namespace Tavik {

/// What a window's properties say, checked in type and bounded in length.
struct X11WindowFacts : WindowSource::Facts
{
    QMargins strut; ///< What the window reserves at the edges of the desktop, as device pixels.
    QMargins strutStart; ///< Where along each edge the reserved part begins …
    QMargins strutEnd; ///< … and ends, inclusive.

    bool operator==(const X11WindowFacts&) const = default;
};

/// A property that has been asked for. Several may be under way at once, so that they cost one
/// round trip together.
class X11PropertyQuery
{
public:
    /// Asks for numbers of whatever type; at most 64.
    X11PropertyQuery(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property);
    ~X11PropertyQuery();
    Q_DISABLE_COPY_MOVE(X11PropertyQuery)

    /// The answer, waited for; empty when there is no such property or window. To be called once.
    [[nodiscard]] QList<uint32_t> numbers();
    /// The first of them as a window, or XCB_NONE; likewise.
    [[nodiscard]] xcb_window_t firstWindow();

private:
    [[nodiscard]] X11Reply<xcb_get_property_reply_t> answer();

    xcb_connection_t* m_connection;
    xcb_get_property_cookie_t m_cookie;
};

/// Reads properties of windows that belong to other programs.
namespace X11Properties {

/// True when a change of `property` can change a window's facts.
[[nodiscard]] bool isFact(const X11Atoms& atoms, xcb_atom_t property);

/// The facts of `windows`, in their order, in one round trip.
[[nodiscard]] QList<X11WindowFacts>
facts(xcb_connection_t* connection, const X11Atoms& atoms, const QList<xcb_window_t>& windows);

/// A property of numbers of whatever type; at most 64.
[[nodiscard]] QList<uint32_t>
numbers(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property);
/// A property that lists windows; at most 1,024.
[[nodiscard]] QList<xcb_window_t>
windowList(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property);
/// The first window of such a property, or XCB_NONE.
[[nodiscard]] xcb_window_t
firstWindow(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property);

/// The name that the window manager gives itself; empty where it gives none. Two round trips.
[[nodiscard]] QByteArray
windowManagerName(xcb_connection_t* connection, xcb_window_t root, const X11Atoms& atoms);

/// The desktop of a window that is on all of them.
constexpr uint32_t allDesktops = 0xffffffff;

/// Whether `window` is on the desktop that is shown, or on all. Some window managers keep windows
/// of other desktops mapped. One round trip.
[[nodiscard]] bool isOnCurrentDesktop(xcb_connection_t* connection,
                                      xcb_window_t root,
                                      const X11Atoms& atoms,
                                      xcb_window_t window);

/// `screen` without what the struts of panels and docks reserve in it, on a desktop of this size.
[[nodiscard]] QRect
availableArea(const QRect& screen, const QSize& desktop, const QList<X11WindowFacts>& windows);

} // namespace X11Properties

} // namespace Tavik
