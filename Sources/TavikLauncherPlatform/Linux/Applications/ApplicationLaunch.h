// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/DesktopEntry.h>
#include <TavikLauncherPlatform/Linux/Applications/ProgramStart.h>

#include <QString>
#include <QUrl>

#include <optional>

namespace Tavik {

/// Where an application is started from.
struct LaunchTarget
{
    QString path; ///< The entry's or the `.app` folder's; the program's own for an image.
    DesktopEntry entry; ///< Of a desktop entry.
    std::optional<QString> program; ///< Of everything else.
};

/// What lets the first window of a started program come to the front. Either may be empty.
struct LaunchTokens
{
    QByteArray startupId;
    QByteArray activationToken;
};

/// Starts an application that outlives this program, with the environment that the session gave us.
/// Takes some 10 ms; any thread.
[[nodiscard]] LaunchResult launchApplication(const LaunchTarget& target,
                                             const LaunchTokens& tokens = {});

/// Opens a page or a file with the program that the desktop keeps for it, which outlives this one.
/// Takes some 10 ms; any thread.
[[nodiscard]] LaunchResult openWithDefault(const QUrl& url);

/// Whether the desktop keeps a program for packages of that MIME type that does more than to look
/// into them. Any thread.
[[nodiscard]] bool hasInstallerFor(const QString& mimeType);

} // namespace Tavik
