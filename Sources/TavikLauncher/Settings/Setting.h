// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/SettingsTable.h>
#include <TavikLauncher/Settings/StoredValue.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <initializer_list>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tavik {

/// Brings a stored value into what the program can work with; also given the setting's default.
template <typename T> using Repair = std::function<T(const T& value, const T& initial)>;

template <typename T> [[nodiscard]] Repair<T> clamped(T low, T high)
{
    return [low, high](const T& value, const T& initial) {
        if constexpr (std::is_floating_point_v<T>) {
            if (std::isnan(value)) {
                return initial;
            }
        }
        return std::clamp(value, low, high);
    };
}

template <typename T> [[nodiscard]] Repair<T> oneOf(std::initializer_list<T> allowed)
{
    return [choices = std::vector<T>(allowed)](const T& value, const T& initial) {
        return std::ranges::find(choices, value) != choices.end() ? value : initial;
    };
}

/// A stored setting: `setting()` reads, `setting.set(value)` assigns. It is read from the user
/// defaults once, when it is made, and repaired then; an assignment keeps exactly what it is given.
template <typename T> class Setting final : public SettingRow
{
public:
    /// `notification` is posted after every assignment; empty for none.
    Setting(SettingsTable& table,
            QStringView name,
            T initial,
            QStringView notification = {},
            Repair<T> repair = {})
        : SettingRow(table, name, notification)
        , m_initial(std::move(initial))
        , m_repair(std::move(repair))
        , m_value(repaired(StoredValue::decoded<T>(read()).value_or(m_initial)))
    { }

    [[nodiscard]] const T& operator()() const { return m_value; }
    /// The value in force when nothing valid is stored.
    [[nodiscard]] const T& initialValue() const { return m_initial; }

    /// Assigns, writes and tells, in this order, also when the value stays the same.
    void set(T value)
    {
        m_value = std::move(value);
        writeAndTell(stored());
    }
    /// Puts right what was loaded, where that takes more than this row: neither written nor told.
    void amend(T value) { m_value = std::move(value); }

    [[nodiscard]] QVariant stored() const override { return StoredValue::encoded(m_value); }
    bool restore(const QVariant& value) override
    {
        const auto restored = StoredValue::decoded<T>(value);
        if (restored) {
            set(repaired(*restored));
        }
        return restored.has_value();
    }

private:
    [[nodiscard]] T repaired(const T& value) const
    {
        return m_repair ? m_repair(value, m_initial) : value;
    }

    T m_initial;
    Repair<T> m_repair;
    T m_value;
};

/// Like a setting, but for this run only.
template <typename T> class TransientSetting final
{
public:
    TransientSetting(SettingsTable& table, QStringView name)
        : m_table(table)
        , m_name(name.toString())
    { }

    [[nodiscard]] const T& operator()() const { return m_value; }

    void set(T value)
    {
        m_value = std::move(value);
        m_table.tellChange(m_name, {});
    }

private:
    SettingsTable& m_table;
    QString m_name;
    T m_value{};
};

} // namespace Tavik
