// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/DesktopCheck.h>
#include <TavikLauncher/Trigger/TriggerGestures.h>

#include <functional>
#include <memory>

namespace Tavik {

class AccessibilityPermission;
class GlobalHotKey;
class KeyEvents;
class LauncherSettings;
class MainQueue;
class ScreenGuard;

/// The user's trigger shortcut: registered as the settings have it, and tied to the gestures that
/// decide what its presses do. Rests while a shortcut is recorded. Owned by the application
/// delegate.
class TriggerShortcut
{
public:
    struct Dependencies
    {
        KeyEvents& keyEvents;
        const AccessibilityPermission& permission;
        MainQueue& mainQueue;
        const LauncherSettings& settings;
        const ScreenGuard& screenGuard;
    };
    struct Actions
    {
        TriggerGestures::Panel panel;
        /// Something to be read although no window of ours is open.
        std::function<void(const QString& title, const QString& text)> tell;
        std::function<void()> checkAccessibilityPermission;
    };

    TriggerShortcut(const Dependencies& dependencies, Actions actions);
    ~TriggerShortcut();
    TriggerShortcut(const TriggerShortcut&) = delete;
    TriggerShortcut& operator=(const TriggerShortcut&) = delete;

    /// What has become of it; while one is recorded, what had.
    [[nodiscard]] DesktopCheck::Trigger state() const;
    /// Registers the shortcut of the settings in place of the one before, and from then on again
    /// when a changed keyboard may have what was refused.
    void setupHotKey();
    void setRecording(bool isRecording);
    /// A command stands for the press.
    void press();
    void systemWillSleep() { m_gestures.systemWillSleep(); }

private:
    [[nodiscard]] std::unique_ptr<GlobalHotKey> makeHotKey();

    Dependencies m_dependencies;
    Actions m_actions;
    TriggerGestures m_gestures;
    std::unique_ptr<GlobalHotKey> m_hotKey; ///< Null while there is none, or it rests.
    bool m_isRecording = false;
    DesktopCheck::Trigger m_stateBeforeRecording = DesktopCheck::Trigger::heard;
};

} // namespace Tavik
