// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Shell/UpdateActivation.h>
#include <TavikLauncher/Views/Updates/StandardUserDriver.h>
#include <TavikLauncher/Views/Updates/StandardUserDriverDelegate.h>

namespace Tavik {

class FileManager;
class LauncherSettings;

/// The program's own part in software updates: starts the updater, tells it the user's settings,
/// leaves what is found in the background to a quiet reminder, and brings the updater's windows
/// before the user who has asked. Stops the updater when it goes. Owned by the application
/// delegate.
class SoftwareUpdates final : private StandardUserDriverDelegate
{
public:
    struct Dependencies
    {
        Updater& updater;
        LauncherSettings& settings;
        MainQueue& mainQueue;
        WindowServer& windowServer;
        const DesktopAppearance& appearance;
        const FileManager& fileManager;
        UpdateActivation::Application& application;
        QString version; ///< Of the running program.
    };
    struct Actions
    {
        std::function<void(const QString& version)> showUpdateReminder;
        std::function<void()> clearUpdateReminder;
        /// Called with every window that is made, to place it.
        std::function<void(AuxiliaryWindow&)> windowMade;
        /// True while the user is at one of our windows.
        std::function<bool()> isInImmediateFocus;
    };

    SoftwareUpdates(const Dependencies& dependencies, Actions actions);
    ~SoftwareUpdates() override;
    SoftwareUpdates(const SoftwareUpdates&) = delete;
    SoftwareUpdates& operator=(const SoftwareUpdates&) = delete;

    /// Makes the updater follow the settings as they are now.
    void applyUpdateSettings();
    /// Looks for a newer version because the user asked.
    void checkForUpdates();

private:
    [[nodiscard]] bool supportsGentleScheduledUpdateReminders() const override { return true; }
    [[nodiscard]] bool
    standardUserDriverShouldHandleShowingScheduledUpdate(const UpdateItem& update,
                                                         bool andInImmediateFocus) override;
    void standardUserDriverWillHandleShowingUpdate(bool handleShowingUpdate,
                                                   const UpdateItem& forUpdate,
                                                   const UpdateUserState& state) override;
    void standardUserDriverDidReceiveUserAttention(const UpdateItem& forUpdate) override;
    void standardUserDriverWillFinishUpdateSession() override;
    void standardUserDriverWillShowModalAlert() override;

    Dependencies m_dependencies;
    Actions m_actions;
    UpdateActivation m_activation;
    StandardUserDriver m_userDriver;
};

} // namespace Tavik
