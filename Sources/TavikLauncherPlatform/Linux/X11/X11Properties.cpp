// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/X11/X11ClientProcesses.h>
#include <TavikLauncherPlatform/Linux/X11/X11Properties.h>

#include <QSysInfo>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace Tavik {

namespace X11Properties {

namespace {

constexpr uint32_t longestText = 128; // In units of four bytes.
constexpr uint32_t mostNumbers = 64;
constexpr uint32_t mostWindows = 1024;
constexpr std::size_t wantedCount = 11;

enum class Form {
    text,
    numbers,
};

struct Wanted
{
    xcb_atom_t property = XCB_ATOM_NONE;
    Form form = Form::text;
};

/// In the order in which `factsFrom` takes them.
std::array<Wanted, wantedCount> wantedProperties(const X11Atoms& atoms)
{
    return {{
        {XCB_ATOM_WM_CLASS, Form::text},
        {XCB_ATOM_WM_CLIENT_MACHINE, Form::text},
        {atoms[X11Atom::gtkApplicationId], Form::text},
        {atoms[X11Atom::kdeDesktopFile], Form::text},
        {atoms[X11Atom::bamfDesktopFile], Form::text},
        {atoms[X11Atom::netWmPid], Form::numbers},
        {atoms[X11Atom::netWmState], Form::numbers},
        {atoms[X11Atom::netWmWindowType], Form::numbers},
        {atoms[X11Atom::netWmStrut], Form::numbers},
        {atoms[X11Atom::netWmStrutPartial], Form::numbers},
        {atoms[X11Atom::netStartupId], Form::text},
    }};
}

using PropertyReply = X11Reply<xcb_get_property_reply_t>;

QByteArray textOf(const PropertyReply& reply)
{
    if (!reply || reply->format != 8) {
        return {};
    }
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

std::span<const uint32_t> numbersOf(const PropertyReply& reply, xcb_atom_t type)
{
    if (!reply || reply->format != 32 || reply->type != type) {
        return {};
    }
    return {static_cast<const uint32_t*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))
                / sizeof(uint32_t)};
}

/// Up to the first zero byte, and nothing that is not text.
QString cleanText(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes.left(bytes.indexOf('\0')));
    return text.contains(QChar::ReplacementCharacter) ? QString() : text.trimmed();
}

bool isOnThisMachine(const QByteArray& machine)
{
    const QString name = cleanText(machine + '\0');
    const QString here = QSysInfo::machineHostName();
    return name.isEmpty() || name == here || name == QLatin1String("localhost")
        || name.section(u'.', 0, 0) == here.section(u'.', 0, 0);
}

bool isTaskbarType(const X11Atoms& atoms, std::span<const uint32_t> types)
{
    if (types.empty()) {
        return true;
    }
    // A window may name several types, the best first; one that nobody knows counts as none.
    return std::ranges::any_of(types, [&](xcb_atom_t type) {
        return type == atoms[X11Atom::netWmWindowTypeNormal]
            || type == atoms[X11Atom::netWmWindowTypeDialog];
    });
}

int bounded(uint32_t number)
{
    return static_cast<int>(std::min<uint32_t>(number, std::numeric_limits<int16_t>::max()));
}

void takeStrut(std::span<const uint32_t> plain,
               std::span<const uint32_t> partial,
               X11WindowFacts& facts)
{
    const std::span<const uint32_t> strut = partial.size() >= 12 ? partial : plain;
    if (strut.size() < 4) {
        return;
    }
    // The order of the property: left, right, top, bottom, then start and end for each.
    facts.strut = {bounded(strut[0]), bounded(strut[2]), bounded(strut[1]), bounded(strut[3])};
    constexpr int end = std::numeric_limits<int16_t>::max();
    facts.strutEnd = {end, end, end, end};
    if (strut.size() >= 12) {
        facts.strutStart
            = {bounded(strut[4]), bounded(strut[8]), bounded(strut[6]), bounded(strut[10])};
        facts.strutEnd
            = {bounded(strut[5]), bounded(strut[9]), bounded(strut[7]), bounded(strut[11])};
    }
}

X11WindowFacts factsFrom(const X11Atoms& atoms, std::span<const PropertyReply> replies)
{
    X11WindowFacts facts;
    const QByteArray names = textOf(replies[0]);
    const qsizetype between = names.indexOf('\0');
    facts.clues.instanceName = cleanText(names + '\0');
    facts.clues.className = between < 0 ? QString() : cleanText(names.mid(between + 1) + '\0');
    for (const std::size_t hint : {2U, 3U, 4U}) {
        const QString id = cleanText(textOf(replies[hint]) + '\0');
        if (!id.isEmpty()) {
            facts.clues.applicationId = id;
            break;
        }
    }
    const auto processId = numbersOf(replies[5], XCB_ATOM_CARDINAL);
    if (!processId.empty() && processId[0] <= std::numeric_limits<int32_t>::max()
        && isOnThisMachine(textOf(replies[1]))) {
        facts.processId = processId[0];
    }
    const auto states = numbersOf(replies[6], XCB_ATOM_ATOM);
    const auto types = numbersOf(replies[7], XCB_ATOM_ATOM);
    facts.isOnTaskbar = isTaskbarType(atoms, types)
        && std::ranges::find(states, atoms[X11Atom::netWmStateSkipTaskbar]) == states.end();
    facts.clues.startupId = cleanText(textOf(replies[10]) + '\0').toUtf8();
    takeStrut(
        numbersOf(replies[8], XCB_ATOM_CARDINAL), numbersOf(replies[9], XCB_ATOM_CARDINAL), facts);
    return facts;
}

} // namespace

bool isFact(const X11Atoms& atoms, xcb_atom_t property)
{
    const auto wanted = wantedProperties(atoms);
    return std::ranges::find(wanted, property, &Wanted::property) != wanted.end();
}

QList<X11WindowFacts>
facts(xcb_connection_t* connection, const X11Atoms& atoms, const QList<xcb_window_t>& windows)
{
    const auto wanted = wantedProperties(atoms);
    X11ClientProcesses processes(connection, windows);
    std::vector<xcb_get_property_cookie_t> cookies;
    cookies.reserve(static_cast<std::size_t>(windows.size()) * wanted.size());
    for (const xcb_window_t window : windows) {
        for (const Wanted& property : wanted) {
            const uint32_t longest = property.form == Form::text ? longestText : mostNumbers;
            cookies.push_back(xcb_get_property(
                connection, 0, window, property.property, XCB_GET_PROPERTY_TYPE_ANY, 0, longest));
        }
    }
    QList<X11WindowFacts> result;
    result.reserve(windows.size());
    std::array<PropertyReply, wantedCount> replies;
    auto cookie = cookies.cbegin();
    for (qsizetype i = 0; i < windows.size(); ++i) {
        for (PropertyReply& reply : replies) {
            reply.reset(xcb_get_property_reply(connection, *cookie++, nullptr));
        }
        // A window that has gone meanwhile answers with errors only and is no one's.
        result.append(replies[0] ? factsFrom(atoms, replies) : X11WindowFacts());
        qint64& processId = result.last().processId;
        processId = processIdOutside(processId, processes.next());
    }
    return result;
}

QList<uint32_t> numbers(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property)
{
    return X11PropertyQuery(connection, window, property).numbers();
}

QList<xcb_window_t>
windowList(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property)
{
    const PropertyReply reply(xcb_get_property_reply(
        connection,
        xcb_get_property(connection, 0, window, property, XCB_ATOM_WINDOW, 0, mostWindows),
        nullptr));
    const auto windows = numbersOf(reply, XCB_ATOM_WINDOW);
    return {windows.begin(), windows.end()};
}

xcb_window_t firstWindow(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property)
{
    return X11PropertyQuery(connection, window, property).firstWindow();
}

QByteArray windowManagerName(xcb_connection_t* connection, xcb_window_t root, const X11Atoms& atoms)
{
    const xcb_window_t manager
        = firstWindow(connection, root, atoms[X11Atom::netSupportingWmCheck]);
    const PropertyReply name(xcb_get_property_reply(connection,
                                                    xcb_get_property(connection,
                                                                     0,
                                                                     manager,
                                                                     atoms[X11Atom::netWmName],
                                                                     XCB_GET_PROPERTY_TYPE_ANY,
                                                                     0,
                                                                     longestText),
                                                    nullptr));
    return textOf(name);
}

bool isOnCurrentDesktop(xcb_connection_t* connection,
                        xcb_window_t root,
                        const X11Atoms& atoms,
                        xcb_window_t window)
{
    X11PropertyQuery current(connection, root, atoms[X11Atom::netCurrentDesktop]);
    X11PropertyQuery own(connection, window, atoms[X11Atom::netWmDesktop]);
    const QList<uint32_t> here = current.numbers();
    const QList<uint32_t> desktop = own.numbers();
    // Where nobody tells there is one desktop.
    return here.isEmpty() || desktop.isEmpty() || desktop.constFirst() == here.constFirst()
        || desktop.constFirst() == allDesktops;
}

QRect availableArea(const QRect& screen, const QSize& desktop, const QList<X11WindowFacts>& windows)
{
    QRect area = screen;
    const auto crosses = [](int start, int end, int first, int last) {
        return start <= last && end >= first;
    };
    for (const X11WindowFacts& window : windows) {
        const QMargins& strut = window.strut;
        const QMargins& start = window.strutStart;
        const QMargins& end = window.strutEnd;
        if (strut.left() > screen.left() && strut.left() <= screen.right()
            && crosses(start.left(), end.left(), screen.top(), screen.bottom())) {
            area.setLeft(std::max(area.left(), strut.left()));
        }
        if (const int right = desktop.width() - strut.right(); strut.right() > 0
            && right > screen.left() && right <= screen.right()
            && crosses(start.right(), end.right(), screen.top(), screen.bottom())) {
            area.setRight(std::min(area.right(), right - 1));
        }
        if (strut.top() > screen.top() && strut.top() <= screen.bottom()
            && crosses(start.top(), end.top(), screen.left(), screen.right())) {
            area.setTop(std::max(area.top(), strut.top()));
        }
        if (const int bottom = desktop.height() - strut.bottom(); strut.bottom() > 0
            && bottom > screen.top() && bottom <= screen.bottom()
            && crosses(start.bottom(), end.bottom(), screen.left(), screen.right())) {
            area.setBottom(std::min(area.bottom(), bottom - 1));
        }
    }
    return area.isEmpty() ? screen : area;
}

} // namespace X11Properties

X11PropertyQuery::X11PropertyQuery(xcb_connection_t* connection,
                                   xcb_window_t window,
                                   xcb_atom_t property)
    : m_connection(connection)
    , m_cookie(xcb_get_property(connection,
                                0,
                                window,
                                property,
                                XCB_GET_PROPERTY_TYPE_ANY,
                                0,
                                X11Properties::mostNumbers))
{ }

X11PropertyQuery::~X11PropertyQuery()
{
    xcb_discard_reply(m_connection, m_cookie.sequence);
}

X11Reply<xcb_get_property_reply_t> X11PropertyQuery::answer()
{
    return X11Reply<xcb_get_property_reply_t>(
        xcb_get_property_reply(m_connection, std::exchange(m_cookie, {}), nullptr));
}

QList<uint32_t> X11PropertyQuery::numbers()
{
    const auto reply = answer();
    const auto values
        = reply ? X11Properties::numbersOf(reply, reply->type) : std::span<const uint32_t>();
    return {values.begin(), values.end()};
}

xcb_window_t X11PropertyQuery::firstWindow()
{
    const auto reply = answer();
    const auto windows = X11Properties::numbersOf(reply, XCB_ATOM_WINDOW);
    return windows.empty() ? xcb_window_t{XCB_NONE} : windows.front();
}

} // namespace Tavik
