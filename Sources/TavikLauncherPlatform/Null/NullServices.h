// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/DesktopAppearance.h>
#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/LoginItem.h>
#include <TavikLauncherPlatform/Updater.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <utility>

namespace Tavik {

/// No key can be had system-wide, and none is heard of.
class NullKeyEvents final : public KeyEvents
{
public:
    static constexpr int statusUnsupported = -1;

    [[nodiscard]] HotKeyResult registerHotKey(const HotKey& hotKey,
                                              HotKeyHandlers handlers) override;
    [[nodiscard]] int hotKeyStatus(const HotKey&) override { return statusUnsupported; }
    [[nodiscard]] bool hasKeys(quint64, std::optional<quint16>) const override { return true; }
    [[nodiscard]] std::unique_ptr<KeyMonitor> addLocalMonitor(Kind kind, Filter filter) override;
    [[nodiscard]] std::unique_ptr<KeyMonitor> addGlobalMonitor(Kind kind,
                                                               Observer observer) override;
    [[nodiscard]] std::unique_ptr<EventTap>
    createEventTap(Kind kind, Observer observer, std::function<void()> disabled) override;
    [[nodiscard]] std::optional<quint64> heldModifiers() override { return std::nullopt; }
    [[nodiscard]] std::optional<quint16> keyCode(const NativeKey&) const override
    {
        return std::nullopt;
    }
    [[nodiscard]] std::optional<QString> characters(const NativeKey&) const override
    {
        return std::nullopt;
    }
    [[nodiscard]] LevelUse levelUse(const NativeKey&) const override { return LevelUse::none; }
};

/// A window server that does nothing beyond what the toolkit does and takes its word.
class NullWindowServer final : public WindowServer
{
public:
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
