// SPDX-License-Identifier: MIT
#pragma once

#include <QGuiApplication>
#include <QPointF>
#include <QRectF>
#include <QScreen>

namespace Tavik::ScreenPlane {

/// A point of the toolkit's plane in device pixels, and back: the toolkit scales what is on a
/// screen and leaves the screen's origin alone.
[[nodiscard]] inline QPointF toDevice(QPointF point, const QScreen& screen)
{
    const QPointF origin = screen.geometry().topLeft();
    return origin + (point - origin) * screen.devicePixelRatio();
}

[[nodiscard]] inline QPointF fromDevice(QPointF pixel, const QScreen& screen)
{
    const QPointF origin = screen.geometry().topLeft();
    return origin + (pixel - origin) / screen.devicePixelRatio();
}

/// Between the toolkit's desktop plane (y down from the primary screen's top) and the plane of
/// `Screens` (y up from its bottom). `primaryBottom` is the primary screen's lower edge in the
/// toolkit's plane, in points. Each function is its own inverse.

/// The primary screen's lower edge now; 0 without any screen.
[[nodiscard]] inline double primaryBottom()
{
    const QScreen* primary = QGuiApplication::primaryScreen();
    return primary ? primary->geometry().y() + primary->geometry().height() : 0;
}

[[nodiscard]] inline QPointF flipped(QPointF point, double primaryBottom)
{
    return {point.x(), primaryBottom - point.y()};
}

[[nodiscard]] inline QRectF flipped(const QRectF& rect, double primaryBottom)
{
    return {rect.x(), primaryBottom - rect.y() - rect.height(), rect.width(), rect.height()};
}

} // namespace Tavik::ScreenPlane
