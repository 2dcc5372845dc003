// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tavik {

/// This program as others start it: a login, a key of the desktop's, somebody at a terminal. It is
/// installed as a package, unpacked anywhere, or an AppImage. Values in, values out, but for what
/// is asked of the disk.
namespace OwnProgram {

/// What tells a program where it was started from, as the system and an image's runtime leave it.
struct Surroundings
{
    QString image; ///< The variable APPIMAGE.
    QString mountPoint; ///< The variable APPDIR.
    QString program; ///< Where this program's file is.
    /// As in the variable PATH: where each session looks for programs. A terminal may look in more
    /// folders than the desktop that reads a pasted line.
    QString searchPath{};

    /// Of this process.
    [[nodiscard]] static Surroundings ofProcess();
};

/// The image that this program runs from; empty when it runs from none. The variables alone do not
/// count: whatever an image has started inherits them.
[[nodiscard]] QString image(const Surroundings& surroundings);

/// The file to start: the image, if there is one, for what is inside has another path each time.
[[nodiscard]] QString file(const Surroundings& surroundings);

/// The first word of a line that somebody pastes to start this program: its name where a search
/// finds it, else its path as a shell's word. The name, too, where no line can hold the path.
[[nodiscard]] QString command(const Surroundings& surroundings);

/// The text as one word for a shell, in quotes where it needs them. What reads a line before a
/// shell does (sway's and Hyprland's configurations, the keyboard settings of desktops) makes the
/// same of it, but for two things: sway undoes a backslash in what a key runs, and see below.
[[nodiscard]] QString shellWord(const QString& text);

/// The command as Hyprland's configuration has it.
[[nodiscard]] QString forHyprland(QString command);

} // namespace OwnProgram

} // namespace Tavik
