// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

namespace Tavik {

enum class WorkPriority {
    userInitiated, ///< Reads, some of them at once.
    utility, ///< Writes, one after the other.
    launch, ///< Starts of other programs, which wait for nothing else.
};

/// Runs work off the main thread on copies and hands its result back to the main thread. Main
/// thread only.
class WorkQueue
{
public:
    using Done = std::function<void()>;
    /// Runs off the main thread; what it returns runs on the main thread afterwards.
    using Job = std::function<Done()>;

    virtual ~WorkQueue() = default;

    virtual void schedule(WorkPriority priority, Job job) = 0;
    /// Gives memory that was freed back to the system, off the main thread and behind all writes.
    /// For when something large has gone; does nothing where nobody knows how.
    virtual void releaseMemory() { }
    /// For the end of the program, before what the jobs refer to goes: completes the writes and
    /// the launches, drops the reads that wait, and accepts no more. False when a read or a launch
    /// still runs after a while, held up by a dead network folder or the like: then nothing that
    /// jobs refer to may be destroyed.
    virtual bool finish() = 0;

    /// Runs `work` off the main thread, then `done` with its result on the main thread. The result
    /// must be cheap to copy (Qt's values are).
    template <typename Work, typename Finish>
    void run(WorkPriority priority, Work work, Finish done)
    {
        schedule(priority, [work = std::move(work), done = std::move(done)]() -> Done {
            return [result = work(), done] {
                done(result);
            };
        });
    }
};

} // namespace Tavik
