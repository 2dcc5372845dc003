// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/DesktopAppearance.h>
#include <TavikLauncherPlatform/LoginItem.h>
#include <TavikLauncherPlatform/Updater.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <utility>

namespace Tavik {

/// A window server that does nothing beyond what the toolkit does and takes its word.
class NullWindowServer final : public WindowServer
{
public:
    [[nodiscard]] Means pointerMeans() const override;
    [[nodiscard]] Means overlayMeans() const override;
    [[nodiscard]] bool isPanelManaged() const override { return true; }
    void preparePanel(WId window) override;
    void setInputRegion(WId window, const QRegion& region) override;
    void setSkipsTaskbar(WId window, bool skips) override;
    void reportMoves(WId window) override;
    void takeKeyboardFocus(WId window) override;
    void takeKeyboardFocusForPanel() override;
    void returnKeyboardFocus() override;
    [[nodiscard]] bool hasKeyboardFocus(WId window) const override;
    [[nodiscard]] bool isOnScreen(WId window) const override;
    /// True: where it cannot be asked, windows are always blended.
    [[nodiscard]] bool isCompositing() const override;
    void beginActivation(const Activation& activation) override;
    void endActivation() override;
};

/// A desktop that asks for nothing.
class NullDesktopAppearance final : public DesktopAppearance
{
public:
    [[nodiscard]] bool reducesMotion() const override { return false; }
    [[nodiscard]] ColorScheme colorScheme() const override { return ColorScheme::noPreference; }
    [[nodiscard]] bool wantsHighContrast() const override { return false; }
};

/// A system that starts nothing at login.
class NullLoginItem final : public LoginItem
{
public:
    [[nodiscard]] Status status() const override { return Status::notFound; }
    bool registerItem() override { return false; }
    bool unregisterItem() override { return false; }
};

/// A build that is not updated by itself, and says why when it is asked.
class NullUpdater final : public Updater
{
public:
    /// `reason` is a whole sentence for people.
    explicit NullUpdater(QString reason)
        : m_reason(std::move(reason))
    { }

    [[nodiscard]] std::optional<QString> whyNotUpdating() const override { return m_reason; }
    void startUpdater(UpdateUserDriver& driver) override { m_driver = &driver; }
    void setAutomaticallyChecksForUpdates(bool) override { }
    void setUpdateCheckInterval(std::chrono::seconds) override { }
    void checkForUpdates() override;
    void stopUpdater() override { m_driver = nullptr; }
    [[nodiscard]] std::optional<QString> programToRelaunch() const override { return std::nullopt; }

private:
    QString m_reason;
    UpdateUserDriver* m_driver = nullptr;
};

} // namespace Tavik
