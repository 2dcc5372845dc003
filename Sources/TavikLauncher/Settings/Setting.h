// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/SettingsTable.h>
#include <TavikLauncher/Settings/StoredValue.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tavik {

/// What a setting may be: a range, or one of a few values; without either it may be anything. Told
/// once, in the setting's row, and read by what repairs stored values as by what offers them.
template <typename T> struct Allowed
{
    std::optional<std::pair<T, T>> range; ///< Both ends included.
    std::vector<T> choices;

    /// A stored value as the program can work with it.
    [[nodiscard]] T repaired(const T& value, const T& initial) const
    {
        if constexpr (std::is_floating_point_v<T>) {
            if (range && std::isnan(value)) {
                return initial;
            }
        }
        if constexpr (std::is_arithmetic_v<T>) {
            if (range) {
                return std::clamp(value, range->first, range->second);
            }
        }
        const bool isAllowed
            = choices.empty() || std::ranges::find(choices, value) != choices.end();
        return isAllowed ? value : initial;
    }
};

template <typename T> [[nodiscard]] Allowed<T> clamped(T low, T high)
{
    return {.range = std::pair(low, high), .choices = {}};
}

template <typename T> [[nodiscard]] Allowed<T> oneOf(std::initializer_list<T> choices)
{
    return {.range = {}, .choices = choices};
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
            Allowed<T> allowed = {})
        : SettingRow(table, name, notification)
        , m_initial(std::move(initial))
        , m_allowed(std::move(allowed))
        , m_value(repaired(StoredValue::decoded<T>(read()).value_or(m_initial)))
    { }

    [[nodiscard]] const T& operator()() const { return m_value; }
    /// The value in force when nothing valid is stored.
    [[nodiscard]] const T& initialValue() const { return m_initial; }
    [[nodiscard]] const Allowed<T>& allowed() const { return m_allowed; }

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
    [[nodiscard]] T repaired(const T& value) const { return m_allowed.repaired(value, m_initial); }

    T m_initial;
    Allowed<T> m_allowed;
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
