// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/ApplicationLaunch.h>

#include <QDBusMessage>
#include <QString>

#include <optional>

namespace Tavik::ServiceCalls {

/// The messages that starting an application sends over the session bus. Values only.

/// Whether an application of that ID can have it as its name on the bus.
[[nodiscard]] bool isBusName(const QString& id);

/// Asks the application with that ID to start or to show itself; absent where the ID is no name
/// that the bus knows.
[[nodiscard]] std::optional<QDBusMessage> activation(const QString& id, const LaunchTokens& tokens);

/// Puts a process into a scope of its own beside the other applications, so that it ends with
/// nobody's unit. `random` tells the scopes of one application from each other.
[[nodiscard]] QDBusMessage
scope(const QString& id, const QString& name, qint64 processId, quint32 random);

/// A word to the user, who asked for the application.
[[nodiscard]] QDBusMessage failureNotice(const QString& name, const QString& error);

/// A text as part of a systemd unit's name.
[[nodiscard]] QString escapedForUnit(const QString& text);

} // namespace Tavik::ServiceCalls
