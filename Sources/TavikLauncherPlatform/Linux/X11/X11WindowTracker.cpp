// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11StartupNotification.h>
#include <TavikLauncherPlatform/Linux/X11/X11WindowTracker.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QCoreApplication>
#include <QSysInfo>

#include <algorithm>
#include <utility>

namespace Tavik {

namespace {

/// Windows change what they say in bursts; each burst is read once.
constexpr double factsSettleSeconds = 0.05;
/// Between two windows the focus belongs to none for a moment.
constexpr double inactiveSeconds = 0.15;

} // namespace

X11WindowTracker::X11WindowTracker(MainQueue& mainQueue, bool isXwayland)
    : m_mainQueue(mainQueue)
    , m_isXwayland(isXwayland)
    , m_atoms(m_connection.get(), m_connection.screenNumber())
    , m_pump(
          m_connection,
          m_atoms[X11Atom::tavikClock],
          [this](const xcb_generic_event_t& event) { handle(event); },
          [this] { finishBatch(); })
{
    if (m_connection.isBroken()) {
        return;
    }
    const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK, &mask);
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data;
    m_desktopSize = {screen->width_in_pixels, screen->height_in_pixels};
    readWindows();
    // What is on top was most likely used last.
    const QList<xcb_window_t> stacking = X11Properties::windowList(
        m_connection.get(), m_connection.root(), m_atoms[X11Atom::netClientListStacking]);
    for (const xcb_window_t window : stacking) {
        if (const auto found = m_tracked.find(window); found != m_tracked.end()) {
            found->lastActive = ++m_activations;
        }
    }
    readActiveWindow();
    m_pump.drainSoon();
}

Means X11WindowTracker::runningMeans() const
{
    Means means{.way = Texts::tr("The window manager lists its windows.")};
    if (m_isXwayland) {
        means.lack = Texts::tr("Programs other than X11's are seen to run only by their name on "
                               "the session bus or their systemd unit.");
    } else if (X11Properties::firstWindow(
                   m_connection.get(), m_connection.root(), m_atoms[X11Atom::netSupportingWmCheck])
               == XCB_NONE) {
        means.lack = Texts::tr("No window manager runs, or an old one that lists none.");
    }
    // The answer may have come with events.
    m_pump.drainSoon();
    return means;
}

Means X11WindowTracker::raisingMeans() const
{
    return {.way = Texts::tr("A request to the window manager."),
            .lack = m_isXwayland ? Texts::tr("Programs other than X11's are started once more, "
                                             "unless they have a name on the session bus.")
                                 : runningMeans().lack};
}

WindowSource::Facts X11WindowTracker::factsOf(WindowId window) const
{
    const auto found = m_tracked.constFind(static_cast<xcb_window_t>(window));
    return found == m_tracked.cend() ? Facts() : Facts(found->facts);
}

WindowId X11WindowTracker::mostRecent(const QList<WindowId>& windows) const
{
    WindowId best = 0;
    quint64 bestActive = 0;
    for (const WindowId window : windows) {
        const auto found = m_tracked.constFind(static_cast<xcb_window_t>(window));
        const quint64 active = found == m_tracked.cend() ? 0 : found->lastActive;
        if (best == 0 || active >= bestActive) {
            best = window;
            bestActive = active;
        }
    }
    return best;
}

QRect X11WindowTracker::availableArea(const QRect& screen) const
{
    QList<X11WindowFacts> reserving;
    for (const Tracked& tracked : m_tracked) {
        if (!tracked.facts.strut.isNull()) {
            reserving.append(tracked.facts);
        }
    }
    return X11Properties::availableArea(screen, m_desktopSize, reserving);
}

std::optional<QPoint> X11WindowTracker::focusedPoint()
{
    if (m_activeWindow == XCB_NONE) {
        return std::nullopt;
    }
    xcb_connection_t* connection = m_connection.get();
    const auto geometryCookie = xcb_get_geometry(connection, m_activeWindow);
    const auto originCookie
        = xcb_translate_coordinates(connection, m_activeWindow, m_connection.root(), 0, 0);
    const X11Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, geometryCookie, nullptr));
    const X11Reply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(connection, originCookie, nullptr));
    m_pump.drainSoon();
    if (!geometry || !origin) {
        return std::nullopt;
    }
    return QPoint(origin->dst_x + geometry->width / 2, origin->dst_y + geometry->height / 2);
}

void X11WindowTracker::activate(WindowId window)
{
    xcb_connection_t* connection = m_connection.get();
    const xcb_window_t root = m_connection.root();
    const auto target = static_cast<xcb_window_t>(window);
    X11PropertyQuery wanted(connection, target, m_atoms[X11Atom::netWmDesktop]);
    X11PropertyQuery current(connection, root, m_atoms[X11Atom::netCurrentDesktop]);
    const QList<uint32_t> desktop = wanted.numbers();
    const xcb_timestamp_t time = m_pump.serverTime();
    // Several window managers only mark a window of another desktop as wanting attention.
    if (!desktop.isEmpty() && desktop.first() != X11Properties::allDesktops
        && desktop != current.numbers()) {
        sendToWindowManager(connection,
                            root,
                            root,
                            m_atoms[X11Atom::netCurrentDesktop],
                            {desktop.first(), time, 0, 0, 0});
    }
    requestFocus(connection, root, m_atoms, target, time);
    m_pump.drainSoon();
}

LaunchTokens X11WindowTracker::beginStart(const DesktopEntry& entry)
{
    const xcb_timestamp_t time = m_pump.serverTime();
    const QByteArray id = "tavik-launcher-" + QByteArray::number(QCoreApplication::applicationPid())
        + '-' + QByteArray::number(++m_starts) + "_TIME" + QByteArray::number(time);
    // Who cannot take part says so; everybody else may, or is told apart by the window's class.
    if (entry.notification != DesktopEntry::Notification::refused) {
        m_announced.insert(id);
        const QString name = entry.name.isEmpty() ? entry.path.section(u'/', -1) : entry.name;
        const QByteArray desktop = QByteArray::number(
            X11PropertyQuery(
                m_connection.get(), m_connection.root(), m_atoms[X11Atom::netCurrentDesktop])
                .numbers()
                .value(0));
        X11StartupNotification::tell(m_connection.get(),
                                     m_connection.root(),
                                     "new",
                                     id,
                                     {{"NAME", name.toUtf8()},
                                      {"SCREEN", QByteArray::number(m_connection.screenNumber())},
                                      {"BIN", entry.program.toString().section(u'/', -1).toUtf8()},
                                      {"ICON", entry.icon.toString().toUtf8()},
                                      {"DESKTOP", desktop},
                                      {"TIMESTAMP", QByteArray::number(time)},
                                      {"WMCLASS", entry.startupClass.toString().toUtf8()},
                                      {"APPLICATION_ID", entry.path.toUtf8()}});
        m_pump.drainSoon();
    }
    return {.startupId = id, .activationToken = id};
}

void X11WindowTracker::describeStart(const LaunchTokens& start, qint64 processId)
{
    if (m_announced.contains(start.startupId)) {
        X11StartupNotification::tell(m_connection.get(),
                                     m_connection.root(),
                                     "change",
                                     start.startupId,
                                     {{"PID", QByteArray::number(processId)},
                                      {"HOSTNAME", QSysInfo::machineHostName().toUtf8()}});
    }
}

void X11WindowTracker::endStart(const LaunchTokens& start)
{
    if (m_announced.remove(start.startupId)) {
        X11StartupNotification::complete(m_connection.get(), m_connection.root(), start.startupId);
    }
}

void X11WindowTracker::handle(const xcb_generic_event_t& event)
{
    switch (x11EventType(event.response_type)) {
    case XCB_PROPERTY_NOTIFY:
        handleProperty(reinterpret_cast<const xcb_property_notify_event_t&>(event));
        break;
    case XCB_CONFIGURE_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
        if (change.window == m_connection.root()) {
            m_desktopSize = {change.width, change.height};
        }
        break;
    }
    default:
        break;
    }
}

void X11WindowTracker::handleProperty(const xcb_property_notify_event_t& change)
{
    if (change.window == m_connection.root()) {
        m_windowListChanged |= change.atom == m_atoms[X11Atom::netClientList];
        m_activeChanged |= change.atom == m_atoms[X11Atom::netActiveWindow];
    } else if (m_tracked.contains(change.window) && X11Properties::isFact(m_atoms, change.atom)) {
        m_dirty.insert(change.window);
        if (!m_dirtyTask.isActive()) {
            m_dirtyTask = m_mainQueue.after(factsSettleSeconds, [this] { readDirtyFacts(); });
        }
    }
}

void X11WindowTracker::finishBatch()
{
    if (std::exchange(m_windowListChanged, false)) {
        readWindows();
        if (onWindowsChanged) {
            onWindowsChanged();
        }
    }
    if (std::exchange(m_activeChanged, false)) {
        readActiveWindow();
    }
}

void X11WindowTracker::readWindows()
{
    const QList<xcb_window_t> listed = X11Properties::windowList(
        m_connection.get(), m_connection.root(), m_atoms[X11Atom::netClientList]);
    const QSet<xcb_window_t> existing(listed.begin(), listed.end());
    m_order.removeIf(
        [&](WindowId window) { return !existing.contains(static_cast<xcb_window_t>(window)); });
    m_tracked.removeIf([&](auto tracked) { return !existing.contains(tracked.key()); });

    QList<xcb_window_t> added;
    for (const xcb_window_t window : listed) {
        if (!m_tracked.contains(window)) {
            m_tracked.insert(window, {});
            m_order.append(window);
            added.append(window);
            // Before the properties are read, so that no change falls between the two.
            const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
            xcb_change_window_attributes(m_connection.get(), window, XCB_CW_EVENT_MASK, &mask);
        }
    }
    const QList<X11WindowFacts> facts = X11Properties::facts(m_connection.get(), m_atoms, added);
    for (qsizetype i = 0; i < added.size(); ++i) {
        m_tracked[added.at(i)].facts = facts.at(i);
    }
    m_pump.drainSoon();
}

void X11WindowTracker::readDirtyFacts()
{
    QList<xcb_window_t> windows;
    for (const xcb_window_t window : std::exchange(m_dirty, {})) {
        if (m_tracked.contains(window)) {
            windows.append(window);
        }
    }
    const QList<X11WindowFacts> facts = X11Properties::facts(m_connection.get(), m_atoms, windows);
    bool changed = false;
    for (qsizetype i = 0; i < windows.size(); ++i) {
        X11WindowFacts& known = m_tracked[windows.at(i)].facts;
        changed |= known != facts.at(i);
        known = facts.at(i);
    }
    m_pump.drainSoon();
    if (changed && onWindowsChanged) {
        onWindowsChanged();
    }
}

void X11WindowTracker::readActiveWindow()
{
    const xcb_window_t window = X11Properties::firstWindow(
        m_connection.get(), m_connection.root(), m_atoms[X11Atom::netActiveWindow]);
    m_pump.drainSoon();
    if (window != XCB_NONE) {
        m_inactiveTask.cancel();
        setActiveWindow(window);
    } else if (m_activeWindow != XCB_NONE && !m_inactiveTask.isActive()) {
        m_inactiveTask = m_mainQueue.after(inactiveSeconds, [this] { setActiveWindow(XCB_NONE); });
    }
}

void X11WindowTracker::setActiveWindow(xcb_window_t window)
{
    if (const auto found = m_tracked.find(window); found != m_tracked.end()) {
        found->lastActive = ++m_activations;
    }
    if (std::exchange(m_activeWindow, window) != window && onActiveWindowChanged) {
        onActiveWindowChanged();
    }
}

} // namespace Tavik
