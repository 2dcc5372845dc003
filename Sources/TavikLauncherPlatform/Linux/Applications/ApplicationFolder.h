// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/FileManager.h>

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tavik::ApplicationFolder {

/// What an application folder says of itself.
struct InfoDictionary
{
    std::optional<QString> displayName;
    std::optional<QString> name;
    std::optional<QString> identifier;
    std::optional<QString> iconFile;
    std::optional<QString> executable;
};

/// A larger `Info.plist` counts as damaged.
inline constexpr qint64 maxInfoSize = 1024 * 1024;

/// Reads the `.app` folder at `path`; absent when its `Info.plist` is missing or damaged.
[[nodiscard]] std::optional<Bundle> read(const QString& path);

/// The texts of an `Info.plist`, XML or binary; absent when its root is not a dictionary.
[[nodiscard]] std::optional<InfoDictionary> parse(const QByteArray& propertyList);

} // namespace Tavik::ApplicationFolder
