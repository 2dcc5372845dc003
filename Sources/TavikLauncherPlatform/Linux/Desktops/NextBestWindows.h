// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/WindowSource.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <functional>
#include <memory>
#include <vector>

namespace Tavik {

/// The best list of windows that can be had: when one can tell no more, the next takes its place.
class NextBestWindows final : public WindowSource
{
public:
    /// Null where there is no such list.
    using Maker = std::function<std::unique_ptr<WindowSource>()>;

    /// The best first. `mainQueue` must outlive this.
    NextBestWindows(MainQueue& mainQueue, std::vector<Maker> makers);

    [[nodiscard]] Means runningMeans() const override { return m_windows->runningMeans(); }
    [[nodiscard]] Means raisingMeans() const override { return m_windows->raisingMeans(); }
    [[nodiscard]] std::optional<QRect> placeOfOwn(const QString& title) override;
    [[nodiscard]] bool isReady() const override { return m_windows->isReady(); }
    [[nodiscard]] bool tellsOfAll() const override { return m_windows->tellsOfAll(); }
    [[nodiscard]] QList<WindowId> windows() const override { return m_windows->windows(); }
    [[nodiscard]] Facts factsOf(WindowId window) const override;
    [[nodiscard]] WindowId activeWindow() const override { return m_windows->activeWindow(); }
    [[nodiscard]] WindowId mostRecent(const QList<WindowId>& windows) const override;
    void activate(WindowId window) override { m_windows->activate(window); }
    [[nodiscard]] LaunchTokens beginStart(const DesktopEntry& entry) override;
    void describeStart(const LaunchTokens& start, qint64 processId) override;
    void endStart(const LaunchTokens& start) override { m_windows->endStart(start); }

private:
    void takeNext();

    MainQueue& m_mainQueue;
    std::vector<Maker> m_makers; ///< Of those that are left, the best last.
    std::unique_ptr<WindowSource> m_windows; ///< Never null.
    Task m_nextTask;
};

} // namespace Tavik
