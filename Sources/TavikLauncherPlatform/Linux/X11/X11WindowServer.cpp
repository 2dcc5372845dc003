// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11Properties.h>
#include <TavikLauncherPlatform/Linux/X11/X11StartupNotification.h>
#include <TavikLauncherPlatform/Linux/X11/X11WindowServer.h>
#include <TavikLauncherPlatform/Linux/X11/X11WindowTree.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QGuiApplication>
#include <QRegion>
#include <QWindow>

#include <algorithm>
#include <array>
#include <chrono>
#include <span>
#include <thread>
#include <utility>
#include <vector>

#include <xcb/shape.h>
#include <xcb/xfixes.h>

namespace Tavik {

namespace {

/// How long a window manager may take to put away what has been hidden.
constexpr std::chrono::milliseconds longestWithdrawal{200};
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

void cutOut(xcb_connection_t* connection,
            xcb_window_t window,
            xcb_shape_kind_t kind,
            const QRegion& region)
{
    std::vector<xcb_rectangle_t> rectangles;
    rectangles.reserve(static_cast<std::size_t>(region.rectCount()));
    for (const QRect& part : region) {
        rectangles.push_back({static_cast<int16_t>(part.x()),
                              static_cast<int16_t>(part.y()),
                              static_cast<uint16_t>(part.width()),
                              static_cast<uint16_t>(part.height())});
    }
    const xcb_xfixes_region_t made = xcb_generate_id(connection);
    xcb_xfixes_create_region(
        connection, made, static_cast<uint32_t>(rectangles.size()), rectangles.data());
    xcb_xfixes_set_window_shape_region(connection, window, kind, 0, 0, made);
    xcb_xfixes_destroy_region(connection, made);
}

/// KWin draws nothing of an unmanaged window in its first 50 ms.
bool delaysUnmanagedWindows(const X11Connection& connection, const X11Atoms& atoms)
{
    return X11Properties::windowManagerName(connection.get(), connection.root(), atoms) == "KWin";
}

bool acceptsKeyboard(WId id)
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    return std::ranges::none_of(windows, [id](const QWindow* window) {
        return window->handle() && window->winId() == id
            && window->flags().testFlag(Qt::WindowDoesNotAcceptFocus);
    });
}

} // namespace

X11WindowServer::X11WindowServer(xcb_connection_t* toolkit, MainQueue& mainQueue, Xwayland xwayland)
    : m_toolkit(toolkit)
    , m_mainQueue(mainQueue)
    , m_atoms(m_connection.get(), m_connection.screenNumber())
    , m_xwayland(xwayland)
    , m_isPanelManaged(xwayland != Xwayland::no || delaysUnmanagedWindows(m_connection, m_atoms))
    , m_compositor(m_connection, m_atoms[X11Atom::compositor])
    , m_moves(m_connection)
    , m_pump(m_connection,
             m_atoms[X11Atom::tavikClock],
             [this](const xcb_generic_event_t& event) { handle(event); })
    , m_focus({.toolkit = toolkit,
               .connection = m_connection,
               .atoms = m_atoms,
               .pump = m_pump,
               .mainQueue = mainQueue,
               .isPanelManaged = m_isPanelManaged,
               .panelLeft = [this] {
                   if (onPanelLeft) {
                       onPanelLeft();
                   }
               }})
{
    if (xwayland == Xwayland::findsPointer) {
        m_finder.emplace(m_connection, m_atoms, m_pump, mainQueue);
    }
    m_pump.drainSoon();
}

Means X11WindowServer::pointerMeans() const
{
    if (m_finder) {
        return {.way = Texts::tr("An invisible surface on each screen, which the pointer enters.")};
    }
    return {.way = Texts::tr("The X server tells where it is."),
            .lack = m_xwayland == Xwayland::yes
                ? Texts::tr("Beside a Wayland desktop it knows that only over its own windows: the "
                            "ring may open elsewhere.")
                : QString()};
}

Means X11WindowServer::overlayMeans() const
{
    return {.way = m_isPanelManaged
                ? Texts::tr("A window that the window manager keeps above the others.")
                : Texts::tr("A window of its own above all others.")};
}

std::optional<QPoint> X11WindowServer::pointer()
{
    if (m_finder) {
        const std::optional<X11PointerFinder::Place> place = m_finder->ask();
        m_isPointerUnsure = place && !place->isSure && !m_isPanelShown;
        m_unusedTask = m_mainQueue.after(0, [this] { m_isPointerUnsure = false; });
        return place ? std::optional(place->pixel) : std::nullopt;
    }
    xcb_connection_t* connection = m_connection.get();
    const X11Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        connection, xcb_query_pointer(connection, m_connection.root()), nullptr));
    m_pump.drainSoon();
    return reply ? std::optional(QPoint(reply->root_x, reply->root_y)) : std::nullopt;
}

void X11WindowServer::preparePanel(WId window)
{
    m_panel = static_cast<xcb_window_t>(window);
    m_focus.preparePanel(m_panel);
    if (!m_isPanelManaged) {
        declineShadow(window);
        return;
    }
    if (m_isPointerUnsure) {
        // While it waits, with the keyboard, at a place that may be wrong, nothing of it is to be
        // seen: the server itself makes it transparent.
        constexpr uint32_t clear = 0;
        xcb_change_window_attributes(m_toolkit, m_panel, XCB_CW_BACK_PIXEL, &clear);
    }
    awaitWithdrawal();
    // The window manager forgets all this when the window goes, and the toolkit adds its own states
    // to what it finds. "Sticky" says the same as the desktop number, which some take for the last
    // desktop.
    const std::array states{m_atoms[X11Atom::netWmStateAbove],
                            m_atoms[X11Atom::netWmStateSkipTaskbar],
                            m_atoms[X11Atom::netWmStateSkipPager],
                            m_atoms[X11Atom::netWmStateSticky]};
    setNumbers(m_toolkit, m_panel, m_atoms[X11Atom::netWmState], XCB_ATOM_ATOM, states);
    setNumbers(m_toolkit,
               m_panel,
               m_atoms[X11Atom::netWmDesktop],
               XCB_ATOM_CARDINAL,
               {&X11Properties::allDesktops, 1});
    xcb_flush(m_toolkit);
}

void X11WindowServer::movePanel(WId window, QPoint pixel)
{
    const std::array place{static_cast<uint32_t>(pixel.x()), static_cast<uint32_t>(pixel.y())};
    xcb_configure_window(m_toolkit,
                         static_cast<xcb_window_t>(window),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
                         place.data());
}

bool X11WindowServer::panelShown(WId window)
{
    m_isPanelShown = true;
    if (std::exchange(m_isPointerUnsure, false) && acceptsKeyboard(window)) {
        m_finder->search([this] { pointerFound(); });
    }
    return !m_finder || !m_finder->isSearching();
}

void X11WindowServer::pointerFound()
{
    if (onPointerFound) {
        onPointerFound();
    }
    if (onPanelPlaced) {
        onPanelPlaced();
    }
}

void X11WindowServer::panelHides(WId)
{
    m_isPanelShown = false;
    if (m_isPanelManaged && isWithdrawn()) {
        m_hiddenUnheardOf = Clock::now();
    }
    if (m_finder) {
        m_finder->end();
        m_finder->forget();
    }
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

void X11WindowServer::declineShadow(WId window)
{
    // As of a window that draws a shadow of its own. The usual settings of picom, which else treats
    // all windows alike, leave such windows out.
    constexpr std::array<uint32_t, 4> none{};
    setNumbers(m_toolkit,
               static_cast<xcb_window_t>(window),
               m_atoms[X11Atom::gtkFrameExtents],
               XCB_ATOM_CARDINAL,
               none);
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
    constexpr uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK, &mask);
    m_pump.drainSoon();
}

bool X11WindowServer::isOnCurrentDesktop(WId window) const
{
    const bool isHere = X11Properties::isOnCurrentDesktop(
        m_connection.get(), m_connection.root(), m_atoms, static_cast<xcb_window_t>(window));
    m_pump.drainSoon();
    return isHere;
}

void X11WindowServer::awaitWithdrawal()
{
    // A window that is shown again at once would lose its marks to the window manager that still
    // puts away the old ones (ICCCM, 4.1.4). One that had not heard of the last showing first takes
    // the window, and has let it go when the mark of the last showing is gone (EWMH), which some
    // leave there. Normally there is nothing to wait for.
    const Clock::time_point end = Clock::now() + longestWithdrawal;
    const Clock::time_point marksEnd
        = std::exchange(m_hiddenUnheardOf, Clock::time_point()) + longestWithdrawal;
    const auto isLetGo = [this, marksEnd] {
        return isWithdrawn() && (Clock::now() >= marksEnd || !isMarked());
    };
    while (Clock::now() < end && !isLetGo()) {
        std::this_thread::sleep_for(withdrawalInterval);
    }
}

bool X11WindowServer::isMarked() const
{
    return !X11PropertyQuery(m_toolkit, m_panel, m_atoms[X11Atom::netWmDesktop])
                .numbers()
                .isEmpty();
}

bool X11WindowServer::isWithdrawn() const
{
    // Over the toolkit's connection, so that the answer comes after a hiding that is still on its
    // way.
    const QList<uint32_t> state
        = X11PropertyQuery(m_toolkit, m_panel, m_atoms[X11Atom::wmState]).numbers();
    return state.isEmpty() || state.constFirst() == withdrawnState;
}

void X11WindowServer::setInputRegion(WId window, const QRegion& region)
{
    cutOut(m_connection.get(), static_cast<xcb_window_t>(window), XCB_SHAPE_SK_INPUT, region);
    xcb_flush(m_connection.get());
}

void X11WindowServer::setShape(WId window, const QRegion& region)
{
    const auto target = static_cast<xcb_window_t>(window);
    if (region.isEmpty()) {
        xcb_xfixes_set_window_shape_region(
            m_toolkit, target, XCB_SHAPE_SK_BOUNDING, 0, 0, XCB_XFIXES_REGION_NONE);
    } else {
        cutOut(m_toolkit, target, XCB_SHAPE_SK_BOUNDING, region);
    }
}

void X11WindowServer::takeKeyboardFocus(WId window)
{
    X11StartupNotification::mark(m_toolkit, static_cast<xcb_window_t>(window), m_startupId);
    m_focus.take(static_cast<xcb_window_t>(window));
}

void X11WindowServer::takeKeyboardFocusForPanel()
{
    X11StartupNotification::mark(m_toolkit, m_panel, m_startupId);
    m_focus.takeForPanel();
}

void X11WindowServer::returnKeyboardFocus()
{
    m_focus.giveBack();
}

bool X11WindowServer::panelGotKey(xcb_keycode_t key, xcb_timestamp_t time)
{
    return m_focus.panelGotKey(key, time);
}

bool X11WindowServer::hasKeyboardFocus(WId window) const
{
    return m_focus.has(static_cast<xcb_window_t>(window));
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

QImage X11WindowServer::pictureAt(WId window) const
{
    // Over the toolkit's connection: after what has just been done to the window.
    const auto target = static_cast<xcb_window_t>(window);
    const auto sizeCookie = xcb_get_geometry(m_toolkit, target);
    const auto rootCookie = xcb_get_geometry(m_toolkit, m_connection.root());
    const auto placeCookie
        = xcb_translate_coordinates(m_toolkit, target, m_connection.root(), 0, 0);
    const X11Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(m_toolkit, sizeCookie, nullptr));
    const X11Reply<xcb_get_geometry_reply_t> root(
        xcb_get_geometry_reply(m_toolkit, rootCookie, nullptr));
    const X11Reply<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(m_toolkit, placeCookie, nullptr));
    if (!size || !root || !place) {
        return {};
    }
    const QRect whole(place->dst_x, place->dst_y, size->width, size->height);
    const QRect seen = whole & QRect(0, 0, root->width, root->height);
    if (seen.isEmpty()) {
        return {};
    }
    const auto imageCookie = xcb_get_image(m_toolkit,
                                           XCB_IMAGE_FORMAT_Z_PIXMAP,
                                           m_connection.root(),
                                           static_cast<int16_t>(seen.x()),
                                           static_cast<int16_t>(seen.y()),
                                           static_cast<uint16_t>(seen.width()),
                                           static_cast<uint16_t>(seen.height()),
                                           ~uint32_t{0});
    const X11Reply<xcb_get_image_reply_t> image(
        xcb_get_image_reply(m_toolkit, imageCookie, nullptr));
    constexpr int bytesPerPixel = 4;
    if (!image || xcb_get_setup(m_toolkit)->image_byte_order != XCB_IMAGE_ORDER_LSB_FIRST
        || xcb_get_image_data_length(image.get()) != seen.width() * seen.height() * bytesPerPixel) {
        return {};
    }
    const QImage pixels(xcb_get_image_data(image.get()),
                        seen.width(),
                        seen.height(),
                        seen.width() * bytesPerPixel,
                        QImage::Format_RGB32);
    // The server leaves the fourth byte empty, which the conversion fills.
    return pixels.copy(QRect(whole.topLeft() - seen.topLeft(), whole.size()))
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
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
    m_focus.handle(event);
    if (m_finder) {
        m_finder->handle(event);
    }
    if (event.response_type == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        const bool isDesktop = change.atom == m_atoms[X11Atom::netCurrentDesktop]
            || change.atom == m_atoms[X11Atom::netWmDesktop];
        if (isDesktop && onDesktopChanged) {
            onDesktopChanged();
        }
    }
    const bool wasCompositing = isCompositing();
    m_compositor.handle(event);
    if (isCompositing() != wasCompositing && onCompositingChanged) {
        onCompositingChanged();
    }
}

} // namespace Tavik
