// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/LineSymbol.h>

#include <QCoreApplication>
#include <QStringView>

#include <array>

namespace Tavik {

/// A section of the settings window. `pendingSettingsSectionID` names one by its identifier.
struct SettingsSection
{
    QStringView id;
    const char* title; ///< For `Texts::tr`.
    LineSymbol symbol;

    static constexpr QStringView general = u"general";
    static constexpr QStringView shortcut = u"shortcut";
    static constexpr QStringView appearance = u"appearance";
    static constexpr QStringView theme = u"theme";
    static constexpr QStringView permanentApps = u"permanentApps";
    static constexpr QStringView hints = u"hints";
    static constexpr QStringView updates = u"updates";
    static constexpr QStringView desktop = u"desktop";
    static constexpr QStringView backup = u"backup";
    static constexpr QStringView about = u"about";
};

/// In the order of the sidebar.
inline constexpr std::array allSettingsSections{
    SettingsSection{
        SettingsSection::general, QT_TRANSLATE_NOOP("Tavik::Texts", "General"), LineSymbol::gear},
    SettingsSection{SettingsSection::shortcut,
                    QT_TRANSLATE_NOOP("Tavik::Texts", "Shortcut"),
                    LineSymbol::keyboard},
    SettingsSection{SettingsSection::appearance,
                    QT_TRANSLATE_NOOP("Tavik::Texts", "Appearance"),
                    LineSymbol::ring},
    SettingsSection{
        SettingsSection::theme, QT_TRANSLATE_NOOP("Tavik::Texts", "Theme"), LineSymbol::palette},
    SettingsSection{SettingsSection::permanentApps,
                    QT_TRANSLATE_NOOP("Tavik::Texts", "Permanent Apps"),
                    LineSymbol::pin},
    SettingsSection{
        SettingsSection::hints, QT_TRANSLATE_NOOP("Tavik::Texts", "Hints"), LineSymbol::bulb},
    SettingsSection{SettingsSection::updates,
                    QT_TRANSLATE_NOOP("Tavik::Texts", "Updates"),
                    LineSymbol::refresh},
    SettingsSection{SettingsSection::desktop,
                    QT_TRANSLATE_NOOP("Tavik::Texts", "Check My Desktop"),
                    LineSymbol::screen},
    SettingsSection{
        SettingsSection::backup, QT_TRANSLATE_NOOP("Tavik::Texts", "Backup"), LineSymbol::archive},
    SettingsSection{
        SettingsSection::about, QT_TRANSLATE_NOOP("Tavik::Texts", "About"), LineSymbol::info}};

} // namespace Tavik
