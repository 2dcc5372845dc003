// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Shell/UpdateActivation.h>

#include <QStringList>

#include <algorithm>

namespace Tavik::Test {

/// An application whose windows the test opens; records what was done to them.
class FakeUpdaterApplication final : public UpdateActivation::Application
{
public:
    [[nodiscard]] bool isActive() const override { return active; }
    void activateIgnoringOtherApps() override { ++activations; }
    [[nodiscard]] QList<UpdateActivation::Window> updaterWindows() const override
    {
        return windows;
    }
    void setFrameOrigin(quint64 window, const QPointF& origin) override
    {
        calls << QStringLiteral("move %1 to %2,%3").arg(window).arg(origin.x()).arg(origin.y());
        std::ranges::find(windows, window, &UpdateActivation::Window::id)->frame.moveTo(origin);
    }
    void orderFrontRegardless(quint64 window) override
    {
        ++fronts;
        calls << QStringLiteral("front %1").arg(window);
    }
    void orderKeyWindowFrontRegardless() override { calls << QStringLiteral("key front"); }
    [[nodiscard]] std::optional<Screen> activeScreen() const override { return screen; }

    [[nodiscard]] static UpdateActivation::Window window(quint64 id, const QRectF& frame)
    {
        return {.id = id,
                .className = QStringLiteral("Some::Window"),
                .controllerDescription = std::nullopt,
                .frame = frame,
                .isVisible = true,
                .canBecomeKey = true};
    }

    bool active = false;
    QList<UpdateActivation::Window> windows;
    std::optional<Screen> screen = Screen{QRectF(800, 0, 800, 600), QRectF(800, 0, 800, 570)};
    int activations = 0; ///< One in each step.
    int fronts = 0;
    QStringList calls;
};

} // namespace Tavik::Test
