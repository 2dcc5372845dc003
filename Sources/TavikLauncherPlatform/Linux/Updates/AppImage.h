// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace Tavik::AppImage {

/// Why the image cannot be replaced, as a whole sentence for people; absent when it can: it is, or
/// links to, an image of type 2 in a folder where this user may write.
[[nodiscard]] std::optional<QString> whyNotReplaceable(const QString& image);

/// Where a newer image is put together: beside the one that `image` stands for, so that it can take
/// its place at once. Always the same name for the same image and user.
[[nodiscard]] QString partFile(const QString& image);

/// Why the file cannot stand in for the image, as a whole sentence for people; absent when it is an
/// image of type 2 for the same kind of computer that says when it was made, and that was not
/// before the present one.
[[nodiscard]] std::optional<QString> whyNoSuccessor(const QString& file, const QString& image);

/// Puts the file in the image's place, with the image's permissions: as a whole and on disk, or not
/// at all; why not, as a whole sentence for people. Any thread.
[[nodiscard]] std::optional<QString> replace(const QString& image, const QString& file);

} // namespace Tavik::AppImage
