// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/Ring/RingScene.h>

class QPainter;

namespace Tavik::CenterPainter {

/// Paints the texts in the ring's hole where `CenterLayout` places them. In the ring's own plane:
/// points, y down.
void paint(QPainter& painter, const RingScene& scene, const IsDirty& isDirty);

} // namespace Tavik::CenterPainter
