// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Catalog/AppLauncher.h>
#include <TavikLauncher/Catalog/RecentAppsStore.h>
#include <TavikLauncher/Look/DesktopPalette.h>
#include <TavikLauncher/Ring/LauncherCommands.h>
#include <TavikLauncher/Ring/LauncherPresentationState.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Shell/AuxiliaryWindows.h>
#include <TavikLauncher/Shell/LauncherPanelController.h>
#include <TavikLauncher/Shell/RecentActivations.h>
#include <TavikLauncher/Shell/RequestPerformer.h>
#include <TavikLauncher/Shell/ScreenGuard.h>
#include <TavikLauncher/Shell/SettingsOffer.h>
#include <TavikLauncher/Shell/SoftwareUpdates.h>
#include <TavikLauncher/Shell/TriggerShortcut.h>
#include <TavikLauncher/Shell/UpdaterApplication.h>
#include <TavikLauncher/Views/Tray/StatusItem.h>
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <memory>
#include <optional>

namespace Tavik {

class LauncherPanel;
struct Platform;

/// The program's spine: creates the long-lived objects, wires them and owns them for the life of
/// the process. Rules live elsewhere.
class AppDelegate
{
public:
    AppDelegate(Platform& platform, NotificationCenter& notifications);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    /// The start-up sequence; the trigger answers when it returns.
    void applicationDidFinishLaunching();
    /// This start was somebody's wish, who will look for the program: where no tray shows it, the
    /// settings window offers itself, unless `isFirstOfLogin` denies.
    void startedByUser(const Activation& activation, std::function<bool()> isFirstOfLogin);
    /// This start was the session's.
    void startedAtLogin() { m_isStartedAtLogin = true; }
    /// How the desktop serves now.
    [[nodiscard]] DesktopCheck::Facts desktopFacts() const;
    void perform(const AppRequest& request);
    /// From the event loop.
    void performSoon(const AppRequest& request);

private:
    [[nodiscard]] TriggerShortcut::Actions triggerActions();
    [[nodiscard]] std::unique_ptr<PanelSurface> makePanel(std::function<void()> dismiss);
    /// What `makePanel` made.
    [[nodiscard]] LauncherPanel& launcherPanel();
    void installHotKeySettingsObserver();
    void installWillSleepObserver();
    void installSessionLockObserver();
    void installShowInDockObserver();
    void installSettingsPreviewObserver();
    void startUpdater();
    void installUpdateSettingsObserver();
    void installStatusItem();
    void chooseFirstRunWindow();
    void showLauncher();
    void showPreview();
    void showSettings(const QString& section = {});
    void showAtPointer();
    void pinPanel();

    Platform& m_platform;
    bool m_isStartedAtLogin = false;
    DesktopPalette m_palette;
    NotificationCenter& m_notifications;
    LauncherSettings m_settings;
    RecentAppsStore m_recents;
    AppCatalog m_catalog;
    AppLauncher m_launcher;
    LauncherCommands m_commands;
    LauncherPresentationState m_presentation;
    std::optional<LauncherPanelController> m_panelController;
    RecentActivations m_recentActivations;
    ScreenGuard m_screenGuard;
    TriggerShortcut m_trigger;
    AuxiliaryWindows m_windows;
    RequestPerformer m_requests;
    SettingsOffer m_settingsOffer;
    std::optional<StatusItem> m_statusItem;
    UpdaterApplication m_updaterApplication;
    std::optional<SoftwareUpdates> m_softwareUpdates;
    ObserverToken m_showInDockObserver;
    ObserverToken m_updateSettingsObserver;
    ObserverToken m_checkForUpdatesNowObserver;
    ObserverToken m_settingsPreviewObserver;
    ObserverToken m_hotKeySettingsObserver;
    ObserverToken m_willSleepObserver;
    Task m_warmUp;
};

} // namespace Tavik
