// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/ScreenGuard.h>
#include <TavikLauncherPlatform/SessionLock.h>

#include <utility>

namespace Tavik {

namespace {

constexpr double attemptSeconds = 0.05;
constexpr int furtherAttempts = 20;

} // namespace

ScreenGuard::ScreenGuard(const SessionLock& lock, MainQueue& mainQueue)
    : m_lock(lock)
    , m_mainQueue(mainQueue)
{ }

bool ScreenGuard::isFree() const
{
    return !m_lock.isLocked() && !m_lock.isInputTaken();
}

void ScreenGuard::whenFree(std::function<void()> action)
{
    m_wait.cancel();
    attempt(std::move(action), furtherAttempts);
}

void ScreenGuard::attempt(std::function<void()> action, int furtherAttempts)
{
    if (isFree()) {
        action();
    } else if (furtherAttempts > 0 && !m_lock.isLocked()) {
        m_wait = m_mainQueue.after(attemptSeconds,
                                   [this, action = std::move(action), furtherAttempts]() mutable {
                                       attempt(std::move(action), furtherAttempts - 1);
                                   });
    }
}

} // namespace Tavik
