// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/UserDefaults.h>

#include <QStringList>

#include <algorithm>

namespace Tavik {

namespace {

template <typename T> std::optional<T> exactly(const QVariant& value, QMetaType::Type type)
{
    if (value.typeId() != type) {
        return std::nullopt;
    }
    return value.value<T>();
}

} // namespace

std::optional<bool> UserDefaults::boolValue(const QString& key) const
{
    return exactly<bool>(object(key), QMetaType::Bool);
}

std::optional<qlonglong> UserDefaults::integerValue(const QString& key) const
{
    return exactly<qlonglong>(object(key), QMetaType::LongLong);
}

std::optional<double> UserDefaults::doubleValue(const QString& key) const
{
    return exactly<double>(object(key), QMetaType::Double);
}

std::optional<QString> UserDefaults::stringValue(const QString& key) const
{
    return exactly<QString>(object(key), QMetaType::QString);
}

std::optional<QByteArray> UserDefaults::dataValue(const QString& key) const
{
    return exactly<QByteArray>(object(key), QMetaType::QByteArray);
}

std::optional<QStringList> UserDefaults::stringArrayValue(const QString& key) const
{
    const auto list = exactly<QVariantList>(object(key), QMetaType::QVariantList);
    const auto isString = [](const QVariant& element) {
        return element.typeId() == QMetaType::QString;
    };
    if (!list || !std::ranges::all_of(*list, isString)) {
        return std::nullopt;
    }
    QStringList strings;
    strings.reserve(list->size());
    for (const QVariant& element : *list) {
        strings.append(element.toString());
    }
    return strings;
}

std::optional<QVariantMap> UserDefaults::dictionaryValue(const QString& key) const
{
    return exactly<QVariantMap>(object(key), QMetaType::QVariantMap);
}

} // namespace Tavik
