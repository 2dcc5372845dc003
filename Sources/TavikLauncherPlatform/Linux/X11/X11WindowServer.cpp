// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11Properties.h>
#include <TavikLauncherPlatform/Linux/X11/X11StartupNotification.h>
#include <TavikLauncherPlatform/Linux/X11/X11WindowServer.h>

#include <QRegion>

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

#include <xcb/xfixes.h>

namespace Tavik {

namespace {

constexpr uint32_t allDesktops = 0xffffffff;
/// EWMH: the request comes from a pager or the like, so it is the user's own wish.
constexpr uint32_t sourcePager = 2;
/// How long a window manager may take to focus another window after ours has gone.
constexpr double returnSeconds = 0.1;
constexpr int withdrawalAttempts = 40;
constexpr std::chrono::milliseconds withdrawalInterval{1};
constexpr uint32_t withdrawnState = 0;
constexpr int deepestTree = 32;
constexpr uint8_t opaqueDepth = 24;

bool isNowhere(xcb_window_t focus, xcb_window_t root)
{
    return focus == XCB_NONE || focus == XCB_INPUT_FOCUS_POINTER_ROOT || focus == root;
}

} // namespace

X11WindowServer::X11WindowServer(xcb_connection_t* toolkit, MainQueue& mainQueue)
    : m_toolkit(toolkit)
    , m_mainQueue(mainQueue)
    , m_atoms(m_connection.get(), m_connection.screenNumber())
    , m_moves(m_connection)
    , m_pump(m_connection, m_atoms[X11Atom::tavikClock], [this](const xcb_generic_event_t& event) {
        handle(event);
    })
{
    if (!m_connection.isBroken()) {
        followCompositor();
    }
}

void X11WindowServer::preparePanel(WId window)
{
    const auto panel = static_cast<xcb_window_t>(window);
    awaitWithdrawal(panel);
    // The window manager forgets all this when the window goes, and the toolkit adds its own states
    // to what it finds. "Sticky" says the same as the desktop number, which some take for the last
    // desktop.
    const std::array<xcb_atom_t, 4> states{m_atoms[X11Atom::netWmStateAbove],
                                           m_atoms[X11Atom::netWmStateSkipTaskbar],
                                           m_atoms[X11Atom::netWmStateSkipPager],
                                           m_atoms[X11Atom::netWmStateSticky]};
    xcb_change_property(m_toolkit,
                        XCB_PROP_MODE_REPLACE,
                        panel,
                        m_atoms[X11Atom::netWmState],
                        XCB_ATOM_ATOM,
                        32,
                        states.size(),
                        states.data());
    xcb_change_property(m_toolkit,
                        XCB_PROP_MODE_REPLACE,
                        panel,
                        m_atoms[X11Atom::netWmDesktop],
                        XCB_ATOM_CARDINAL,
                        32,
                        1,
                        &allDesktops);
    xcb_flush(m_toolkit);
    m_returnTask.cancel();
    const xcb_window_t focus = focusedWindow(m_connection.get());
    if (!isWithin(focus, panel)) {
        m_previousFocus = focus;
        m_previousActive = X11Properties::firstWindow(
            m_connection.get(), m_connection.root(), m_atoms[X11Atom::netActiveWindow]);
    }
    m_pump.drainSoon();
}

void X11WindowServer::setSkipsTaskbar(WId window, bool skips)
{
    const auto target = static_cast<xcb_window_t>(window);
    const std::array marks{m_atoms[X11Atom::netWmStateSkipTaskbar],
                           m_atoms[X11Atom::netWmStateSkipPager]};
    // Before a window is mapped its states are the program's to write, afterwards only the window
    // manager's (EWMH).
    QList<uint32_t> states
        = X11Properties::numbers(m_connection.get(), target, m_atoms[X11Atom::netWmState]);
    for (const xcb_atom_t mark : marks) {
        states.removeAll(mark);
        if (skips) {
            states.append(mark);
        }
    }
    xcb_change_property(m_toolkit,
                        XCB_PROP_MODE_REPLACE,
                        target,
                        m_atoms[X11Atom::netWmState],
                        XCB_ATOM_ATOM,
                        32,
                        static_cast<uint32_t>(states.size()),
                        states.constData());
    constexpr uint32_t remove = 0;
    constexpr uint32_t add = 1;
    constexpr uint32_t sourceApplication = 1;
    sendToWindowManager(m_toolkit,
                        m_connection.root(),
                        target,
                        m_atoms[X11Atom::netWmState],
                        {skips ? add : remove, marks[0], marks[1], sourceApplication, 0});
    xcb_flush(m_toolkit);
    m_pump.drainSoon();
}

void X11WindowServer::reportMoves(WId window)
{
    m_moves.follow(static_cast<xcb_window_t>(window));
    m_pump.drainSoon();
}

void X11WindowServer::awaitWithdrawal(xcb_window_t panel) const
{
    // A window that is shown again at once would lose its marks to the window manager that still
    // puts away the old ones (ICCCM, 4.1.4). Normally there is nothing to wait for.
    static_cast<void>(focusedWindow(m_toolkit));
    for (int attempt = 0; attempt < withdrawalAttempts; ++attempt) {
        const QList<uint32_t> state
            = X11Properties::numbers(m_connection.get(), panel, m_atoms[X11Atom::wmState]);
        if (state.isEmpty() || state.constFirst() == withdrawnState) {
            return;
        }
        std::this_thread::sleep_for(withdrawalInterval);
    }
}

void X11WindowServer::takeKeyboardFocus(WId window)
{
    const auto panel = static_cast<xcb_window_t>(window);
    m_returnTask.cancel();
    // The server's own time of now is newer than whatever was typed elsewhere, and older than
    // nothing: a time from our clock could lie in the server's future and be refused.
    const xcb_timestamp_t now = m_pump.serverTime();
    X11StartupNotification::mark(m_toolkit, panel, m_startupId);
    xcb_change_property(m_toolkit,
                        XCB_PROP_MODE_REPLACE,
                        panel,
                        m_atoms[X11Atom::netWmUserTime],
                        XCB_ATOM_CARDINAL,
                        32,
                        1,
                        &now);
    if (hasWindowManager()) {
        sendToWindowManager(m_toolkit,
                            m_connection.root(),
                            panel,
                            m_atoms[X11Atom::netActiveWindow],
                            {sourcePager, now, XCB_NONE, 0, 0});
    } else {
        xcb_set_input_focus(m_toolkit, XCB_INPUT_FOCUS_POINTER_ROOT, panel, now);
    }
    xcb_flush(m_toolkit);
}

void X11WindowServer::returnKeyboardFocus(WId window)
{
    const auto panel = static_cast<xcb_window_t>(window);
    if (m_previousFocus == XCB_NONE && m_previousActive == XCB_NONE) {
        return;
    }
    // Asked over the toolkit's connection, because the answer must come after the hiding.
    const xcb_window_t focus = focusedWindow(m_toolkit);
    if (!isNowhere(focus, m_connection.root()) && !isWithin(focus, panel)) {
        return;
    }
    if (!hasWindowManager()) {
        finishReturn();
        return;
    }
    // A window manager focuses the next window by itself as soon as it learns that ours has gone.
    m_returnTask = m_mainQueue.after(returnSeconds, [this, panel] {
        const xcb_window_t current = focusedWindow(m_connection.get());
        if (isNowhere(current, m_connection.root()) || isWithin(current, panel)) {
            finishReturn();
        }
        m_pump.drainSoon();
    });
}

void X11WindowServer::finishReturn()
{
    const xcb_timestamp_t now = m_pump.serverTime();
    if (hasWindowManager() && m_previousActive != XCB_NONE) {
        sendToWindowManager(m_connection.get(),
                            m_connection.root(),
                            m_previousActive,
                            m_atoms[X11Atom::netActiveWindow],
                            {sourcePager, now, XCB_NONE, 0, 0});
    } else {
        xcb_set_input_focus(m_connection.get(), XCB_INPUT_FOCUS_POINTER_ROOT, m_previousFocus, now);
        xcb_flush(m_connection.get());
    }
}

bool X11WindowServer::hasKeyboardFocus(WId window) const
{
    const bool hasFocus
        = isWithin(focusedWindow(m_connection.get()), static_cast<xcb_window_t>(window));
    m_pump.drainSoon();
    return hasFocus;
}

QList<quint32> X11WindowServer::heldKeys() const
{
    const X11Reply<xcb_query_keymap_reply_t> keymap(
        xcb_query_keymap_reply(m_connection.get(), xcb_query_keymap(m_connection.get()), nullptr));
    m_pump.drainSoon();
    QList<quint32> held;
    if (keymap) {
        constexpr quint32 bits = 8;
        for (quint32 key = 0; key < bits * std::size(keymap->keys); ++key) {
            if ((keymap->keys[key / bits] >> (key % bits)) & 1) {
                held << key;
            }
        }
    }
    return held;
}

bool X11WindowServer::isOnScreen(WId window) const
{
    const auto panel = static_cast<xcb_window_t>(window);
    const X11Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        m_connection.get(), xcb_get_window_attributes(m_connection.get(), panel), nullptr));
    const bool isShown
        = attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE && !isCovered(panel);
    m_pump.drainSoon();
    return isShown;
}

void X11WindowServer::beginActivation(const Activation& activation)
{
    // Some desktops hand out the newer kind only, with the same text.
    const QByteArray& given
        = activation.startupId.isEmpty() ? activation.token : activation.startupId;
    m_startupId = X11StartupNotification::isValid(given) ? given : QByteArray();
}

void X11WindowServer::endActivation()
{
    X11StartupNotification::complete(
        m_toolkit, m_connection.root(), std::exchange(m_startupId, {}));
}

void X11WindowServer::handle(const xcb_generic_event_t& event)
{
    m_moves.handle(event);
    if (m_fixesEvent == 0
        || (event.response_type & 0x7f) != m_fixesEvent + XCB_XFIXES_SELECTION_NOTIFY) {
        return;
    }
    const auto& change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
    const bool isCompositing = change.owner != XCB_NONE;
    if (change.selection == m_atoms[X11Atom::compositor]
        && std::exchange(m_isCompositing, isCompositing) != isCompositing && onCompositingChanged) {
        onCompositingChanged();
    }
}

void X11WindowServer::followCompositor()
{
    xcb_connection_t* connection = m_connection.get();
    const auto fixes = xcb_get_extension_data(connection, &xcb_xfixes_id);
    if (fixes && fixes->present) {
        m_fixesEvent = fixes->first_event;
        // The extension must be greeted before it answers anything else.
        const X11Reply<xcb_xfixes_query_version_reply_t> version(xcb_xfixes_query_version_reply(
            connection, xcb_xfixes_query_version(connection, 5, 0), nullptr));
        xcb_xfixes_select_selection_input(
            connection,
            m_connection.root(),
            m_atoms[X11Atom::compositor],
            XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    }
    const X11Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, m_atoms[X11Atom::compositor]), nullptr));
    m_isCompositing = owner && owner->owner != XCB_NONE;
    m_pump.drainSoon();
}

bool X11WindowServer::hasWindowManager() const
{
    const xcb_atom_t check = m_atoms[X11Atom::netSupportingWmCheck];
    const xcb_window_t manager
        = X11Properties::firstWindow(m_connection.get(), m_connection.root(), check);
    // A manager that has died leaves its mark on the root window, but not on its own.
    return manager != XCB_NONE
        && X11Properties::firstWindow(m_connection.get(), manager, check) == manager;
}

xcb_window_t X11WindowServer::focusedWindow(xcb_connection_t* connection) const
{
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_NONE};
}

xcb_window_t X11WindowServer::parentOf(xcb_window_t window) const
{
    const X11Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
        m_connection.get(), xcb_query_tree(m_connection.get(), window), nullptr));
    return tree ? tree->parent : xcb_window_t{XCB_NONE};
}

bool X11WindowServer::isWithin(xcb_window_t window, xcb_window_t ancestor) const
{
    for (int depth = 0; depth < deepestTree && !isNowhere(window, m_connection.root()); ++depth) {
        if (window == ancestor) {
            return true;
        }
        window = parentOf(window);
    }
    return false;
}

bool X11WindowServer::isCovered(xcb_window_t window) const
{
    xcb_window_t topLevel = window;
    for (int depth = 0; depth < deepestTree; ++depth) {
        const xcb_window_t parent = parentOf(topLevel);
        if (parent == m_connection.root() || parent == XCB_NONE) {
            break;
        }
        topLevel = parent;
    }
    xcb_connection_t* connection = m_connection.get();
    const std::vector<xcb_window_t> above = windowsAbove(topLevel);
    const auto panelCookie = xcb_get_geometry(connection, topLevel);
    std::vector<std::pair<xcb_get_window_attributes_cookie_t, xcb_get_geometry_cookie_t>> cookies;
    for (const xcb_window_t other : above) {
        cookies.emplace_back(xcb_get_window_attributes(connection, other),
                             xcb_get_geometry(connection, other));
    }
    const X11Reply<xcb_get_geometry_reply_t> panel(
        xcb_get_geometry_reply(connection, panelCookie, nullptr));
    QRegion visible = panel ? QRegion(panel->x, panel->y, panel->width, panel->height) : QRegion();
    for (const auto& [attributesCookie, geometryCookie] : cookies) {
        const X11Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(connection, attributesCookie, nullptr));
        const X11Reply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(connection, geometryCookie, nullptr));
        // Under a compositor a window with an alpha channel lets through what is below.
        if (attributes && geometry && attributes->map_state == XCB_MAP_STATE_VIEWABLE
            && attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT
            && (!m_isCompositing || geometry->depth <= opaqueDepth)) {
            visible -= QRect(geometry->x, geometry->y, geometry->width, geometry->height);
        }
    }
    return visible.isEmpty();
}

std::vector<xcb_window_t> X11WindowServer::windowsAbove(xcb_window_t topLevel) const
{
    const X11Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
        m_connection.get(), xcb_query_tree(m_connection.get(), m_connection.root()), nullptr));
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
    const uint32_t ownMask = ~xcb_get_setup(m_connection.get())->resource_id_mask;
    std::vector<xcb_window_t> above;
    std::copy_if(self + 1, end, std::back_inserter(above), [ownMask](xcb_window_t window) {
        return (window & ownMask) != 0;
    });
    return above;
}

} // namespace Tavik
