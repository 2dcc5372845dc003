// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace Tavik::PropertyListBounds {

/// The largest list, in bytes: room for tens of thousands of paths.
inline constexpr qsizetype mostBytes = 8 * 1024 * 1024;

/// True when a property list, XML or binary, stays small and shallow once it is unfolded, so that
/// libplist, which recurses and copies what is referred to twice, can be trusted with it. Judges
/// nothing else: an accepted list may still be damaged.
[[nodiscard]] bool areKept(const QByteArray& propertyList);

[[nodiscard]] bool isBinary(const QByteArray& propertyList);

} // namespace Tavik::PropertyListBounds
