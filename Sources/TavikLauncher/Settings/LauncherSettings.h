// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/Setting.h>
#include <TavikLauncher/Settings/SettingsTable.h>

#include <QObject>
#include <QStringList>

#include <optional>

namespace Tavik {

class FileManager;
class LoginItem;
class NotificationCenter;
class UserDefaults;
struct ImportSummary;
struct ThemePreset;

/// Every preference of the user, observable. Each is read once, here, and written back at every
/// assignment; nobody else caches one. The rows at the end are the settings themselves:
/// `settings.ringDiameter()` reads, `settings.ringDiameter.set(400)` assigns, writes, emits
/// `propertyChanged` and posts the row's notification, before it returns. Main thread only.
class LauncherSettings final : public QObject
{
    Q_OBJECT

public:
    /// Names of the notifications, posted through the notification centre.
    static constexpr QStringView openAboutSection = u"LauncherSettings.openAboutSection";
    static constexpr QStringView previewRequestNotification
        = u"LauncherSettings.previewRequestNotification";
    static constexpr QStringView hotKeyChanged = u"LauncherSettings.hotKeyChanged";
    static constexpr QStringView checkForUpdatesNow = u"LauncherSettings.checkForUpdatesNow";
    static constexpr QStringView updateSettingsChanged = u"LauncherSettings.updateSettingsChanged";
    static constexpr QStringView showInDockChanged = u"LauncherSettings.showInDockChanged";

    LauncherSettings(UserDefaults& defaults,
                     LoginItem& loginItem,
                     NotificationCenter& notifications,
                     QObject* parent = nullptr);

    /// Every stored setting in the order below.
    [[nodiscard]] const std::vector<SettingRow*>& rows() const { return m_table.rows(); }
    [[nodiscard]] UserDefaults& userDefaults() const { return m_table.userDefaults(); }
    /// The pinned applications that are permanent ones, in the user's order.
    [[nodiscard]] QStringList effectivePinnedAppPaths() const;
    [[nodiscard]] bool launchesAtLogin() const { return m_launchesAtLogin; }
    /// What the user should know about launch at login; absent when there is nothing to say.
    [[nodiscard]] const std::optional<QString>& launchAtLoginMessage() const
    {
        return m_launchAtLoginMessage;
    }

    /// Makes `path` permanent, pinned last; nothing happens when it is permanent already.
    void addPermanentApp(const QString& path);
    void removePermanentApps(const QStringList& paths);
    /// Ring size, thickness, icon size and number of slots as they come.
    void resetRingLayout();
    void applyTheme(const ThemePreset& preset);
    /// Counts a summon; the tip to show at it, or nothing. Not to be called for previews.
    [[nodiscard]] std::optional<QString> launchHintForThisSummon();
    /// The hint was gone before anybody could read it: the introduction comes once more.
    void launchHintWasNotSeen(const QString& hint);
    void setLaunchesAtLogin(bool launches);
    /// The contents of a backup file.
    [[nodiscard]] QByteArray exportBackup() const;
    /// Assigns what a backup file holds; absent, with nothing changed, when it is no such file.
    [[nodiscard]] std::optional<ImportSummary> applyBackup(const QByteArray& contents,
                                                           const FileManager& fileManager);
    void refreshLaunchAtLoginStatus();

Q_SIGNALS:
    /// After every assignment, also of the same value.
    void propertyChanged(const QString& name);

private:
    void completePinnedPaths();
    [[nodiscard]] QStringList pinnedPathsOfLegacySlots() const;
    void readLoginItem();

    static constexpr QStringView preview = previewRequestNotification;
    static constexpr QStringView nothing{};

    LoginItem& m_loginItem;
    NotificationCenter& m_notifications;
    bool m_launchesAtLogin = false;
    std::optional<QString> m_launchAtLoginMessage;
    SettingsTable m_table; ///< The rows below enter themselves here as they are made.

public:
    // clang-format off
    // One line is one setting: its name, its default, what an assignment posts, how a stored value is repaired.
    Setting<double> ringDiameter {m_table, u"ringDiameter", 320, preview, clamped(250.0, 550.0)};
    Setting<double> ringThickness {m_table, u"ringThickness", 80, preview, clamped(60.0, 220.0)};
    Setting<double> iconSize {m_table, u"iconSize", 50, preview, clamped(36.0, 92.0)};
    Setting<int> maxVisibleApps {m_table, u"maxVisibleApps", 15, preview, clamped(1, 24)};
    Setting<bool> keepsCenterHintVisible {m_table, u"keepsCenterHintVisible", false};
    Setting<bool> showsAppNames {m_table, u"showsAppNames", true, preview};
    Setting<bool> showsLaunchHints {m_table, u"showsLaunchHints", true};
    Setting<int> launchHintInterval {m_table, u"launchHintInterval", 25, nothing, oneOf({5, 25, 50, 100, 200})};
    Setting<bool> searchesAllApps {m_table, u"searchesAllApps", false};
    Setting<bool> fillsRingWithRecentApps {m_table, u"fillsRingWithRecentApps", true};
    Setting<bool> doubleTapModifiersPinsLauncher {m_table, u"doubleTapModifiersPinsLauncher", true};
    Setting<bool> hasCompletedOnboarding {m_table, u"hasCompletedOnboarding", false};
    Setting<bool> showInDock {m_table, u"showInDock", false, showInDockChanged};
    Setting<QString> ringColorHex {m_table, u"ringColorHex", QStringLiteral("#000000"), preview};
    Setting<double> ringOpacity {m_table, u"ringOpacity", 0.82, preview, clamped(0.2, 1.0)};
    Setting<QString> highlightColorHex {m_table, u"highlightColorHex", QStringLiteral("#0A84FF"), preview};
    Setting<double> highlightOpacity {m_table, u"highlightOpacity", 0.72, preview, clamped(0.2, 1.0)};
    Setting<double> pillOpacity {m_table, u"pillOpacity", 0.94, preview, clamped(0.2, 1.0)};
    Setting<QString> runningDotColorHex {m_table, u"runningDotColorHex", QStringLiteral("#0A84FF"), preview};
    Setting<bool> showsRunningDot {m_table, u"showsRunningDot", true, preview};
    Setting<QStringList> permanentAppPaths {m_table, u"permanentAppPaths", {}, preview};
    Setting<QStringList> pinnedPermanentAppPaths {m_table, u"pinnedPermanentAppPaths", {}, preview};
    Setting<bool> autoUpdatesEnabled {m_table, u"autoUpdatesEnabled", true, updateSettingsChanged};
    Setting<UpdateCheckFrequency> updateCheckFrequency {m_table, u"updateCheckFrequency", UpdateCheckFrequency::daily, updateSettingsChanged};
    Setting<HotKeyConfig> hotKeyConfig {m_table, u"hotKeyConfig", HotKeyConfig::defaultConfig(), hotKeyChanged};
    // clang-format on

    /// The section the settings window is to show when it is next brought up; not stored.
    TransientSetting<std::optional<QString>> pendingSettingsSectionID{m_table,
                                                                      u"pendingSettingsSectionID"};
};

} // namespace Tavik
