// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11Properties.h>
#include <TavikLauncherPlatform/Linux/X11/X11StartupNotification.h>
#include <TavikLauncherPlatform/Linux/X11/X11WindowServer.h>
#include <TavikLauncherPlatform/Linux/X11/X11WindowTree.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <span>
#include <thread>
#include <utility>
#include <vector>

namespace Tavik {

namespace {

constexpr uint32_t allDesktops = 0xffffffff;
/// How long a window manager may take to focus another window after ours has gone.
constexpr double returnSeconds = 0.1;
constexpr int withdrawalAttempts = 40;
constexpr std::chrono::milliseconds withdrawalInterval{1};
constexpr uint32_t withdrawnState = 0;

void setNumbers(xcb_connection_t* connection,
                xcb_window_t window,
                xcb_atom_t property,
                xcb_atom_t type,
                std::span<const uint32_t> numbers)
{
    xcb_change_property(connection,
                        XCB_PROP_MODE_REPLACE,
                        window,
                        property,
                        type,
                        32,
                        static_cast<uint32_t>(numbers.size()),
                        numbers.data());
}

} // namespace

X11WindowServer::X11WindowServer(xcb_connection_t* toolkit, MainQueue& mainQueue)
    : m_toolkit(toolkit)
    , m_mainQueue(mainQueue)
    , m_atoms(m_connection.get(), m_connection.screenNumber())
    , m_compositor(m_connection, m_atoms[X11Atom::compositor])
    , m_moves(m_connection)
    , m_pump(m_connection, m_atoms[X11Atom::tavikClock], [this](const xcb_generic_event_t& event) {
        handle(event);
    })
{
    m_pump.drainSoon();
}

void X11WindowServer::preparePanel(WId window)
{
    const auto panel = static_cast<xcb_window_t>(window);
    awaitWithdrawal(panel);
    m_returnTask.cancel();
    // The window manager forgets all this when the window goes, and the toolkit adds its own states
    // to what it finds. "Sticky" says the same as the desktop number, which some take for the last
    // desktop.
    const std::array states{m_atoms[X11Atom::netWmStateAbove],
                            m_atoms[X11Atom::netWmStateSkipTaskbar],
                            m_atoms[X11Atom::netWmStateSkipPager],
                            m_atoms[X11Atom::netWmStateSticky]};
    setNumbers(m_toolkit, panel, m_atoms[X11Atom::netWmState], XCB_ATOM_ATOM, states);
    setNumbers(
        m_toolkit, panel, m_atoms[X11Atom::netWmDesktop], XCB_ATOM_CARDINAL, {&allDesktops, 1});
    xcb_flush(m_toolkit);
}

void X11WindowServer::setBlurBehind(WId window, const QRegion& region)
{
    const auto target = static_cast<xcb_window_t>(window);
    std::vector<uint32_t> places;
    for (const QRect& rect : region) {
        for (const int number : {rect.x(), rect.y(), rect.width(), rect.height()}) {
            places.push_back(static_cast<uint32_t>(std::max(number, 0)));
        }
    }
    const xcb_atom_t hint = m_atoms[X11Atom::kdeBlurBehindRegion];
    if (places.empty()) {
        // An empty list would mean the whole window.
        xcb_delete_property(m_toolkit, target, hint);
    } else {
        setNumbers(m_toolkit, target, hint, XCB_ATOM_CARDINAL, places);
    }
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
    setNumbers(m_toolkit, target, m_atoms[X11Atom::netWmState], XCB_ATOM_ATOM, states);
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

void X11WindowServer::awaitWithdrawal(xcb_window_t panel)
{
    // A window that is shown again at once would lose its marks to the window manager that still
    // puts away the old ones (ICCCM, 4.1.4). Normally there is nothing to wait for.
    for (int attempt = 0; !isWithdrawn(panel) && attempt < withdrawalAttempts; ++attempt) {
        std::this_thread::sleep_for(withdrawalInterval);
    }
}

bool X11WindowServer::isWithdrawn(xcb_window_t panel)
{
    // Over the toolkit's connection, so that the answers come after a hiding that is still on its
    // way; who has the keyboard is asked in the same round trip.
    X11PropertyQuery panelState(m_toolkit, panel, m_atoms[X11Atom::wmState]);
    X11PropertyQuery active(m_toolkit, m_connection.root(), m_atoms[X11Atom::netActiveWindow]);
    const xcb_window_t focus = focusedWindow(m_toolkit);
    const QList<uint32_t> state = panelState.numbers();
    // A keyboard on its way back from the last showing is to get there in the end.
    if (!m_returnTask.isActive() || !X11WindowTree::isNowhere(m_connection, focus)) {
        m_previousFocus = focus;
        m_previousActive = active.firstWindow();
    }
    return state.isEmpty() || state.constFirst() == withdrawnState;
}

X11WindowServer::Desktop X11WindowServer::desktop()
{
    // A manager that has died leaves its mark on the root window, but not on its own. It is nearly
    // always the one of the last time, so both are asked at once, and with the time.
    const xcb_atom_t check = m_atoms[X11Atom::netSupportingWmCheck];
    X11PropertyQuery onRoot(m_connection.get(), m_connection.root(), check);
    X11PropertyQuery onManager(m_connection.get(), m_manager, check);
    // The server's own time of now is newer than whatever was typed elsewhere, and older than
    // nothing: a time from our clock could lie in the server's future and be refused.
    const xcb_timestamp_t now = m_pump.serverTime();
    const xcb_window_t manager = onRoot.firstWindow();
    const xcb_window_t mark = manager == m_manager
        ? onManager.firstWindow()
        : X11Properties::firstWindow(m_connection.get(), manager, check);
    m_manager = manager;
    return {.time = now, .hasManager = manager != XCB_NONE && mark == manager};
}

void X11WindowServer::takeKeyboardFocus(WId window)
{
    const auto panel = static_cast<xcb_window_t>(window);
    m_returnTask.cancel();
    const Desktop now = desktop();
    X11StartupNotification::mark(m_toolkit, panel, m_startupId);
    setNumbers(
        m_toolkit, panel, m_atoms[X11Atom::netWmUserTime], XCB_ATOM_CARDINAL, {&now.time, 1});
    if (now.hasManager) {
        requestFocus(m_toolkit, m_connection.root(), m_atoms, panel, now.time);
    } else {
        xcb_set_input_focus(m_toolkit, XCB_INPUT_FOCUS_POINTER_ROOT, panel, now.time);
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
    if (!isFree(focus, panel)) {
        return;
    }
    if (!desktop().hasManager) {
        finishReturn();
        return;
    }
    // A window manager focuses the next window by itself as soon as it learns that ours has gone.
    m_returnTask = m_mainQueue.after(returnSeconds, [this, panel] {
        const xcb_window_t current = focusedWindow(m_connection.get());
        if (isFree(current, panel)) {
            finishReturn();
        }
        m_pump.drainSoon();
    });
}

/// True when nobody has the keyboard but a window that is going. Some window managers keep it
/// themselves rather than give it to a window that is in no taskbar.
bool X11WindowServer::isFree(xcb_window_t focus, xcb_window_t going) const
{
    return X11WindowTree::isNowhere(m_connection, focus) || focus == m_manager
        || X11WindowTree::isWithin(m_connection, focus, going);
}

void X11WindowServer::finishReturn()
{
    const Desktop now = desktop();
    if (now.hasManager && m_previousActive != XCB_NONE) {
        requestFocus(m_connection.get(), m_connection.root(), m_atoms, m_previousActive, now.time);
    } else if (!now.hasManager || !isFree(m_previousFocus, XCB_NONE)) {
        // Not back to nobody where windows are managed: it would bear a later time than the
        // manager's own word for the next new window, which the server would then not heed.
        xcb_set_input_focus(
            m_connection.get(), XCB_INPUT_FOCUS_POINTER_ROOT, m_previousFocus, now.time);
        xcb_flush(m_connection.get());
    }
}

bool X11WindowServer::hasKeyboardFocus(WId window) const
{
    const bool hasFocus = X11WindowTree::isWithin(
        m_connection, focusedWindow(m_connection.get()), static_cast<xcb_window_t>(window));
    m_pump.drainSoon();
    return hasFocus;
}

bool X11WindowServer::isOnScreen(WId window) const
{
    const auto panel = static_cast<xcb_window_t>(window);
    const X11Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        m_connection.get(), xcb_get_window_attributes(m_connection.get(), panel), nullptr));
    using X11WindowTree::Blending;
    const Blending blending = isCompositing() ? Blending::on : Blending::off;
    const bool isShown = attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE
        && !X11WindowTree::isCovered(m_connection, panel, blending);
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
    const bool wasCompositing = isCompositing();
    m_compositor.handle(event);
    if (isCompositing() != wasCompositing && onCompositingChanged) {
        onCompositingChanged();
    }
}

xcb_window_t X11WindowServer::focusedWindow(xcb_connection_t* connection) const
{
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_NONE};
}

} // namespace Tavik
