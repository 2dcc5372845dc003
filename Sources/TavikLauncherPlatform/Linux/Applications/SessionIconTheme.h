// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/IconTheme.h>

namespace Tavik {

/// The icon theme to draw with. `toolkitTheme` is what the toolkit learned from the desktop; where
/// it learned nothing (a bare window manager), the user's choice for other toolkits counts, then
/// whichever full theme is installed, so that applications need not go without their icons. Reads
/// the disk.
[[nodiscard]] QString sessionIconTheme(const QString& toolkitTheme, const IconFolders& folders);

} // namespace Tavik
