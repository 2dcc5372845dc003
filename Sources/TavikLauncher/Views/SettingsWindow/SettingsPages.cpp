// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>

#include <algorithm>
#include <array>

namespace Tavik::SettingsPages {

namespace {

struct Maker
{
    QStringView sectionID;
    std::unique_ptr<SettingsPage> (*make)(const SettingsDependencies&);
};

constexpr std::array makers{Maker{SettingsSection::general, makeGeneral},
                            Maker{SettingsSection::shortcut, makeShortcut},
                            Maker{SettingsSection::appearance, makeAppearance},
                            Maker{SettingsSection::theme, makeTheme},
                            Maker{SettingsSection::permanentApps, makePermanentApps},
                            Maker{SettingsSection::hints, makeHints},
                            Maker{SettingsSection::updates, makeUpdates},
                            Maker{SettingsSection::desktop, makeDesktop},
                            Maker{SettingsSection::backup, makeBackup},
                            Maker{SettingsSection::about, makeAbout}};

} // namespace

std::unique_ptr<SettingsPage> make(QStringView sectionID, const SettingsDependencies& dependencies)
{
    const auto* found = std::ranges::find(makers, sectionID, &Maker::sectionID);
    return found == makers.end() ? nullptr : found->make(dependencies);
}

} // namespace Tavik::SettingsPages
