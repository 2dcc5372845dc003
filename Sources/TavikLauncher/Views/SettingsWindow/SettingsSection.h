// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/LineSymbol.h>

#include <QStringView>

#include <array>

namespace Tavik {

/// A section of the settings window. `pendingSettingsSectionID` names one by its identifier.
struct SettingsSection
{
    QStringView id;
    QStringView title;
    LineSymbol symbol;

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
    SettingsSection{SettingsSection::general, u"General", LineSymbol::gear},
    SettingsSection{SettingsSection::shortcut, u"Shortcut", LineSymbol::keyboard},
    SettingsSection{SettingsSection::appearance, u"Appearance", LineSymbol::ring},
    SettingsSection{SettingsSection::theme, u"Theme", LineSymbol::palette},
    SettingsSection{SettingsSection::permanentApps, u"Permanent Apps", LineSymbol::pin},
    SettingsSection{SettingsSection::hints, u"Hints", LineSymbol::bulb},
    SettingsSection{SettingsSection::updates, u"Updates", LineSymbol::refresh},
    SettingsSection{SettingsSection::backup, u"Backup", LineSymbol::archive},
    SettingsSection{SettingsSection::about, u"About", LineSymbol::info}};

} // namespace Tavik
