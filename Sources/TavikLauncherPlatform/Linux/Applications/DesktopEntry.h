// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace Tavik {

struct Bundle;

/// What a desktop entry says, read once for all who need it. A value; its texts are as the entry
/// has them unless said otherwise.
struct DesktopEntry
{
    enum class Notification {
        unknown,
        supported, ///< "StartupNotify=true"
        refused, ///< "StartupNotify=false"
    };

    QString id; ///< The desktop-file ID without ".desktop".
    QString path;
    QString name; ///< In the user's language, fit for one line.
    QStringList otherNames; ///< Untranslated and generic name, keywords, program; without `name`.
    QString icon; ///< A theme icon's name or an image's path.
    QString command; ///< "Exec".
    QString requiredProgram; ///< "TryExec".
    QString folder; ///< "Path".
    QString startupClass; ///< "StartupWMClass".
    QString gameClass; ///< The class that a game's launcher gives the game's windows.
    QString program; ///< What "Exec" starts, or the script that an interpreter there runs.
    Notification notification = Notification::unknown;
    bool isApplication = false;
    bool isImage = false; ///< It lies inside of an AppImage, which is what `path` leads to.
    bool isDeleted = false; ///< "Hidden": stands for nothing but its own absence.
    bool isHidden = false; ///< Kept out of menus here ("NoDisplay", "OnlyShowIn", …).
    bool takesArguments = false; ///< "Exec" has words of its own behind the program.
    bool runsInTerminal = false;
    bool isTerminalEmulator = false;
    bool isActivatable = false; ///< "DBusActivatable"

    bool operator==(const DesktopEntry&) const = default;
};

/// One that all who need it hold in common: there may be thousands.
using SharedDesktopEntry = std::shared_ptr<const DesktopEntry>;

namespace DesktopEntryFile {

/// A larger entry counts as damaged.
inline constexpr qint64 maxSize = 512 * 1024;

/// Reads the entry at `path`; `id` is its desktop-file ID without the ending. Whatever is there
/// hides entries of the same ID elsewhere, so what cannot be read is no application, but has its
/// ID. Any thread.
[[nodiscard]] DesktopEntry read(const QString& path, const QString& id);

/// The same for an entry's content.
[[nodiscard]] DesktopEntry parse(const QByteArray& content, const QString& path, const QString& id);

/// The entry as a menu has it. Looks whether its programs are installed, so it reads the disk.
[[nodiscard]] Bundle bundle(const DesktopEntry& entry);

/// The path of an installed program; empty when there is none that can be executed.
[[nodiscard]] QString installedProgram(const QString& program);

} // namespace DesktopEntryFile

} // namespace Tavik
