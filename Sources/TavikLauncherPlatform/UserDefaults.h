// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

#include <optional>

namespace Tavik {

/// The per-user key-value store. Values keep their stored type: bool, qlonglong, double, QString,
/// QByteArray, QVariantList and QVariantMap are told apart, and the typed queries answer only for
/// a value of exactly that type. Reads come from memory. Main thread only.
class UserDefaults
{
public:
    virtual ~UserDefaults() = default;

    /// The value under `key`, or an invalid variant.
    [[nodiscard]] virtual QVariant object(const QString& key) const = 0;
    /// Stores `value`; an invalid variant removes the key. The write reaches the disk by the end of
    /// the main loop's turn.
    virtual void setObject(const QString& key, const QVariant& value) = 0;
    /// The same for what changes often: the write waits until a second has passed without another
    /// change of this kind, but not for ever.
    virtual void setObjectSoon(const QString& key, const QVariant& value) { setObject(key, value); }

    [[nodiscard]] std::optional<bool> boolValue(const QString& key) const;
    [[nodiscard]] std::optional<qlonglong> integerValue(const QString& key) const;
    [[nodiscard]] std::optional<double> doubleValue(const QString& key) const;
    [[nodiscard]] std::optional<QString> stringValue(const QString& key) const;
    [[nodiscard]] std::optional<QByteArray> dataValue(const QString& key) const;
    /// Absent unless the value is an array whose every element is a string.
    [[nodiscard]] std::optional<QStringList> stringArrayValue(const QString& key) const;
    [[nodiscard]] std::optional<QVariantMap> dictionaryValue(const QString& key) const;
};

} // namespace Tavik
