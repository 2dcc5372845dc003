// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/SettingsBackup.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsDependencies.h>
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <QHash>
#include <QWidget>

class QStackedLayout;

namespace Tavik {

class SettingsPage;
class SettingsSidebar;

/// The settings window's content, and the window itself when it has no parent: sections at the
/// left, the shown one's page at the right. Pages are made when they are first shown and go when
/// the window closes; what the user sees is always the settings' own state. Main thread only.
class LauncherSettingsView final : public QWidget
{
    Q_OBJECT

public:
    static constexpr QSize preferredSize{960, 700};
    static constexpr QSize smallestSize{860, 620};

    explicit LauncherSettingsView(const SettingsDependencies& dependencies,
                                  QWidget* parent = nullptr);
    ~LauncherSettingsView() override;

    [[nodiscard]] const QString& sectionID() const { return m_sectionID; }
    /// Brings up a section; unknown identifiers change nothing.
    void showSection(const QString& id);
    /// The shown section's page; null while the window is closed.
    [[nodiscard]] SettingsPage* page() const;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void applyLook();
    void applyFont();
    void showPage();
    void dropPages();
    void takePendingSection();

    std::optional<SettingsSnapshot> m_beforeImport;
    SettingsDependencies m_dependencies;
    SettingsSidebar* m_sidebar;
    QStackedLayout* m_stack;
    QHash<QString, SettingsPage*> m_pages; ///< By section; the stack owns them.
    QString m_sectionID;
    QPalette m_look; ///< What is shown now.
    QFont m_font;
    ObserverToken m_aboutObserver;
};

} // namespace Tavik
