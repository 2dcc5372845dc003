// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/SettingsWindow/SettingsDependencies.h>

#include <QStringView>

#include <memory>

namespace Tavik {

class SettingsPage;

/// The sections' pages, made when they are first shown.
namespace SettingsPages {

[[nodiscard]] std::unique_ptr<SettingsPage> makeGeneral(const SettingsDependencies& dependencies);
[[nodiscard]] std::unique_ptr<SettingsPage> makeShortcut(const SettingsDependencies& dependencies);
[[nodiscard]] std::unique_ptr<SettingsPage>
makeAppearance(const SettingsDependencies& dependencies);
[[nodiscard]] std::unique_ptr<SettingsPage> makeTheme(const SettingsDependencies& dependencies);
[[nodiscard]] std::unique_ptr<SettingsPage>
makePermanentApps(const SettingsDependencies& dependencies);
[[nodiscard]] std::unique_ptr<SettingsPage> makeHints(const SettingsDependencies& dependencies);
[[nodiscard]] std::unique_ptr<SettingsPage> makeUpdates(const SettingsDependencies& dependencies);
[[nodiscard]] std::unique_ptr<SettingsPage> makeDesktop(const SettingsDependencies& dependencies);
[[nodiscard]] std::unique_ptr<SettingsPage> makeBackup(const SettingsDependencies& dependencies);
[[nodiscard]] std::unique_ptr<SettingsPage> makeAbout(const SettingsDependencies& dependencies);

/// The page of the section with this identifier; null for an unknown one.
[[nodiscard]] std::unique_ptr<SettingsPage> make(QStringView sectionID,
                                                 const SettingsDependencies& dependencies);

} // namespace SettingsPages

} // namespace Tavik
