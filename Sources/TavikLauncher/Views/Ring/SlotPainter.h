// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/Ring/RingScene.h>

#include <QPointF>
#include <QRectF>

class QPainter;

namespace Tavik {

/// Draws what stands in a wedge: the icon with its halo, and the mark of a running application. All
/// in the ring's own plane: points, y down.
namespace SlotPainter {

/// All that is drawn for the slot lies inside.
[[nodiscard]] QRectF bounds(const RingScene& scene, const RingIcon& icon);
/// Where the running mark belongs: on the wedge's middle line, between the icon and the band's
/// outer edge, where neighbours leave the most room.
[[nodiscard]] QPointF dotCenter(const RingScene& scene, const RingIcon& icon);
/// Every slot that is dirty: marks above all icons, the selected slot above the others.
void paintSlots(QPainter& painter, const RingScene& scene, const IsDirty& isDirty);

} // namespace SlotPainter

} // namespace Tavik
