// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Updates/UpdateTransfer.h>

#include <QDateTime>
#include <QStringList>

#include <functional>
#include <optional>

namespace Tavik {

class WorkQueue;

/// What a session of the updater works with.
struct UpdateEnvironment
{
    MainQueue& mainQueue;
    WorkQueue& workQueue;
    QUrl feedUrl;
    QByteArray publicKey;
    QString fetchProgram; ///< The path of `FetchProgram`.
    QString version; ///< Of this program.
    QString processor; ///< That this program was built for, as the toolkit names it.
    QStringList pageHosts; ///< Where a page about a version may be.
    QString image; ///< That this program runs from; empty when it runs from none.
    QString folder; ///< For packages.
    std::function<QDateTime()> wallClock;
    /// Whether the desktop has a program for files of that type. Any thread.
    std::function<bool(const QString& mimeType)> hasInstaller;
    /// Opens a page or a file with the desktop's program for it; why not. Any thread.
    std::function<std::optional<QString>(const QUrl&)> open;

    [[nodiscard]] UpdateTransfer::Dependencies transfer() const
    {
        return {.mainQueue = mainQueue,
                .fetchProgram = fetchProgram,
                .userAgent = "TavikLauncher/" + version.toLatin1()};
    }
};

} // namespace Tavik
