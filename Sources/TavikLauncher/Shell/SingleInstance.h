// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Shell/InstanceSocket.h>
#include <TavikLauncherPlatform/WindowServer.h>

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
    settings, ///< With a section's identifier, or none.
    reindex,
    tour,
    checkForUpdates,
    quit,
};

/// What another program wants done, and an argument where the action takes one.
struct AppRequest
{
    AppAction action = AppAction::activate;
    QString argument;
    Activation activation{}; ///< What the desktop gave along.

    bool operator==(const AppRequest&) const = default;
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
    /// Gives the name up: the next start is the first again.
    ~SingleInstance() override;
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Asks for the name; on `first`, `onRequest` is called from then on.
    [[nodiscard]] Claim claim();
    /// Hands the action to the instance that runs. False when none answers. Needs no application
    /// object.
    [[nodiscard]] static bool forward(const AppRequest& request);
    /// After `taken`: hands the action to the instance that has the name, which may still be on its
    /// way to where it listens. Blocks for two seconds at most; false when none answers.
    [[nodiscard]] static bool handOver(const AppRequest& request);

    std::function<void(const AppRequest&)> onRequest;

private:
    static bool forwardOverBus(const AppRequest& request);
    static bool call(const QDBusConnection& bus, const AppRequest& request);
    /// What is sent over the socket, and `perform`ed there.
    [[nodiscard]] static QString lineOf(const AppRequest& request);
    [[nodiscard]] Claim claimSocket();
    void perform(const QString& line);

    bool m_hasBusName = false;
    InstanceSocket m_socket;
};

} // namespace Tavik
