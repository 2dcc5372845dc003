// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11KeyboardFocus.h>
#include <TavikLauncherPlatform/Linux/X11/X11Properties.h>
#include <TavikLauncherPlatform/Linux/X11/X11WindowTree.h>

#include <algorithm>
#include <array>
#include <ranges>

#include <xcb/xinput.h>

namespace Tavik {

namespace {

/// How long a window manager may take to focus another window after ours has gone.
constexpr double returnSeconds = 0.1;
/// What has not got the keyboard by then does not get it.
constexpr double takeSeconds = 0.25;
/// How long a focus may be nobody's between two windows.
constexpr double passingSeconds = 0.03;
/// A window manager that insists for so many times means it.
constexpr int mostRetakes = 3;
constexpr std::size_t rememberedKeys = 16;
/// Buttons 4 to 7 are the wheel.
constexpr uint32_t firstWheelButton = 4;
constexpr uint32_t lastWheelButton = 7;

/// Returns whether the server can tell of button presses that are meant for others.
int greetInputExtension(xcb_connection_t* connection)
{
    const xcb_query_extension_reply_t* extension
        = xcb_get_extension_data(connection, &xcb_input_id);
    if (!extension || !extension->present) {
        return -1;
    }
    const X11Reply<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        connection, xcb_input_xi_query_version(connection, 2, 2), nullptr));
    return version ? extension->major_opcode : -1;
}

} // namespace

X11KeyboardFocus::X11KeyboardFocus(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
    , m_inputExtension(greetInputExtension(m_dependencies.connection.get()))
{ }

X11KeyboardFocus::Desktop X11KeyboardFocus::desktop()
{
    // A manager that has died leaves its mark on the root window, but not on its own. It is nearly
    // always the one of the last time, so both are asked at once, and with the time.
    xcb_connection_t* connection = m_dependencies.connection.get();
    const xcb_atom_t check = m_dependencies.atoms[X11Atom::netSupportingWmCheck];
    X11PropertyQuery onRoot(connection, m_dependencies.connection.root(), check);
    X11PropertyQuery onManager(connection, m_manager, check);
    // The server's own time of now is newer than whatever was typed elsewhere, and older than
    // nothing: a time from our clock could lie in the server's future and be refused.
    const xcb_timestamp_t now = m_dependencies.pump.serverTime();
    const xcb_window_t manager = onRoot.firstWindow();
    const xcb_window_t mark = manager == m_manager
        ? onManager.firstWindow()
        : X11Properties::firstWindow(connection, manager, check);
    m_manager = manager;
    return {.time = now, .hasManager = manager != XCB_NONE && mark == manager};
}

void X11KeyboardFocus::take(xcb_window_t window)
{
    m_returnTask.cancel();
    const Desktop now = desktop();
    xcb_change_property(m_dependencies.toolkit,
                        XCB_PROP_MODE_REPLACE,
                        window,
                        m_dependencies.atoms[X11Atom::netWmUserTime],
                        XCB_ATOM_CARDINAL,
                        32,
                        1,
                        &now.time);
    if (now.hasManager) {
        requestFocus(m_dependencies.toolkit,
                     m_dependencies.connection.root(),
                     m_dependencies.atoms,
                     window,
                     now.time);
    } else {
        xcb_set_input_focus(m_dependencies.toolkit, XCB_INPUT_FOCUS_POINTER_ROOT, window, now.time);
    }
    xcb_flush(m_dependencies.toolkit);
}

void X11KeyboardFocus::preparePanel(xcb_window_t panel)
{
    m_preparedPanel = panel;
    if (m_dependencies.isPanelManaged) {
        // Whoever maps such a window may give it the keyboard.
        rememberPrevious();
    }
}

void X11KeyboardFocus::rememberPrevious()
{
    // Over the toolkit's connection, so that the answers come after what has been done to the
    // panel.
    xcb_connection_t* toolkit = m_dependencies.toolkit;
    const xcb_window_t root = m_dependencies.connection.root();
    const auto pointerCookie = xcb_query_pointer(toolkit, root);
    X11PropertyQuery active(toolkit, root, m_dependencies.atoms[X11Atom::netActiveWindow]);
    const xcb_window_t focus = focusedWindow(toolkit);
    const X11Reply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(toolkit, pointerCookie, nullptr));
    m_pointerPlace
        = pointer ? std::pair<int, int>(pointer->root_x, pointer->root_y) : std::pair<int, int>();
    // A keyboard on its way back from the last showing is to get there in the end.
    if (!m_returnTask.isActive() || !isNobodys(focus)) {
        m_previousFocus = focus;
        m_previousActive = active.firstWindow();
    }
    m_returnTask.cancel();
}

void X11KeyboardFocus::takeForPanel()
{
    if (m_panel == XCB_NONE) {
        if (!m_dependencies.isPanelManaged) {
            rememberPrevious();
        }
        m_panel = m_preparedPanel;
        m_retakes = 0;
        watchPanel(true);
    }
    m_checkTask = m_dependencies.mainQueue.after(takeSeconds, [this] {
        m_retakes = 0;
        if (!has(m_panel)) {
            m_dependencies.panelLeft();
        }
    });
    if (m_dependencies.isPanelManaged) {
        take(m_panel);
        return;
    }
    m_takenAt = m_dependencies.pump.serverTime();
    xcb_set_input_focus(m_dependencies.toolkit, XCB_INPUT_FOCUS_POINTER_ROOT, m_panel, m_takenAt);
    tellManagerTime();
    xcb_flush(m_dependencies.toolkit);
}

/// The server ignores a focus request that is older than the last. Some window managers stamp
/// theirs with the last time that an event has told them, which may be before ours; this is an
/// event.
void X11KeyboardFocus::tellManagerTime()
{
    xcb_change_property(m_dependencies.toolkit,
                        XCB_PROP_MODE_APPEND,
                        m_dependencies.connection.root(),
                        m_dependencies.atoms[X11Atom::tavikClock],
                        XCB_ATOM_CARDINAL,
                        32,
                        0,
                        nullptr);
}

void X11KeyboardFocus::watchPanel(bool watches)
{
    xcb_connection_t* connection = m_dependencies.connection.get();
    const uint32_t panelEvents
        = watches ? XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_KEY_PRESS : XCB_NONE;
    xcb_change_window_attributes(connection, m_panel, XCB_CW_EVENT_MASK, &panelEvents);
    if (m_inputExtension >= 0) {
        // Told whoever the click is meant for, which it still reaches.
        struct
        {
            xcb_input_event_mask_t head;
            uint32_t bits;
        } const clicks{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
                       watches ? uint32_t{XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS} : 0};
        xcb_input_xi_select_events(connection, m_dependencies.connection.root(), 1, &clicks.head);
    }
    xcb_flush(connection);
}

void X11KeyboardFocus::giveBack()
{
    if (m_panel == XCB_NONE) {
        return;
    }
    watchPanel(false);
    m_checkTask.cancel();
    m_lossTask.cancel();
    if (!m_dependencies.isPanelManaged) {
        giveToPrevious();
        unmapUnnoticed();
    }
    m_panel = XCB_NONE;
    settle();
    m_returnTask = m_dependencies.mainQueue.after(returnSeconds, [this] { giveToSomebody(); });
}

void X11KeyboardFocus::whenSettled(const std::function<void()>& done)
{
    settle();
    if (!m_dependencies.isPanelManaged || m_panel == XCB_NONE || has(m_panel)) {
        done();
    } else {
        m_whenSettled = done;
    }
}

void X11KeyboardFocus::settle()
{
    if (const std::function<void()> done = std::exchange(m_whenSettled, {})) {
        done();
    }
}

void X11KeyboardFocus::giveToPrevious()
{
    // Where the user has turned to another desktop meanwhile, the window manager decides.
    if (!isHere(m_previousFocus) || !isHere(m_previousActive)) {
        return;
    }
    // Who takes it in just this moment keeps it, even at the very time of our taking, which is the
    // last that some window managers know: nobody may come between the question and the answer.
    xcb_connection_t* toolkit = m_dependencies.toolkit;
    xcb_grab_server(toolkit);
    const bool isOurs = focusedWindow(toolkit) == m_panel;
    if (isOurs) {
        const xcb_void_cookie_t cookie = xcb_set_input_focus_checked(
            toolkit, XCB_INPUT_FOCUS_POINTER_ROOT, m_previousFocus, m_takenAt);
        // The window may have gone.
        xcb_discard_reply(toolkit, cookie.sequence);
    }
    xcb_ungrab_server(toolkit);
    if (isOurs) {
        tellManagerTime();
    }
}

/// Where the focus follows the pointer, a window that appears under the pointer without any
/// movement would take it. What happens during a grab is marked as its doing, and window managers
/// pass it over.
void X11KeyboardFocus::unmapUnnoticed()
{
    xcb_connection_t* toolkit = m_dependencies.toolkit;
    const xcb_grab_pointer_cookie_t grab = xcb_grab_pointer(toolkit,
                                                            0,
                                                            m_dependencies.connection.root(),
                                                            XCB_NONE,
                                                            XCB_GRAB_MODE_ASYNC,
                                                            XCB_GRAB_MODE_ASYNC,
                                                            XCB_NONE,
                                                            XCB_NONE,
                                                            XCB_CURRENT_TIME);
    xcb_discard_reply(toolkit, grab.sequence);
    xcb_unmap_window(toolkit, m_panel);
    xcb_ungrab_pointer(toolkit, XCB_CURRENT_TIME);
    xcb_flush(toolkit);
}

void X11KeyboardFocus::giveToSomebody()
{
    const xcb_window_t focus = focusedWindow(m_dependencies.connection.get());
    const bool wasSomebodys = !isNobodys(m_previousFocus) || m_previousActive != XCB_NONE;
    if (!wasSomebodys || (!isNobodys(focus) && isViewable(focus))) {
        m_dependencies.pump.drainSoon();
        return;
    }
    const Desktop now = desktop();
    const xcb_window_t visible = visibleWindow();
    if (now.hasManager && visible != XCB_NONE) {
        requestFocus(m_dependencies.connection.get(),
                     m_dependencies.connection.root(),
                     m_dependencies.atoms,
                     visible,
                     now.time);
    } else if (!now.hasManager) {
        xcb_set_input_focus(m_dependencies.connection.get(),
                            XCB_INPUT_FOCUS_POINTER_ROOT,
                            isViewable(m_previousFocus)
                                ? m_previousFocus
                                : xcb_window_t{XCB_INPUT_FOCUS_POINTER_ROOT},
                            now.time);
        xcb_flush(m_dependencies.connection.get());
    }
    m_dependencies.pump.drainSoon();
}

/// The window that was active before, else the topmost, as far as they are to be seen.
xcb_window_t X11KeyboardFocus::visibleWindow() const
{
    xcb_connection_t* connection = m_dependencies.connection.get();
    QList<xcb_window_t> candidates{m_previousActive};
    const QList<xcb_window_t> stacking
        = X11Properties::windowList(connection,
                                    m_dependencies.connection.root(),
                                    m_dependencies.atoms[X11Atom::netClientListStacking]);
    std::ranges::copy(std::ranges::reverse_view(stacking), std::back_inserter(candidates));
    const auto found = std::ranges::find_if(
        candidates, [this](xcb_window_t window) { return isViewable(window) && isHere(window); });
    return found == candidates.end() ? xcb_window_t{XCB_NONE} : *found;
}

bool X11KeyboardFocus::isHere(xcb_window_t window) const
{
    return X11Properties::isOnCurrentDesktop(m_dependencies.connection.get(),
                                             m_dependencies.connection.root(),
                                             m_dependencies.atoms,
                                             window);
}

bool X11KeyboardFocus::has(xcb_window_t window) const
{
    const bool hasFocus = X11WindowTree::isWithin(
        m_dependencies.connection, focusedWindow(m_dependencies.connection.get()), window);
    m_dependencies.pump.drainSoon();
    return hasFocus;
}

bool X11KeyboardFocus::panelGotKey(xcb_keycode_t key, xcb_timestamp_t time)
{
    if (m_panel == XCB_NONE) {
        return false;
    }
    // Any answer will do: the press that the panel got was written before it.
    m_dependencies.pump.catchUp();
    return std::ranges::find(m_panelKeys, std::pair(key, time)) != m_panelKeys.end();
}

void X11KeyboardFocus::handle(const xcb_generic_event_t& event)
{
    if (m_panel == XCB_NONE) {
        return;
    }
    switch (event.response_type) {
    case XCB_KEY_PRESS: {
        const auto& press = reinterpret_cast<const xcb_key_press_event_t&>(event);
        m_panelKeys.emplace_back(press.detail, press.time);
        if (m_panelKeys.size() > rememberedKeys) {
            m_panelKeys.pop_front();
        }
        break;
    }
    case XCB_FOCUS_IN:
        settle();
        break;
    case XCB_FOCUS_OUT: {
        const auto& change = reinterpret_cast<const xcb_focus_out_event_t&>(event);
        // Another program's grab, as of a key that it has asked for, leaves the focus where it is.
        if (change.mode != XCB_NOTIFY_MODE_GRAB && change.mode != XCB_NOTIFY_MODE_UNGRAB) {
            checkPanelFocus(false);
        }
        break;
    }
    case XCB_GE_GENERIC: {
        const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
        if (generic.extension == m_inputExtension
            && generic.event_type == XCB_INPUT_RAW_BUTTON_PRESS) {
            const auto& press = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
            if (press.detail < firstWheelButton || press.detail > lastWheelButton) {
                checkClick();
            }
        }
        break;
    }
    default:
        break;
    }
}

void X11KeyboardFocus::checkClick()
{
    const xcb_window_t clicked = pointer().window;
    if (clicked != X11WindowTree::topLevelOf(m_dependencies.connection, m_panel)) {
        m_dependencies.panelLeft();
    }
}

void X11KeyboardFocus::checkPanelFocus(bool isFinal)
{
    const xcb_window_t focus = focusedWindow(m_dependencies.connection.get());
    if (m_panel == XCB_NONE || X11WindowTree::isWithin(m_dependencies.connection, focus, m_panel)) {
        return;
    }
    if (isNobodys(focus) && !isFinal) {
        // On its way from one window to another.
        m_lossTask
            = m_dependencies.mainQueue.after(passingSeconds, [this] { checkPanelFocus(true); });
        return;
    }
    const Pointer pointer = this->pointer();
    const bool hasCrossed = pointer.place != m_pointerPlace && pointer.window != m_panel
        && pointer.window != XCB_NONE
        && X11WindowTree::isWithin(m_dependencies.connection, focus, pointer.window);
    // A window manager that knows nothing of the panel may give the keyboard anew to the window
    // that it believes to have it, as i3 does at every grab of a key.
    const bool isMistaken
        = !m_dependencies.isPanelManaged && (isNobodys(focus) || focus == m_previousFocus);
    if ((!hasCrossed && !isMistaken) || m_retakes >= mostRetakes) {
        m_dependencies.panelLeft();
        return;
    }
    ++m_retakes;
    // The window manager takes that window for the focused one now.
    if (!isNobodys(focus)) {
        m_previousFocus = m_previousActive = focus;
    }
    takeForPanel();
}

X11KeyboardFocus::Pointer X11KeyboardFocus::pointer() const
{
    xcb_connection_t* connection = m_dependencies.connection.get();
    const X11Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        connection, xcb_query_pointer(connection, m_dependencies.connection.root()), nullptr));
    m_dependencies.pump.drainSoon();
    return reply ? Pointer{.place = {reply->root_x, reply->root_y}, .window = reply->child}
                 : Pointer{};
}

bool X11KeyboardFocus::isViewable(xcb_window_t window) const
{
    xcb_connection_t* connection = m_dependencies.connection.get();
    const X11Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection, xcb_get_window_attributes(connection, window), nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

/// Some window managers keep the keyboard themselves rather than give it to a window that is in no
/// taskbar.
bool X11KeyboardFocus::isNobodys(xcb_window_t focus) const
{
    return X11WindowTree::isNowhere(m_dependencies.connection, focus) || focus == m_manager;
}

xcb_window_t X11KeyboardFocus::focusedWindow(xcb_connection_t* connection) const
{
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_NONE};
}

} // namespace Tavik
