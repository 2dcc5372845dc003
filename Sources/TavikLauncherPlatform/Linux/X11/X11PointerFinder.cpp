// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11PointerFinder.h>
#include <TavikLauncherPlatform/Linux/X11/X11Properties.h>
#include <TavikLauncherPlatform/Linux/X11/X11WindowTree.h>

#include <array>
#include <utility>

namespace Tavik {

namespace {

/// Beside a build GNOME takes 0.4 to 0.7 s. Only where it keeps the pointer to itself, as while a
/// button is held, does it tell nothing.
constexpr double longestSearch = 1.0;
constexpr uint8_t transparentDepth = 32;

xcb_visualid_t transparentVisual(const X11Connection& connection)
{
    if (connection.isBroken()) {
        return XCB_NONE;
    }
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection.get()));
    for (int number = connection.screenNumber(); number > 0 && screens.rem > 1; --number) {
        xcb_screen_next(&screens);
    }
    for (auto depths = xcb_screen_allowed_depths_iterator(screens.data); depths.rem > 0;
         xcb_depth_next(&depths)) {
        if (depths.data->depth == transparentDepth && depths.data->visuals_len > 0) {
            return xcb_depth_visuals_iterator(depths.data).data->visual_id;
        }
    }
    return XCB_NONE;
}

} // namespace

X11PointerFinder::X11PointerFinder(const X11Connection& connection,
                                   const X11Atoms& atoms,
                                   X11EventPump& pump,
                                   MainQueue& mainQueue)
    : m_connection(connection)
    , m_atoms(atoms)
    , m_pump(pump)
    , m_mainQueue(mainQueue)
    , m_visual(transparentVisual(connection))
{
    forget(); // A server that has just begun takes the pointer to be in the middle.
}

/// The server is told of every motion over the window that has the focus. Over another one it may
/// be wrong: once a window has gone from under the pointer it takes whatever else lies there,
/// though windows of the desktop may be above that.
std::optional<X11PointerFinder::Place> X11PointerFinder::ask() const
{
    xcb_connection_t* connection = m_connection.get();
    const auto cookie = xcb_query_pointer(connection, m_connection.root());
    X11PropertyQuery active(connection, m_connection.root(), m_atoms[X11Atom::netActiveWindow]);
    const X11Reply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(connection, cookie, nullptr));
    const xcb_window_t focused = active.firstWindow();
    if (!pointer) {
        return std::nullopt;
    }
    const QPoint pixel(pointer->root_x, pointer->root_y);
    const bool isOverFocused
        = focused != XCB_NONE && X11WindowTree::topLevelOf(m_connection, focused) == pointer->child;
    m_pump.drainSoon();
    return Place{.pixel = pixel, .isSure = isOverFocused && pixel != m_oldPlace};
}

void X11PointerFinder::search(std::function<void()> done)
{
    end();
    if (m_visual == XCB_NONE) {
        done();
        return;
    }
    m_done = std::move(done);
    xcb_connection_t* connection = m_connection.get();
    const xcb_window_t root = m_connection.root();
    const X11Reply<xcb_get_geometry_reply_t> all(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, root), nullptr));
    m_colormap = xcb_generate_id(connection);
    xcb_create_colormap(connection, XCB_COLORMAP_ALLOC_NONE, m_colormap, root, m_visual);
    m_window = xcb_generate_id(connection);
    constexpr uint32_t clear = 0;
    constexpr uint32_t isUnmanaged = 1;
    const std::array values{
        clear, clear, isUnmanaged, uint32_t{XCB_EVENT_MASK_POINTER_MOTION}, m_colormap};
    xcb_create_window(connection,
                      transparentDepth,
                      m_window,
                      root,
                      0,
                      0,
                      all ? all->width : 1,
                      all ? all->height : 1,
                      0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      m_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT
                          | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
                      values.data());
    xcb_map_window(connection, m_window);
    xcb_flush(connection);
    m_pump.drainSoon();
    m_limitTask = m_mainQueue.after(longestSearch, [this] { finish(); });
}

void X11PointerFinder::handle(const xcb_generic_event_t& event)
{
    // That the pointer has entered is told at once, with the old place. A motion is told of though
    // nothing has moved.
    if (isSearching() && event.response_type == XCB_MOTION_NOTIFY
        && reinterpret_cast<const xcb_motion_notify_event_t&>(event).event == m_window) {
        finish();
    }
}

void X11PointerFinder::finish()
{
    const std::function<void()> done = std::exchange(m_done, {});
    end();
    done();
}

void X11PointerFinder::end()
{
    m_limitTask.cancel();
    m_done = nullptr;
    if (isSearching()) {
        xcb_destroy_window(m_connection.get(), std::exchange(m_window, XCB_NONE));
        xcb_free_colormap(m_connection.get(), std::exchange(m_colormap, XCB_NONE));
        xcb_flush(m_connection.get());
    }
}

void X11PointerFinder::forget()
{
    const std::optional<Place> place = ask();
    m_oldPlace = place ? std::optional(place->pixel) : std::nullopt;
}

} // namespace Tavik
