// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/PanelSurface.h>

#include <QStringList>

namespace Tavik::Test {

/// A panel without a window; records what it was told in order.
class FakePanelSurface final : public PanelSurface
{
public:
    [[nodiscard]] bool isVisible() const override { return visible; }
    [[nodiscard]] QRectF frame() const override { return rect; }
    void setFrame(const QRectF& frame) override { rect = frame; }
    [[nodiscard]] bool isComposited() const override { return composited; }
    void activateApplication() override { calls << QStringLiteral("activate"); }
    void orderFrontRegardless() override
    {
        calls << QStringLiteral("front");
        visible = true;
    }
    void makeKeyAndOrderFront() override { calls << QStringLiteral("key"); }
    void orderOut() override
    {
        calls << QStringLiteral("out");
        visible = false;
    }

    QRectF rect;
    bool visible = false;
    bool composited = true;
    QStringList calls;
};

} // namespace Tavik::Test
