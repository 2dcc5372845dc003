// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <Support/FakeLoginItem.h>
#include <Support/MemoryUserDefaults.h>

namespace Tavik::Test {

using namespace Qt::StringLiterals;

inline QString keyOf(const QString& name)
{
    return u"LauncherSettings."_s + name;
}

/// A store over values given by the properties' names, with everything it tells written down.
struct SettingsStore
{
    explicit SettingsStore(const QVariantMap& stored = {})
        : settings(holding(stored), loginItem, notifications)
    {
        constexpr auto assigned = &LauncherSettings::propertyChanged;
        QObject::connect(
            &settings, assigned, &settings, [this](const QString& name) { told << name; });
        for (const QStringView name :
             {LauncherSettings::previewRequestNotification, LauncherSettings::hotKeyChanged}) {
            tokens.push_back(notifications.addObserver(
                name, [this](const auto& notification) { told.append(notification.name); }));
        }
    }

    MemoryUserDefaults& holding(const QVariantMap& stored)
    {
        for (auto value = stored.begin(); value != stored.end(); ++value) {
            defaults.values.insert(keyOf(value.key()), value.value());
        }
        return defaults;
    }
    /// Every setting as it would be stored.
    [[nodiscard]] QVariantMap values() const
    {
        QVariantMap all;
        for (const SettingRow* row : settings.rows()) {
            all.insert(row->name(), row->stored());
        }
        return all;
    }

    MemoryUserDefaults defaults;
    FakeLoginItem loginItem;
    NotificationCenter notifications;
    QStringList told; ///< Properties and notifications, in order.
    LauncherSettings settings;
    std::vector<ObserverToken> tokens;
};

} // namespace Tavik::Test
