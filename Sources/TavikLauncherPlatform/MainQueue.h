// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace Tavik {

/// A delayed or repeating closure. Destroying or reassigning the handle cancels it; once it has
/// been cancelled the closure never runs. May be destroyed from inside its own closure.
class Task
{
public:
    /// What an implementation keeps behind a handle; destroying it cancels.
    class Impl
    {
    public:
        virtual ~Impl() = default;
        [[nodiscard]] virtual bool isActive() const = 0;
    };

    Task() = default;
    explicit Task(std::unique_ptr<Impl> impl)
        : m_impl(std::move(impl))
    { }

    void cancel() { m_impl.reset(); }
    /// True while the closure is still to run (again).
    [[nodiscard]] bool isActive() const { return m_impl && m_impl->isActive(); }

private:
    std::unique_ptr<Impl> m_impl;
};

/// The main thread's run loop and clock: the only source of time and delay. Main thread only, but
/// for `post`, which may be called from any thread.
class MainQueue
{
public:
    virtual ~MainQueue() = default;

    /// Runs `closure` on the next turn of the main loop.
    virtual void post(std::function<void()> closure) = 0;
    /// Runs `closure` once, `seconds` from now.
    [[nodiscard]] virtual Task after(double seconds, std::function<void()> closure) = 0;
    /// Runs `closure` every `seconds`, first `seconds` from now.
    [[nodiscard]] virtual Task every(double seconds, std::function<void()> closure) = 0;
    /// Seconds since the system started, monotonic; the clock of the input events' time stamps.
    [[nodiscard]] virtual double systemUptime() const = 0;
};

} // namespace Tavik
