// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/StoredValue.h>

#include <algorithm>
#include <limits>

namespace Tavik::StoredValue {

QVariant encoded(bool value)
{
    return value;
}

QVariant encoded(int value)
{
    return qlonglong{value};
}

QVariant encoded(double value)
{
    return value;
}

QVariant encoded(const QString& value)
{
    return value;
}

QVariant encoded(const QStringList& value)
{
    return QVariantList(value.begin(), value.end());
}

QVariant encoded(UpdateCheckFrequency value)
{
    return rawValue(value);
}

QVariant encoded(const HotKeyConfig& value)
{
    return value.toJson();
}

template <> std::optional<bool> decoded(const QVariant& stored)
{
    return stored.typeId() == QMetaType::Bool ? std::optional(stored.toBool()) : std::nullopt;
}

template <> std::optional<int> decoded(const QVariant& stored)
{
    if (stored.typeId() != QMetaType::LongLong) {
        return std::nullopt;
    }
    using Range = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<qlonglong>(stored.toLongLong(), Range::min(), Range::max()));
}

template <> std::optional<double> decoded(const QVariant& stored)
{
    return stored.typeId() == QMetaType::Double ? std::optional(stored.toDouble()) : std::nullopt;
}

template <> std::optional<QString> decoded(const QVariant& stored)
{
    return stored.typeId() == QMetaType::QString ? std::optional(stored.toString()) : std::nullopt;
}

template <> std::optional<QStringList> decoded(const QVariant& stored)
{
    if (stored.typeId() != QMetaType::QVariantList) {
        return std::nullopt;
    }
    QStringList strings;
    for (const QVariant& element : stored.toList()) {
        const auto string = decoded<QString>(element);
        if (!string) {
            return std::nullopt;
        }
        strings.append(*string);
    }
    return strings;
}

template <> std::optional<UpdateCheckFrequency> decoded(const QVariant& stored)
{
    const auto word = decoded<QString>(stored);
    if (!word) {
        return std::nullopt;
    }
    return updateCheckFrequency(*word).value_or(UpdateCheckFrequency::daily);
}

template <> std::optional<HotKeyConfig> decoded(const QVariant& stored)
{
    if (stored.typeId() != QMetaType::QByteArray) {
        return std::nullopt;
    }
    return HotKeyConfig::fromJson(stored.toByteArray());
}

} // namespace Tavik::StoredValue
