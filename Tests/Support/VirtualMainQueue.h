// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <QtGlobal>

#include <deque>
#include <map>

namespace Tavik::Test {

/// A main queue on a clock that the test turns: nothing sleeps, everything is in order.
class VirtualMainQueue final : public MainQueue
{
public:
    void post(std::function<void()> closure) override;
    [[nodiscard]] Task after(double seconds, std::function<void()> closure) override;
    [[nodiscard]] Task every(double seconds, std::function<void()> closure) override;
    [[nodiscard]] double systemUptime() const override { return m_now; }

    /// Runs everything posted and everything due within the next `seconds`, in order of time.
    void advance(double seconds);
    /// Runs what has been posted, and what that posts.
    void drain();
    /// How many delayed or repeating closures wait.
    [[nodiscard]] int pendingTasks() const;

private:
    friend class VirtualTask;
    struct Entry
    {
        double due = 0;
        double interval = 0; ///< 0 when it runs once.
        std::function<void()> closure;
    };
    Task add(double seconds, double interval, std::function<void()> closure);

    double m_now = 1000;
    quint64 m_nextId = 1;
    std::deque<std::function<void()>> m_posted;
    std::map<quint64, Entry> m_entries;
};

} // namespace Tavik::Test
