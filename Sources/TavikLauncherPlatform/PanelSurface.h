// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

#include <functional>

namespace Tavik {

/// The floating window that holds the ring, as its controller sees it. Frames are in points, y
/// growing upwards, in the plane of `Screens`. Main thread only.
class PanelSurface
{
public:
    virtual ~PanelSurface() = default;

    [[nodiscard]] virtual bool isVisible() const = 0;
    [[nodiscard]] virtual QRectF frame() const = 0;
    virtual void setFrame(const QRectF& frame) = 0;
    /// True once the window system really shows the window.
    [[nodiscard]] virtual bool isComposited() const = 0;

    /// Brings the program to the front, whatever else has the focus.
    virtual void activateApplication() = 0;
    virtual void orderFrontRegardless() = 0;
    /// Orders the window to the front and gives it the keyboard.
    virtual void makeKeyAndOrderFront() = 0;
    /// Takes the window off the screen and gives the keyboard back to the window that had it.
    virtual void orderOut() = 0;

    /// Called when the pointer, which the window was shown at, is elsewhere. Nothing of the window
    /// has been seen until then.
    std::function<void()> onPointerFound;
    /// Called when another window takes the keyboard.
    std::function<void()> onResignKey;
};

} // namespace Tavik
