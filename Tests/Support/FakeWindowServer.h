// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/WindowServer.h>

#include <QPainter>
#include <QStringList>

#include <Support/Noting.h>

namespace Tavik::Test {

/// A window system of answers; records what the panel asked for.
class FakeWindowServer : public WindowServer, public Noting
{
public:
    [[nodiscard]] bool isPanelManaged() const override { return isManaged; }
    void setInputRegion(WId, const QRegion& region) override { inputRegion = region; }
    void setShape(WId, const QRegion& region) override { shape = region; }
    [[nodiscard]] QImage pictureAt(WId) const override
    {
        QImage seen = desktop;
        QPainter painter(&seen);
        painter.setClipRegion(shape);
        painter.fillRect(seen.rect(), Qt::magenta); // The panel itself.
        return seen;
    }
    void preparePanel(WId) override { calls << QStringLiteral("prepare"); }
    void setSkipsTaskbar(WId, bool skips) override
    {
        calls << (skips ? QStringLiteral("skip taskbar") : QStringLiteral("in taskbar"));
    }
    void reportMoves(WId) override { }
    void takeKeyboardFocus(WId) override
    {
        note("bring a window to the front");
        calls << QStringLiteral("take focus");
    }
    void takeKeyboardFocusForPanel() override { calls << QStringLiteral("take focus"); }
    void returnKeyboardFocus() override { calls << QStringLiteral("return focus"); }
    [[nodiscard]] bool hasKeyboardFocus(WId) const override { return hasFocus; }
    [[nodiscard]] bool isOnScreen(WId) const override { return true; }
    [[nodiscard]] bool isOnCurrentDesktop(WId) const override { return onCurrentDesktop; }
    [[nodiscard]] bool isCompositing() const override { return compositing; }
    void beginActivation(const Activation& activation) override
    {
        calls << QStringLiteral("begin ") + QString::fromLatin1(activation.startupId);
    }
    void endActivation() override { calls << QStringLiteral("end"); }

    QStringList calls;
    QRegion inputRegion;
    QRegion shape;
    QImage desktop; ///< At the panel's place; null where nobody can tell.
    bool isManaged = false;
    bool hasFocus = true;
    bool onCurrentDesktop = true;
    bool compositing = true;
};

} // namespace Tavik::Test
