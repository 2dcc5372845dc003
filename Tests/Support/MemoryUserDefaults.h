// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/UserDefaults.h>

#include <QStringList>

namespace Tavik::Test {

/// User defaults without a file; records the order of the writes.
class MemoryUserDefaults final : public UserDefaults
{
public:
    [[nodiscard]] QVariant object(const QString& key) const override { return values.value(key); }
    void setObject(const QString& key, const QVariant& value) override
    {
        written.append(key);
        if (value.isValid()) {
            values.insert(key, value);
        } else {
            values.remove(key);
        }
    }

    QVariantMap values;
    QStringList written;
};

} // namespace Tavik::Test
