// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/AuxiliaryWindow.h>
#include <TavikLauncher/Settings/DesktopCheck.h>
#include <TavikLauncher/Shell/SettingsWindowPlace.h>

#include <QObject>
#include <QRectF>

#include <functional>
#include <optional>

namespace Tavik {

class AppCatalog;
class LauncherSettings;
class NotificationCenter;
struct HotKeyConfig;
struct Platform;

/// The settings, re-index, tour and permission windows: made when they are first needed, reused
/// while they live. The settings window is kept when it closes, the others are forgotten. Owned by
/// the application delegate.
class AuxiliaryWindows final : public QObject
{
    Q_OBJECT

public:
    struct Dependencies
    {
        Platform& platform;
        LauncherSettings& settings;
        AppCatalog& catalog;
        NotificationCenter& notifications;
    };
    struct Actions
    {
        std::function<void()> hideLauncher;
        std::function<void()> setupHotKey;
        std::function<DesktopCheck::Facts()> desktopFacts;
        std::function<void()> openSupportPage;
        std::function<std::optional<QString>(const HotKeyConfig&)> tryShortcut;
        std::function<void(bool isRecording)> shortcutRecordingChanged;
        std::function<void()> showPreview;
        std::function<void()> settingsChangedScreen;
        /// The settings window was moved, resized, minimised or brought back.
        std::function<void()> settingsChangedPlace;
        /// Called with every window that is made.
        std::function<void(QWidget&)> windowMade;
    };

    AuxiliaryWindows(const Dependencies& dependencies, Actions actions);
    ~AuxiliaryWindows() override;

    /// Asks for the permission to watch the keyboard, unless there is one.
    void checkAccessibilityPermission();
    /// `markIncomplete` counts the tour as not taken until the window closes.
    void showOnboarding(bool markIncomplete);
    void showReindex();
    void showSettings();
    /// The settings window at its About section.
    void showAbout();
    /// Gives a window that was made elsewhere what ours have: the taskbar or not, the menu's key
    /// equivalents, and the middle of the active screen, onto which it fits.
    void adopt(AuxiliaryWindow& window) const;
    /// Our windows appear in the taskbar, or skip it, as the preference says.
    void applyDockVisibility();

    /// Where new windows belong: the screen under the pointer, else the one in use, else any.
    [[nodiscard]] std::optional<Screen> activeScreen() const;
    /// On some screen, and not minimised.
    [[nodiscard]] bool isSettingsVisible() const;
    /// The settings window with its frame; points, y growing upwards.
    [[nodiscard]] QRectF settingsFrame() const;
    /// Where the settings window belongs on its screen, and the ring preview beside it wherever it
    /// stands now; absent while there is no settings window.
    [[nodiscard]] std::optional<SettingsPreviewLayout::Result> settingsPreviewLayout() const;

private:
    [[nodiscard]] AuxiliaryWindowPointer makeWindow(const AuxiliaryWindow::Options& options,
                                                    QWidget* content,
                                                    std::function<void()> onClose);
    [[nodiscard]] AuxiliaryWindowPointer makeSettingsWindow();
    /// A desktop that gives no chords is asked for their modifiers with a key.
    void chooseShortcutThatCanBeHad();
    /// Returns what went wrong, in words for the user.
    std::optional<QString> repair(DesktopCheck::Repair repair);
    void centerOnActiveScreen(AuxiliaryWindow& window) const;
    void desktopChanged();

    Dependencies m_dependencies;
    Actions m_actions;
    AuxiliaryWindowPointer m_settingsWindow;
    std::optional<SettingsWindowPlace> m_settingsPlace; ///< Present with the window.
    AuxiliaryWindowPointer m_reindexWindow;
    AuxiliaryWindowPointer m_onboardingWindow;
    AuxiliaryWindowPointer m_accessibilityPermissionWindow;
    bool m_isSettingsElsewhere = false; ///< On a virtual desktop that is not seen now.
    bool m_isEnding = false;
};

} // namespace Tavik
