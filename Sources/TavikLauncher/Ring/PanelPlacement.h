// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Screens.h>

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace Tavik::PanelPlacement {

/// Everything here is in points, y growing upwards: a rectangle's `top()` is its lowest y, and an
/// origin is the panel's lower left corner.

/// The first screen that shows `point`; null when none does.
[[nodiscard]] const Screen* screenShowing(QPointF point, const QList<Screen>& screens);
/// The screen that shows `point`, else the nearest one; null without any screen.
[[nodiscard]] const Screen* screenFor(QPointF point, const QList<Screen>& screens);

/// The origin of a panel centred on `point` and kept inside the visible frame of its screen.
[[nodiscard]] QPointF originCenteredAt(QPointF point, QSizeF size, const QList<Screen>& screens);

/// The origin where a panel without a point belongs on `visibleFrame`: in the middle, its lower
/// edge a little above the centre line, clear of `avoidedFrames` and inside the visible frame.
[[nodiscard]] QPointF
originOnScreen(const QRectF& visibleFrame, QSizeF size, const QList<QRectF>& avoidedFrames);

/// The place for a panel that would like to be at `origin` but must keep clear of `avoidedFrames`:
/// right of, left of, above or below one of them, or the place with the largest free area.
[[nodiscard]] QPointF avoidingWindows(QPointF origin,
                                      QSizeF size,
                                      const QRectF& screenFrame,
                                      const QList<QRectF>& avoidedFrames);

} // namespace Tavik::PanelPlacement
