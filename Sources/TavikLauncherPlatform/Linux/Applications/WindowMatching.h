// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/DesktopEntries.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace Tavik {

/// What a window says of the application it belongs to; nothing of it can be trusted.
struct WindowClues
{
    QString applicationId; ///< An ID, file name or path of a desktop entry, from a hint for this.
    QString instanceName; ///< The first half of the window class.
    QString className; ///< The second half.
    QByteArray startupId; ///< Of start-up notification.

    bool operator==(const WindowClues&) const = default;
};

/// What the system says of a process.
struct ProcessClues
{
    QString executable; ///< Resolved path of the running program.
    QString image; ///< The AppImage that this program lies in.
    QStringList words; ///< The first words of its command line.
    QString launchedEntry; ///< The desktop entry that this very process was started from.
    QString sessionEntry; ///< The one that the leader of its session was started from.
    QString inheritedEntry; ///< An entry that the process or one of its ancestors was started from.
    QString controlGroup; ///< The path of the systemd unit.

    bool operator==(const ProcessClues&) const = default;
};

/// What we ourselves know, as paths of entries and `.app` folders; empty for nothing.
struct LaunchClues
{
    QString program; ///< Started by us as this very process, or for this window's start-up ID.
    QString session; ///< Started by us as the leader of the process's session.
    QString ownControlGroup; ///< Our own unit, which tells nothing of what runs in it.
};

/// Tells whose a window is: clues in, the path of a desktop entry or of an `.app` folder out.
namespace WindowMatching {

/// The first clue that names somebody decides:
/// the window's own words, exact before alike, instance before class, class before entry's ID;
/// what we started; the process's program; its systemd unit; its session; what it inherited.
/// A terminal's window belongs to the terminal program it was opened for. The process is asked for
/// only where the window's own words do not suffice. Empty when nothing is known.
[[nodiscard]] QString pathFor(const WindowClues& window,
                              const LaunchClues& launch,
                              const DesktopEntries& entries,
                              const std::function<ProcessClues()>& process);

/// The `.app` folder that the program lies in, the outermost one.
[[nodiscard]] std::optional<QString> applicationFolderOf(const QString& executable);
/// The application's ID in the name of a systemd unit as desktops, Flatpak and Snap name them.
[[nodiscard]] QString applicationIdOfUnit(const QString& controlGroup);
/// Reads the clues out of a process's environment block (`NAME=value`, each ended by a zero byte).
void readEnvironment(const QByteArray& block,
                     qint64 processId,
                     qint64 sessionId,
                     ProcessClues& clues);

} // namespace WindowMatching

/// Asks the kernel about a process of this machine; empty clues for one that is gone or not ours.
[[nodiscard]] ProcessClues processClues(qint64 processId);
/// What a process that calls itself `claimed` is called out here: `peer`, if that is the same
/// process seen from outside of its container, else what it says. 0 stands for an unknown one.
[[nodiscard]] qint64 processIdOutside(qint64 claimed, qint64 peer);
/// The path of the systemd unit that a process is in.
[[nodiscard]] QString controlGroupOf(qint64 processId);

} // namespace Tavik
