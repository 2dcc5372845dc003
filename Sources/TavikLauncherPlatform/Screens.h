// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPointF>
#include <QRectF>

#include <optional>

namespace Tavik {

/// One screen in the desktop's plane: points, y growing upwards, so `frame.top()` is the lowest y.
struct Screen
{
    QRectF frame;
    QRectF visibleFrame; ///< `frame` without panels and docks.

    bool operator==(const Screen&) const = default;
};

/// The screens and the pointer. Points, y growing upwards from the lower edge of the primary
/// screen. Main thread only.
class Screens
{
public:
    virtual ~Screens() = default;

    /// The primary screen first.
    [[nodiscard]] virtual QList<Screen> all() const = 0;
    /// The screen with the keyboard focus; absent when there is none at all.
    [[nodiscard]] virtual std::optional<Screen> main() const = 0;
    [[nodiscard]] virtual QPointF mouseLocation() const = 0;
};

} // namespace Tavik
