// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11WindowTree.h>

#include <QRegion>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace Tavik::X11WindowTree {

namespace {

constexpr int deepestTree = 32;
constexpr uint8_t opaqueDepth = 24;

using TreeReply = X11Reply<xcb_query_tree_reply_t>;

TreeReply treeAt(const X11Connection& connection, xcb_window_t window)
{
    return TreeReply(
        xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), window), nullptr));
}

xcb_window_t parentOf(const X11Connection& connection, xcb_window_t window)
{
    const TreeReply tree = treeAt(connection, window);
    return tree ? tree->parent : xcb_window_t{XCB_NONE};
}

std::vector<xcb_window_t> windowsAbove(const X11Connection& connection, xcb_window_t topLevel)
{
    const TreeReply tree = treeAt(connection, connection.root());
    if (!tree) {
        return {};
    }
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    const xcb_window_t* end = children + xcb_query_tree_children_length(tree.get());
    const xcb_window_t* self = std::find(children, end, topLevel);
    if (self == end) {
        return {};
    }
    // A window of the server's own is the overlay that a compositor paints everything into.
    const uint32_t ownMask = ~xcb_get_setup(connection.get())->resource_id_mask;
    std::vector<xcb_window_t> above;
    std::copy_if(self + 1, end, std::back_inserter(above), [ownMask](xcb_window_t window) {
        return (window & ownMask) != 0;
    });
    return above;
}

} // namespace

bool isNowhere(const X11Connection& connection, xcb_window_t focus)
{
    return focus == XCB_NONE || focus == XCB_INPUT_FOCUS_POINTER_ROOT || focus == connection.root();
}

bool isWithin(const X11Connection& connection, xcb_window_t window, xcb_window_t ancestor)
{
    for (int depth = 0; depth < deepestTree && !isNowhere(connection, window); ++depth) {
        if (window == ancestor) {
            return true;
        }
        window = parentOf(connection, window);
    }
    return false;
}

xcb_window_t topLevelOf(const X11Connection& connection, xcb_window_t window)
{
    for (int depth = 0; depth < deepestTree; ++depth) {
        const xcb_window_t parent = parentOf(connection, window);
        if (parent == connection.root() || parent == XCB_NONE) {
            break;
        }
        window = parent;
    }
    return window;
}

bool isCovered(const X11Connection& connection, xcb_window_t window, Blending blending)
{
    const xcb_window_t topLevel = topLevelOf(connection, window);
    const std::vector<xcb_window_t> above = windowsAbove(connection, topLevel);
    xcb_connection_t* server = connection.get();
    const auto ownCookie = xcb_get_geometry(server, topLevel);
    std::vector<std::pair<xcb_get_window_attributes_cookie_t, xcb_get_geometry_cookie_t>> cookies;
    for (const xcb_window_t other : above) {
        cookies.emplace_back(xcb_get_window_attributes(server, other),
                             xcb_get_geometry(server, other));
    }
    const X11Reply<xcb_get_geometry_reply_t> own(
        xcb_get_geometry_reply(server, ownCookie, nullptr));
    QRegion visible = own ? QRegion(own->x, own->y, own->width, own->height) : QRegion();
    for (const auto& [attributesCookie, geometryCookie] : cookies) {
        const X11Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(server, attributesCookie, nullptr));
        const X11Reply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(server, geometryCookie, nullptr));
        if (attributes && geometry && attributes->map_state == XCB_MAP_STATE_VIEWABLE
            && attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT
            && (blending == Blending::off || geometry->depth <= opaqueDepth)) {
            visible -= QRect(geometry->x, geometry->y, geometry->width, geometry->height);
        }
    }
    return visible.isEmpty();
}

} // namespace Tavik::X11WindowTree
