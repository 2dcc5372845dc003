// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Shell/InstanceBus.h>
#include <TavikLauncher/Shell/InstanceSocket.h>

#include <functional>

namespace Tavik {

/// What other programs reach of the instance that runs: its socket and its name on the session bus,
/// each of which may be missing. Needs the application object.
class SingleInstance
{
public:
    SingleInstance() = default;
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// `onRequest` is called from then on. False when another instance has the name on the bus:
    /// one with a runtime folder of its own.
    [[nodiscard]] bool listen();
    /// The end has begun: nothing is taken any more, and the next start may have the name.
    void giveUp();

    std::function<void(const AppRequest&)> onRequest;
    /// Answers who asks how this desktop serves.
    std::function<QString()> onCheckDesktop;

private:
    void perform(const AppRequest& request) const;

    InstanceSocket m_socket;
    InstanceBus m_bus;
};

} // namespace Tavik
