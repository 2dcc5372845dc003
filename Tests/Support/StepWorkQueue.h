// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/WorkQueue.h>

#include <Support/Noting.h>
#include <deque>
#include <utility>

namespace Tavik::Test {

/// A work queue that the test runs piece by piece, so that every interleaving can be played.
class StepWorkQueue : public WorkQueue, public Noting
{
public:
    void schedule(WorkPriority, Job job) override
    {
        note("work");
        m_waiting.push_back(std::move(job));
    }

    void releaseMemory() override { ++released; }

    bool finish() override
    {
        m_waiting.clear();
        return true;
    }

    [[nodiscard]] std::size_t waiting() const { return m_waiting.size(); }
    /// Runs the waiting job at `position` and then its continuation.
    void runAt(std::size_t position) { finish(startAt(position)); }
    /// Runs only the part off the main thread; `finish` the rest.
    [[nodiscard]] Done startAt(std::size_t position)
    {
        const Job job = std::move(m_waiting.at(position));
        m_waiting.erase(m_waiting.begin() + static_cast<std::ptrdiff_t>(position));
        return job();
    }
    static void finish(const Done& done)
    {
        if (done) {
            done();
        }
    }
    void runAll()
    {
        while (!m_waiting.empty()) {
            runAt(0);
        }
    }

    int released = 0; ///< How often memory was to be given back.

private:
    std::deque<Job> m_waiting;
};

} // namespace Tavik::Test
