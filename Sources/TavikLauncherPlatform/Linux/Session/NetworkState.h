// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

struct _GNetworkMonitor;

namespace Tavik {

/// Whether this computer is connected to a network. Main thread only.
class NetworkState
{
public:
    virtual ~NetworkState() = default;

    /// True also when nothing in the system can tell.
    [[nodiscard]] virtual bool isOnline() = 0;

    /// Called when it may have changed, once `isOnline` has been asked.
    std::function<void()> onChange;
};

/// Asks what the system runs for it, which is not started before the first question.
class SystemNetworkState final : public NetworkState
{
public:
    SystemNetworkState() = default;
    ~SystemNetworkState() override;
    SystemNetworkState(const SystemNetworkState&) = delete;
    SystemNetworkState& operator=(const SystemNetworkState&) = delete;

    [[nodiscard]] bool isOnline() override;

private:
    _GNetworkMonitor* m_monitor = nullptr; ///< Everybody's in this process.
    unsigned long m_listener = 0;
};

} // namespace Tavik
