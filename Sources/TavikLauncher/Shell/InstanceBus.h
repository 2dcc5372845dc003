// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Shell/AppRequest.h>

#include <QObject>

#include <functional>

namespace Tavik {

/// The instance's name on the session bus, and `org.freedesktop.Application` there.
class InstanceBus final : public QObject
{
    Q_OBJECT

public:
    enum class Claim {
        first,
        taken, ///< Another instance has the name.
        unavailable, ///< There is no bus, or it gives us no name.
    };

    using QObject::QObject;
    /// Gives the name up.
    ~InstanceBus() override;
    InstanceBus(const InstanceBus&) = delete;
    InstanceBus& operator=(const InstanceBus&) = delete;

    /// Asks for the name; on `first`, `onRequest` is called from then on.
    [[nodiscard]] Claim claim();
    /// The next start may have the name; calls that have not been answered are refused.
    void giveUp();

    /// Hands the action to the instance that has the name; with a place for it, the answer of
    /// `onCheckDesktop` is asked for instead. Blocks for a few seconds at most. Needs no
    /// application object.
    [[nodiscard]] static InstanceAnswer send(const AppRequest& request, QString* text = nullptr);

    std::function<void(const AppRequest&)> onRequest;
    std::function<QString()> onCheckDesktop;

private:
    bool m_hasName = false;
};

} // namespace Tavik
