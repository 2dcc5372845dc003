// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/DesktopAppearance.h>
#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/LoginItem.h>
#include <TavikLauncherPlatform/WindowServer.h>

namespace Tavik {

/// No key can be had system-wide.
class NullKeyEvents final : public KeyEvents
{
public:
    static constexpr int statusUnsupported = -1;

    [[nodiscard]] HotKeyResult registerHotKey(const HotKey& hotKey,
                                              std::function<void(double)> pressed) override;
};

/// A window server that does nothing beyond what the toolkit does and takes its word.
class NullWindowServer final : public WindowServer
{
public:
    void preparePanel(WId window) override;
    void takeKeyboardFocus(WId window) override;
    void returnKeyboardFocus(WId window) override;
    [[nodiscard]] bool hasKeyboardFocus(WId window) const override;
    [[nodiscard]] bool isOnScreen(WId window) const override;
    /// True: where it cannot be asked, windows are always blended.
    [[nodiscard]] bool isCompositing() const override;
};

/// A desktop that asks for nothing.
class NullDesktopAppearance final : public DesktopAppearance
{
public:
    [[nodiscard]] bool reducesMotion() const override { return false; }
};

/// A system that starts nothing at login.
class NullLoginItem final : public LoginItem
{
public:
    [[nodiscard]] Status status() const override { return Status::notFound; }
    bool registerItem() override { return false; }
    bool unregisterItem() override { return false; }
};

} // namespace Tavik
