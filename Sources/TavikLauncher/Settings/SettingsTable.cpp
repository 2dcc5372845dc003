// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/SettingsTable.h>
#include <TavikLauncherPlatform/UserDefaults.h>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

SettingsTable::SettingsTable(UserDefaults& userDefaults, ChangeHandler changed)
    : m_userDefaults(userDefaults)
    , m_changed(std::move(changed))
{ }

void SettingsTable::tellChange(const QString& name, QStringView notification) const
{
    m_changed(name, notification);
}

SettingRow::SettingRow(SettingsTable& table, QStringView name, QStringView notification)
    : m_table(table)
    , m_name(name.toString())
    , m_key(u"LauncherSettings."_s + m_name)
    , m_notification(notification)
{
    table.m_rows.push_back(this);
}

QVariant SettingRow::read() const
{
    return m_table.userDefaults().object(m_key);
}

void SettingRow::writeAndTell(const QVariant& value)
{
    m_table.userDefaults().setObject(m_key, value);
    m_table.tellChange(m_name, m_notification);
}

} // namespace Tavik
