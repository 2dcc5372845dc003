// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

namespace Tavik::IconImage {

/// The image file at `path` fitted into a transparent square of `side` pixels; null when it is no
/// image that can be read, or one larger than any icon is. Vector images are drawn at that size;
/// others are scaled down, or up a little where they are too small. Any thread.
[[nodiscard]] QImage read(const QString& path, int side);

} // namespace Tavik::IconImage
