// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace Tavik::GenericIcon {

/// The icon of an application that has none, drawn into a square of `side` pixels. Any thread.
[[nodiscard]] QImage draw(int side);

} // namespace Tavik::GenericIcon
