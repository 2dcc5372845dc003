// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <functional>

namespace Tavik {

class SessionLock;

/// Keeps the ring away from a locked screen, and from one where another program has the whole input
/// so that the ring could not be used.
class ScreenGuard
{
public:
    ScreenGuard(const SessionLock& lock, MainQueue& mainQueue);

    /// For a trigger, which means now or never.
    [[nodiscard]] bool isFree() const;
    /// For a choice made elsewhere: the menu it was made in may still be about to give the input
    /// back. Runs `action` now, or as soon as the screen is free within a second, or never. A new
    /// choice takes the place of one that waits.
    void whenFree(std::function<void()> action);

private:
    void attempt(std::function<void()> action, int furtherAttempts);

    const SessionLock& m_lock;
    MainQueue& m_mainQueue;
    Task m_wait;
};

} // namespace Tavik
