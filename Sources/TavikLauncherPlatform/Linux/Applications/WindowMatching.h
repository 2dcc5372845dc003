// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/DesktopEntries.h>

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tavik {

/// What a window says of the application it belongs to; nothing of it can be trusted.
struct WindowClues
{
    QString applicationId; ///< An ID, file name or path of a desktop entry, from a hint for this.
    QString instanceName; ///< The first half of the window class.
    QString className; ///< The second half.

    bool operator==(const WindowClues&) const = default;
};

/// What the system says of a process.
struct ProcessClues
{
    QString executable; ///< Resolved path of the running program.
    QString launchedEntry; ///< The desktop entry that this very process was started from.
    QString inheritedEntry; ///< An entry that the process or one of its ancestors was started from.
    QString controlGroup; ///< The path of the systemd unit.

    bool operator==(const ProcessClues&) const = default;
};

/// Maps windows and processes to desktop entries: clues in, entry out.
namespace WindowMatching {

/// The entry that the window names itself, or null.
[[nodiscard]] const DesktopEntry* entryFor(const WindowClues& window,
                                           const DesktopEntries& entries);
/// The entry that the window's process comes from, or null.
[[nodiscard]] const DesktopEntry* entryFor(const ProcessClues& process,
                                           const DesktopEntries& entries);
/// The `.app` folder that the program lies in, the outermost one.
[[nodiscard]] std::optional<QString> applicationFolderOf(const QString& executable);
/// The application ID in the name of a systemd unit as desktops name them, or empty.
[[nodiscard]] QString applicationIdOfUnit(const QString& controlGroup);
/// Reads the clues out of a process's environment block (`NAME=value`, each ended by a zero byte).
void readEnvironment(const QByteArray& block, qint64 processId, ProcessClues& clues);

} // namespace WindowMatching

/// Asks the kernel about a process of this machine; empty clues for one that is gone or not ours.
[[nodiscard]] ProcessClues processClues(qint64 processId);

} // namespace Tavik
