// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Shell/AppRequest.h>
#include <TavikLauncherPlatform/ProcessLock.h>

#include <functional>
#include <optional>

namespace Tavik {

/// A start's way to the one instance: it hands its request to the one that runs, or becomes it. The
/// one instance holds a lock in the user's runtime folder from its first moment to its last; one
/// that holds it and takes no request is beginning or ending, and is waited for. No request is sent
/// twice. Needs no application object.
class InstanceClaim
{
public:
    enum class Outcome {
        first, ///< We are the one, until this object goes.
        handedOver,
        silent, ///< There is one, but it neither answers nor ends.
        nobody, ///< None runs, and this start must not be it.
    };
    struct Wish
    {
        /// Absent when nothing is wanted but that a launcher runs.
        std::optional<AppRequest> request;
        bool needsRunning = false; ///< To be said to one that runs, or not at all.
        QString* answer = nullptr; ///< Where a text is expected: its place.
    };

    /// Blocks for some seconds at most.
    [[nodiscard]] Outcome settle(const Wish& wish);
    /// After `first`, where the name on the bus was taken all the same: hands the request to
    /// whoever has it, or becomes the one when `claimName` gets it after all.
    [[nodiscard]] Outcome settleOnBus(const Wish& wish, const std::function<bool()>& claimName);
    /// After a request to end: waits some seconds for it. False when the instance is still there.
    [[nodiscard]] bool awaitEnd();
    /// Lets another start be the one.
    void release() { m_lock.release(); }

private:
    [[nodiscard]] ProcessLock::Result tryLock();

    ProcessLock m_lock;
};

} // namespace Tavik
