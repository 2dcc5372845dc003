// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

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

/// Asks what the system runs for it. Nothing is loaded before the first question.
class SystemNetworkState final : public NetworkState
{
public:
    [[nodiscard]] bool isOnline() override;

private:
    void load();

    bool m_isLoaded = false;
    QObject m_context;
};

} // namespace Tavik
