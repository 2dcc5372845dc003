// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Screens.h>

#include <QMargins>
#include <QRect>

#include <functional>

class QScreen;

namespace Tavik {

/// The toolkit's screens, turned upside down.
class QtScreens final : public Screens
{
public:
    /// What the window system knows beyond the toolkit, in device pixels. Each may be empty.
    struct Hooks
    {
        /// Where the pointer is, also while no window of ours sees it.
        std::function<std::optional<QPoint>()> pointer;
        /// The same, from a window system that counts in points of the toolkit's plane.
        std::function<std::optional<QPointF>()> pointerInPoints;
        /// A point of the window that has the focus.
        std::function<std::optional<QPoint>()> focusedPoint;
        /// What is left of a screen of this geometry beside panels and docks.
        std::function<QRect(const QRect&)> availableArea;
    };
    explicit QtScreens(Hooks hooks = {});

    [[nodiscard]] QList<Screen> all() const override;
    [[nodiscard]] std::optional<Screen> main() const override;
    [[nodiscard]] QPointF mouseLocation() const override;

private:
    [[nodiscard]] QPointF pointer() const;
    [[nodiscard]] Screen described(const QScreen& screen) const;
    [[nodiscard]] const QScreen* focusedScreen() const;

    Hooks m_hooks;
};

} // namespace Tavik
