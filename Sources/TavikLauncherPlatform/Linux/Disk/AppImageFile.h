// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

/// Programs that are one file: a small program with an image of a file system behind it.
namespace Tavik::AppImageFile {

/// True for a path that is named as such a file is; looks at the name alone.
[[nodiscard]] bool isNamedSo(const QString& path);

/// Where the file system begins, in bytes; absent when the file is no image of type 2. Never waits
/// for a pipe's writer. Any thread.
[[nodiscard]] std::optional<qint64> fileSystemOffset(const QString& path);

} // namespace Tavik::AppImageFile
