// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Shell/InstanceSocket.h>

#include <QObject>
#include <QString>

#include <functional>

class QDBusConnection;

namespace Tavik {

/// The actions by which other programs steer this one, named as on the command line without the
/// dashes and as in `org.freedesktop.Application`.
enum class AppAction {
    activate, ///< A plain second start.
    showLauncher,
    toggleLauncher,
    hideLauncher,
    quit,
};

/// The action's name on the bus; empty for `activate`.
[[nodiscard]] QString actionName(AppAction action);

/// One instance per user: owns the well-known name on the session bus and answers
/// `org.freedesktop.Application` there. Without a session bus a local socket does the same.
class SingleInstance final : public QObject
{
    Q_OBJECT

public:
    enum class Claim {
        first,
        taken, ///< Another instance has the name.
    };

    using QObject::QObject;

    /// Asks for the name; on `first`, `onAction` is called from then on.
    [[nodiscard]] Claim claim();
    /// Hands the action to the instance that runs. False when none answers. Needs no application
    /// object.
    [[nodiscard]] static bool forward(AppAction action);

    std::function<void(AppAction)> onAction;

private:
    static bool forwardOverBus(AppAction action);
    static bool call(const QDBusConnection& bus, AppAction action);
    [[nodiscard]] Claim claimSocket();
    void perform(const QString& name);

    InstanceSocket m_socket;
};

} // namespace Tavik
