// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/AppIcon.h>
#include <TavikLauncherCore/SearchText.h>

#include <QSharedData>
#include <QSharedDataPointer>
#include <QString>

#include <optional>

namespace Tavik {

/// One installed application. Two records are equal when identity, name, bundle identifier and path
/// are; icon and other names take no part. Texts compare by Unicode canonical equivalence. Copies
/// share what they hold, so a list of thousands is small and quickly copied.
class IndexedApp
{
public:
    IndexedApp(QString name, std::optional<QString> bundleIdentifier, QString path, AppIcon icon);
    /// This record, also found by what people may call it besides, one name on each line.
    [[nodiscard]] IndexedApp withOtherNames(QString otherNames) &&;

    /// The record's identity: always its path.
    [[nodiscard]] const QString& id() const { return m_shared->path; }
    [[nodiscard]] const QString& name() const { return m_shared->name; }
    [[nodiscard]] const std::optional<QString>& bundleIdentifier() const
    {
        return m_shared->bundleIdentifier;
    }
    [[nodiscard]] const QString& path() const { return m_shared->path; }
    [[nodiscard]] const AppIcon& icon() const { return m_shared->icon; }
    [[nodiscard]] const QString& otherNames() const { return m_shared->otherNames; }
    /// Of all its names.
    [[nodiscard]] WordBeginnings wordBeginnings() const { return m_wordBeginnings; }

    bool operator==(const IndexedApp& other) const;

private:
    struct Shared : QSharedData
    {
        QString name;
        std::optional<QString> bundleIdentifier;
        QString path;
        AppIcon icon;
        QString otherNames; ///< In one text: a list and a block for each would take 150 bytes.
    };

    QSharedDataPointer<Shared> m_shared;
    WordBeginnings m_wordBeginnings; ///< Here, where a search meets them one behind the other.
};

} // namespace Tavik
