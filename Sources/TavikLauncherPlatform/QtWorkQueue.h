// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/WorkQueue.h>

#include <QObject>
#include <QThreadPool>

#include <chrono>

namespace Tavik {

/// The work queue of the running program: a small pool of threads that end when they are idle.
class QtWorkQueue final : public QObject, public WorkQueue
{
public:
    /// `releaseMemory` does what the operation of that name promises. It is also called after a
    /// long job, its continuation and the writes that this asked for. `patience` is how long
    /// `finish` waits for launches, and then for reads.
    explicit QtWorkQueue(std::function<void()> releaseMemory = {},
                         std::chrono::milliseconds patience = std::chrono::seconds(1));
    /// Waits for whatever runs.
    ~QtWorkQueue() override;
    QtWorkQueue(const QtWorkQueue&) = delete;
    QtWorkQueue& operator=(const QtWorkQueue&) = delete;

    void schedule(WorkPriority priority, Job job) override;
    void releaseMemory() override;
    bool finish() override;

protected:
    bool event(QEvent* event) override;

private:
    [[nodiscard]] QThreadPool& poolFor(WorkPriority priority);
    void start(QThreadPool& pool, std::function<void()> work);

    std::function<void()> m_releaseMemory;
    std::chrono::milliseconds m_patience;
    bool m_isFinished = false;
    QThreadPool m_reads;
    QThreadPool
        m_writes; ///< One thread, so that a later write is never overtaken by an earlier one.
    QThreadPool m_launches;
};

} // namespace Tavik
