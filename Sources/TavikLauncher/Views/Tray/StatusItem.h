// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <QColor>
#include <QMenu>
#include <QObject>
#include <QString>
#include <QSystemTrayIcon>

#include <functional>
#include <memory>
#include <optional>

namespace Tavik {

class Notices;
class StatusTray;

/// The wheel in the desktop's tray and its menu. Appears as soon as the desktop has a tray, which
/// may be long after the start or never; the menu and its key equivalents work without one, too.
/// Owned by the application delegate; the tray outlives it. Main thread only.
class StatusItem final : public QObject
{
    Q_OBJECT

public:
    struct Dependencies
    {
        StatusTray& tray;
        Notices& notices;
        MainQueue& mainQueue;
    };
    struct Actions
    {
        std::function<void()> showAbout;
        std::function<void()> showSettings;
        std::function<void()> checkForUpdates;
        std::function<void()> showLauncher;
        std::function<void()> repeatTour;
        std::function<void()> showReindexWindow;
        std::function<void()> openSupportPage;
        std::function<void()> quit;
    };

    StatusItem(const Dependencies& dependencies, Actions actions);
    ~StatusItem() override;

    /// Says in the icon and in the menu that this version can be had; while there is no item to be
    /// seen, by a notice of the desktop's.
    void showUpdateReminder(const QString& version);
    void clearUpdateReminder();
    /// Tells the user something about the shortcut that nobody has asked for: beside the status
    /// item, or by a notice of the desktop's, which opens the settings.
    void tell(const QString& title, const QString& text);
    /// Makes the menu's key equivalents work while `window` has the keyboard.
    void addKeyEquivalents(QWidget& window);
    /// Only the one that opens the settings, for a window in which keys are typed in haste.
    void addSettingsKeyEquivalent(QWidget& window);

    [[nodiscard]] QMenu& menu() { return m_menu; }
    /// What is shown now, or would be.
    [[nodiscard]] QIcon icon() const;
    /// What the icon is called for those who do not see it.
    [[nodiscard]] QString accessibilityDescription() const;
    /// True once the item has been handed to the desktop.
    [[nodiscard]] bool isInstalled() const { return m_icon != nullptr; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QIcon makeIcon() const;
    void buildMenu();
    QAction* addItem(const QString& title, const std::function<void()>& action);
    void trayChanged();
    void install();
    [[nodiscard]] bool isSeen() const;
    void refreshNotice();
    void refreshIcon();
    void drawIcon();
    void lookAtPanel();
    void activated(QSystemTrayIcon::ActivationReason reason);

    Dependencies m_dependencies;
    Actions m_actions;
    QMenu m_menu;
    QAction* m_settingsItem = nullptr;
    QAction* m_updateItem = nullptr;
    QAction* m_quitItem = nullptr;
    std::optional<QString> m_updateVersion;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    std::optional<QColor> m_seenColor; ///< What can be seen on a panel that does not tell.
    Task m_waitForNotifier;
    Task m_lookAtPanel;
    Task m_reportMissingTray;
    Task m_missTray;
};

} // namespace Tavik
