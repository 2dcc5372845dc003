// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/RingScene.h>

#include <QList>
#include <QRectF>

class QPainter;

namespace Tavik::CenterPainter {

/// The texts in the ring's hole, one below the other about its centre, each in a rounded label. In
/// the ring's own plane: points, y down.

void paint(QPainter& painter, const RingScene& scene);
/// Where the filter field's label is; valid also while it is faded out.
[[nodiscard]] QRectF fieldRect(const RingScene& scene);
/// All labels that are shown.
struct Pill
{
    QRectF rect;
    double cornerRadius = 0;
};
[[nodiscard]] QList<Pill> pills(const RingScene& scene);

} // namespace Tavik::CenterPainter
