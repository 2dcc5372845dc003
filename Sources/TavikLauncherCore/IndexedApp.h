// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/AppIcon.h>
#include <TavikLauncherCore/SearchText.h>

#include <QString>
#include <QStringList>

#include <optional>

namespace Tavik {

/// One installed application. Two records are equal when identity, name, bundle identifier and path
/// are; icon and other names take no part. Texts compare by Unicode canonical equivalence.
class IndexedApp
{
public:
    IndexedApp(QString name, std::optional<QString> bundleIdentifier, QString path, AppIcon icon);
    /// The same record, also found by what people may call it besides.
    [[nodiscard]] IndexedApp withOtherNames(QStringList otherNames) const;

    /// The record's identity: always its path.
    [[nodiscard]] const QString& id() const { return m_path; }
    [[nodiscard]] const QString& name() const { return m_name; }
    [[nodiscard]] const std::optional<QString>& bundleIdentifier() const
    {
        return m_bundleIdentifier;
    }
    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] const AppIcon& icon() const { return m_icon; }
    [[nodiscard]] const QStringList& otherNames() const { return m_otherNames; }
    /// Of all its names.
    [[nodiscard]] WordBeginnings wordBeginnings() const { return m_wordBeginnings; }

    bool operator==(const IndexedApp& other) const;

private:
    QString m_name;
    std::optional<QString> m_bundleIdentifier;
    QString m_path;
    AppIcon m_icon;
    QStringList m_otherNames;
    WordBeginnings m_wordBeginnings;
};

} // namespace Tavik
