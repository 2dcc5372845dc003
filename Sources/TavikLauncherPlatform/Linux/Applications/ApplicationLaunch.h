// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace Tavik {

/// What to start.
struct LaunchRequest
{
    QString path; ///< A desktop entry or an `.app` folder.
    std::optional<QString> executable; ///< The program of an `.app` folder.
    QByteArray startupId; ///< For start-up notification; empty for none.
};

struct LaunchResult
{
    std::optional<QString> error; ///< Nothing means done.
    qint64 processId = 0; ///< 0 when another program (the session bus) did the starting.
};

/// Starts an application that outlives this program: in a session of its own, without our standard
/// streams, with the environment that the session gave us. Takes some 10 ms; any thread.
[[nodiscard]] LaunchResult launchApplication(const LaunchRequest& request);

/// Opens a page or a file with the program that the desktop keeps for it, which outlives this one.
/// Takes some 10 ms; any thread.
[[nodiscard]] LaunchResult openWithDefault(const QUrl& url);

/// Whether the desktop keeps a program for packages of that MIME type that does more than to look
/// into them. Any thread.
[[nodiscard]] bool hasInstallerFor(const QString& mimeType);

} // namespace Tavik
