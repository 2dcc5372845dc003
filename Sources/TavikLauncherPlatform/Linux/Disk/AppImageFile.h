// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

/// Programs that are one file: a small program with an image of a file system in it.
namespace Tavik::AppImageFile {

struct Content
{
    /// Where the squashfs begins, in bytes; absent in the older type, which is an ISO 9660 as a
    /// whole.
    std::optional<qint64> squashOffset;
};

/// True for a path that is named as such a file usually is; looks at the name alone.
[[nodiscard]] bool isNamedSo(const QString& path);

/// True for what is named so, and for a file that says so itself.
[[nodiscard]] bool isImage(const QString& path);

/// What the file's first bytes tell of it; absent for what is no image. Reads no more than these
/// and never waits for a pipe's writer. Any thread.
[[nodiscard]] std::optional<Content> content(const QString& path);
[[nodiscard]] std::optional<qint64> squashOffset(const QString& path);

} // namespace Tavik::AppImageFile
