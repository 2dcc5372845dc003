// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/InstanceBus.h>
#include <TavikLauncher/Shell/InstanceClaim.h>
#include <TavikLauncher/Shell/InstanceSocket.h>
#include <TavikLauncher/Shell/RuntimeFolder.h>
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>

#include <QDeadlineTimer>
#include <QThread>

namespace Tavik {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// More than a start or an end takes on a slow computer.
constexpr auto patience = 8s;
constexpr unsigned long pauseMilliseconds = 20;

InstanceClaim::Outcome outcome(InstanceAnswer answer)
{
    using enum InstanceClaim::Outcome;
    switch (answer) {
    case InstanceAnswer::given:
        return handedOver;
    case InstanceAnswer::silent:
        return silent;
    case InstanceAnswer::none:
        break;
    }
    return nobody;
}

/// Repeats `attempt` until it returns true; false when it never did in time.
template <typename Attempt> bool retry(const Attempt& attempt)
{
    const QDeadlineTimer deadline(patience);
    while (!attempt()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(pauseMilliseconds);
    }
    return true;
}

} // namespace

InstanceClaim::Outcome InstanceClaim::settle(const Wish& wish)
{
    Outcome result = Outcome::silent;
    const QString line = wish.request ? lineOf(*wish.request) : QString();
    retry([&] {
        result = outcome(InstanceSocket::send(line, wish.answer));
        if (result != Outcome::nobody) {
            return true;
        }
        const ProcessLock::Result lock = tryLock();
        if (lock == ProcessLock::Result::busy) {
            result = Outcome::silent;
            return false;
        }
        if (wish.needsRunning) {
            m_lock.release();
        }
        // Here the bus is asked for the first time, before anything of the toolkit's waits for it.
        SessionBus::forgetIfMute();
        result = wish.needsRunning ? outcome(InstanceBus::send(*wish.request, wish.answer))
                                   : Outcome::first;
        return true;
    });
    return result;
}

InstanceClaim::Outcome InstanceClaim::settleOnBus(const Wish& wish,
                                                  const std::function<bool()>& claimName)
{
    Outcome result = Outcome::handedOver;
    retry([&] {
        if (wish.request) {
            result = outcome(InstanceBus::send(*wish.request));
        }
        if (result == Outcome::nobody && claimName()) {
            result = Outcome::first;
        }
        return result != Outcome::nobody;
    });
    return result;
}

bool InstanceClaim::awaitEnd()
{
    const bool isFree = retry([this] { return tryLock() != ProcessLock::Result::busy; });
    m_lock.release();
    return isFree;
}

ProcessLock::Result InstanceClaim::tryLock()
{
    const std::optional<QString> path = RuntimeFolder::path(u"tavik-launcher.lock"_s);
    return path ? m_lock.tryToTake(*path) : ProcessLock::Result::unavailable;
}

} // namespace Tavik
