// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ToldWindows.h>

#include <QCoreApplication>
#include <QSet>

#include <utility>

namespace Tavik {

WindowSource::Facts ToldWindows::factsOf(WindowId window) const
{
    return m_windows.value(window).facts;
}

std::optional<QRect> ToldWindows::placeOfOwn(const QString& title)
{
    const auto found = m_ownPlaces.constFind(title);
    return found == m_ownPlaces.cend() ? std::nullopt : std::optional(*found);
}

WindowId ToldWindows::mostRecent(const QList<WindowId>& windows) const
{
    WindowId best = 0;
    quint64 bestActive = 0;
    for (const WindowId window : windows) {
        const quint64 active = m_windows.value(window).lastActive;
        if (best == 0 || active >= bestActive) {
            best = window;
            bestActive = active;
        }
    }
    return best;
}

void ToldWindows::activate(WindowId window)
{
    if (const QString name = m_windows.value(window).name; !name.isEmpty()) {
        raise(name);
    }
}

void ToldWindows::take(const QList<Window>& windows, const std::optional<QString>& active)
{
    bool hasChanged = !std::exchange(m_isReady, true);
    QSet<WindowId> existing;
    for (const Window& window : windows) {
        WindowId& id = m_ids[window.name];
        if (id == 0) {
            id = ++m_lastId;
            m_order.append(id);
            m_windows.insert(id, {.name = window.name, .facts = window.facts});
            hasChanged = true;
        } else if (Facts& known = m_windows[id].facts; known != window.facts) {
            known = window.facts;
            hasChanged = true;
        }
        existing.insert(id);
    }
    const auto isGone = [&existing](WindowId window) {
        return !existing.contains(window);
    };
    hasChanged |= m_order.removeIf(isGone) > 0;
    m_windows.removeIf([&](auto window) { return isGone(window.key()); });
    m_ids.removeIf([&](auto id) { return isGone(id.value()); });
    const WindowId before = m_active;
    const WindowId kept = isGone(m_active) ? 0 : m_active;
    setActive(active ? m_ids.value(*active) : kept);
    if (hasChanged && onWindowsChanged) {
        onWindowsChanged();
    } else if (before != m_active && onActiveWindowChanged) {
        onActiveWindowChanged();
    }
    takeOwnPlaces(windows);
}

void ToldWindows::takeOwnPlaces(const QList<Window>& windows)
{
    QHash<QString, QRect> places;
    for (const Window& window : windows) {
        if (window.facts.processId == QCoreApplication::applicationPid()
            && !window.place.isEmpty()) {
            places.insert(window.title, window.place);
        }
    }
    if (std::exchange(m_ownPlaces, places) != places && onOwnPlacesChanged) {
        onOwnPlacesChanged();
    }
}

void ToldWindows::takeActive(const QString& name)
{
    const WindowId before = m_active;
    setActive(m_ids.value(name));
    if (before != m_active && onActiveWindowChanged) {
        onActiveWindowChanged();
    }
}

void ToldWindows::lose()
{
    take({}, QString());
    if (onLost) {
        onLost();
    }
}

void ToldWindows::setActive(WindowId window)
{
    if (std::exchange(m_active, window) != window && window != 0) {
        m_windows[window].lastActive = ++m_activations;
    }
}

} // namespace Tavik
