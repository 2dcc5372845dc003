// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/NextBestWindows.h>

#include <algorithm>
#include <utility>

namespace Tavik {

NextBestWindows::NextBestWindows(MainQueue& mainQueue, std::vector<Maker> makers)
    : m_mainQueue(mainQueue)
    , m_makers(std::move(makers))
{
    std::ranges::reverse(m_makers);
    takeNext();
}

void NextBestWindows::takeNext()
{
    std::unique_ptr<WindowSource> next;
    while (!next && !m_makers.empty()) {
        const Maker make = std::move(m_makers.back());
        m_makers.pop_back();
        next = make();
    }
    m_windows = next ? std::move(next) : std::make_unique<NoWindows>();
    m_windows->onWindowsChanged = [this] {
        if (onWindowsChanged) {
            onWindowsChanged();
        }
    };
    m_windows->onActiveWindowChanged = [this] {
        if (onActiveWindowChanged) {
            onActiveWindowChanged();
        }
    };
    m_windows->onOwnPlacesChanged = [this] {
        if (onOwnPlacesChanged) {
            onOwnPlacesChanged();
        }
    };
    m_windows->onLost = [this] {
        // It is still at work.
        m_nextTask = m_mainQueue.after(0, [this] {
            takeNext();
            m_windows->onWindowsChanged();
        });
    };
}

std::optional<QRect> NextBestWindows::placeOfOwn(const QString& title)
{
    return m_windows->placeOfOwn(title);
}

WindowSource::Facts NextBestWindows::factsOf(WindowId window) const
{
    return m_windows->factsOf(window);
}

WindowId NextBestWindows::mostRecent(const QList<WindowId>& windows) const
{
    return m_windows->mostRecent(windows);
}

LaunchTokens NextBestWindows::beginStart(const DesktopEntry& entry)
{
    return m_windows->beginStart(entry);
}

void NextBestWindows::describeStart(const LaunchTokens& start, qint64 processId)
{
    m_windows->describeStart(start, processId);
}

} // namespace Tavik
