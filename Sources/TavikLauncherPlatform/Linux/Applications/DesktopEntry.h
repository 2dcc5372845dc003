// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/CompactText.h>

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

namespace Tavik {

struct Bundle;

/// What a desktop entry says, read once for all who need it. A value; its texts are as the entry
/// has them unless said otherwise.
struct DesktopEntry
{
    enum class Notification : quint8 {
        unknown,
        supported, ///< "StartupNotify=true"
        refused, ///< "StartupNotify=false"
    };

    QString id; ///< The desktop-file ID without ".desktop".
    QString path;
    QString name; ///< In the user's language, fit for one line.
    /// Untranslated and generic name, keywords, program; without `name`. One on each line.
    QString otherNames;
    CompactText icon; ///< A theme icon's name or an image's path.
    CompactText command; ///< "Exec".
    CompactText requiredProgram; ///< "TryExec".
    CompactText folder; ///< "Path".
    CompactText startupClass; ///< "StartupWMClass".
    CompactText program; ///< What "Exec" starts, or the script that an interpreter there runs.
    Notification notification = Notification::unknown;
    bool isApplication : 1 = false;
    bool isImage : 1 = false; ///< It lies inside of an AppImage, which is what `path` leads to.
    bool isDeleted : 1 = false; ///< "Hidden": stands for nothing but its own absence.
    bool isHidden : 1 = false; ///< Kept out of menus here ("NoDisplay", "OnlyShowIn", …).
    bool takesArguments : 1 = false; ///< "Exec" has words of its own behind the program.
    bool runsInTerminal : 1 = false;
    bool isTerminalEmulator : 1 = false;
    bool isActivatable : 1 = false; ///< "DBusActivatable"

    /// The class that a game's launcher gives the game's windows; empty for what is no game.
    [[nodiscard]] QString gameClass() const;

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
