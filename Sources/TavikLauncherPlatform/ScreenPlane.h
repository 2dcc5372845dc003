// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRectF>

namespace Tavik::ScreenPlane {

/// Between the toolkit's desktop plane (y down from the primary screen's top) and the plane of
/// `Screens` (y up from its bottom). `primaryBottom` is the primary screen's lower edge in the
/// toolkit's plane, in points. Each function is its own inverse.

[[nodiscard]] inline QPointF flipped(QPointF point, double primaryBottom)
{
    return {point.x(), primaryBottom - point.y()};
}

[[nodiscard]] inline QRectF flipped(const QRectF& rect, double primaryBottom)
{
    return {rect.x(), primaryBottom - rect.y() - rect.height(), rect.width(), rect.height()};
}

} // namespace Tavik::ScreenPlane
