// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// The names in a folder that a walk looks at, sorted: not hidden, and fit for a path. Empty when
/// the folder cannot be read. Any thread.
namespace Tavik::DirectoryNames {

[[nodiscard]] QStringList all(const QString& folder);
/// Those of folders, links to folders left out. Looks at no file, as far as the folder itself tells
/// what is one.
[[nodiscard]] QStringList folders(const QString& folder);

} // namespace Tavik::DirectoryNames
