// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/SettingsWindow/SettingsSymbol.h>

#include <QStringView>

#include <array>

namespace Tavik {

/// A section of the settings window. `pendingSettingsSectionID` names one by its identifier.
struct SettingsSection
{
    QStringView id;
    QStringView title;
    SettingsSymbol symbol;

    static constexpr QStringView general = u"general";
    static constexpr QStringView shortcut = u"shortcut";
    static constexpr QStringView appearance = u"appearance";
    static constexpr QStringView theme = u"theme";
    static constexpr QStringView permanentApps = u"permanentApps";
    static constexpr QStringView hints = u"hints";
    static constexpr QStringView updates = u"updates";
    static constexpr QStringView backup = u"backup";
    static constexpr QStringView about = u"about";
};

/// In the order of the sidebar.
inline constexpr std::array allSettingsSections{
    SettingsSection{SettingsSection::general, u"General", SettingsSymbol::gear},
    SettingsSection{SettingsSection::shortcut, u"Shortcut", SettingsSymbol::keyboard},
    SettingsSection{SettingsSection::appearance, u"Appearance", SettingsSymbol::ring},
    SettingsSection{SettingsSection::theme, u"Theme", SettingsSymbol::palette},
    SettingsSection{SettingsSection::permanentApps, u"Permanent Apps", SettingsSymbol::pin},
    SettingsSection{SettingsSection::hints, u"Hints", SettingsSymbol::bulb},
    SettingsSection{SettingsSection::updates, u"Updates", SettingsSymbol::refresh},
    SettingsSection{SettingsSection::backup, u"Backup", SettingsSymbol::archive},
    SettingsSection{SettingsSection::about, u"About", SettingsSymbol::info}};

} // namespace Tavik
