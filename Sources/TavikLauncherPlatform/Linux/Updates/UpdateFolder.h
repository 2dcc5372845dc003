// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace Tavik::UpdateFolder {

/// Where packages for the desktop's installer are put.
[[nodiscard]] QString defaultPath();

/// Makes the folder where it is missing, and closes it to everybody else. Why it cannot be used, as
/// a whole sentence for people; a link is not followed.
[[nodiscard]] std::optional<QString> prepare(const QString& folder);

/// A package while it comes in.
[[nodiscard]] QString partFile(const QString& folder);
/// A package that the installer may read. The name is ours but for the ending that it needs.
[[nodiscard]] QString packageFile(const QString& folder, const QString& suffix);

/// Removes what a session left behind that did not end by itself, and packages whose installer has
/// had a day.
void removeLeftovers(const QString& folder, const QDateTime& now);

} // namespace Tavik::UpdateFolder
