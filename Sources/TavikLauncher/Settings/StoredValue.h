// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/HotKeyConfig.h>
#include <TavikLauncher/Settings/UpdateCheckFrequency.h>

#include <QStringList>
#include <QVariant>

#include <optional>

/// How each type of setting is kept in the user defaults. Decoding answers only for a value of
/// exactly the kept type: an integer is not a double, and a number is not a text.
namespace Tavik::StoredValue {

[[nodiscard]] QVariant encoded(bool value);
[[nodiscard]] QVariant encoded(int value);
[[nodiscard]] QVariant encoded(double value);
[[nodiscard]] QVariant encoded(const QString& value);
[[nodiscard]] QVariant encoded(const QStringList& value);
[[nodiscard]] QVariant encoded(UpdateCheckFrequency value);
[[nodiscard]] QVariant encoded(const HotKeyConfig& value);

template <typename T> [[nodiscard]] std::optional<T> decoded(const QVariant& stored) = delete;
template <> std::optional<bool> decoded(const QVariant& stored);
/// Integers beyond the range of int come out as its nearest end.
template <> std::optional<int> decoded(const QVariant& stored);
template <> std::optional<double> decoded(const QVariant& stored);
template <> std::optional<QString> decoded(const QVariant& stored);
template <> std::optional<QStringList> decoded(const QVariant& stored);
/// Any unknown word is `daily`.
template <> std::optional<UpdateCheckFrequency> decoded(const QVariant& stored);
template <> std::optional<HotKeyConfig> decoded(const QVariant& stored);

} // namespace Tavik::StoredValue
