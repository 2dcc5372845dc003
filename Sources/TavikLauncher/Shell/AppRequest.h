// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/WindowServer.h>

#include <QString>

#include <optional>

namespace Tavik {

/// The actions by which other programs steer this one, named as on the command line without the
/// dashes and as in `org.freedesktop.Application`.
enum class AppAction {
    activate, ///< A plain second start.
    summon, ///< A press of the trigger.
    showLauncher,
    toggleLauncher,
    hideLauncher,
    settings, ///< With a section's identifier, or none.
    reindex,
    tour,
    checkForUpdates,
    checkDesktop, ///< Shows that page; who sends it over the socket is answered instead.
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

constexpr qsizetype longestArgument
    = 64; ///< Of a request, in characters; a longer one counts as none.
constexpr qsizetype longestActivation = 256; ///< In bytes; likewise.

/// What became of a request that was sent to the instance that runs.
enum class InstanceAnswer {
    given, ///< It has the request and carries it out.
    none, ///< Nobody has it: no instance is there, or it ended before it took the request.
    silent, ///< It has the request and says nothing; it may carry it out later.
};

/// The action's name on the bus; empty for `activate`.
[[nodiscard]] QString actionName(AppAction action);
[[nodiscard]] std::optional<AppAction> namedAction(const QString& name);

/// A request as one line of text, and back; absent when the line is none.
[[nodiscard]] QString lineOf(const AppRequest& request);
[[nodiscard]] std::optional<AppRequest> requestIn(const QString& line);

} // namespace Tavik
