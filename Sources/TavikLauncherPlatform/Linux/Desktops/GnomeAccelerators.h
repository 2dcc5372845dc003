// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Key combinations as GNOME's settings write them, such as "<Control><Alt>space".
namespace Tavik::GnomeAccelerators {

/// The same text for all ways of writing one combination.
[[nodiscard]] QString normalised(const QString& accelerator);
/// Whether GNOME itself, or a custom shortcut that is not at a path beginning with `ownPath`, has
/// that combination. Reads all of GNOME's shortcuts.
[[nodiscard]] bool isTaken(const QString& accelerator, const QString& ownPath);

} // namespace Tavik::GnomeAccelerators
