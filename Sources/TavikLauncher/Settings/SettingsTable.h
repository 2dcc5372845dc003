// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>
#include <QVariant>

#include <functional>
#include <vector>

namespace Tavik {

class SettingRow;
class UserDefaults;

/// Every stored setting, in the order of declaration. Rows put themselves here as they are made and
/// live as long as the table; whoever owns both declares the table first.
class SettingsTable
{
public:
    /// Hears of every assignment: the property's name and the notification to post, empty for none.
    using ChangeHandler = std::function<void(const QString& name, QStringView notification)>;

    SettingsTable(UserDefaults& userDefaults, ChangeHandler changed);
    SettingsTable(const SettingsTable&) = delete;
    SettingsTable& operator=(const SettingsTable&) = delete;

    [[nodiscard]] UserDefaults& userDefaults() const { return m_userDefaults; }
    [[nodiscard]] const std::vector<SettingRow*>& rows() const { return m_rows; }

    void tellChange(const QString& name, QStringView notification) const;

private:
    friend class SettingRow;

    UserDefaults& m_userDefaults;
    ChangeHandler m_changed;
    std::vector<SettingRow*> m_rows;
};

/// One stored setting, seen without its type: what is needed to walk the table.
class SettingRow
{
public:
    SettingRow(SettingsTable& table, QStringView name, QStringView notification);
    virtual ~SettingRow() = default;
    SettingRow(const SettingRow&) = delete;
    SettingRow& operator=(const SettingRow&) = delete;

    /// The property's name.
    [[nodiscard]] const QString& name() const { return m_name; }
    /// The key in the user defaults.
    [[nodiscard]] const QString& key() const { return m_key; }
    /// The current value as it is kept in the user defaults, in its exact type.
    [[nodiscard]] virtual QVariant stored() const = 0;
    /// Assigns a value of the stored type, repaired as at load. False, and nothing happens, when
    /// its type is another one.
    virtual bool restore(const QVariant& value) = 0;

protected:
    [[nodiscard]] QVariant read() const;
    void writeAndTell(const QVariant& value);

private:
    SettingsTable& m_table;
    QString m_name;
    QString m_key;
    QStringView m_notification;
};

} // namespace Tavik
