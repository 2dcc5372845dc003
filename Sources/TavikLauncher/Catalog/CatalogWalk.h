// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/IndexedApp.h>

#include <QList>
#include <QStringList>

#include <optional>

namespace Tavik {

class FileManager;
struct Bundle;

/// Finds the installed applications. Reads the disk, so it runs off the main thread.
namespace CatalogWalk {

/// Every application below `searchPaths`, sorted by name as the user's language orders names.
/// Missing and unreadable folders are skipped silently. A desktop entry hides those that come
/// after it with the same identifier, even when it is not to be shown itself.
[[nodiscard]] QList<IndexedApp> loadApplications(const FileManager& fileManager,
                                                 const QStringList& searchPaths);

/// The name to show for the application at `path`; `bundle` is absent when it cannot be opened.
[[nodiscard]] QString displayName(const QString& path, const std::optional<Bundle>& bundle);

/// The record of the application at `path`, made as the walk makes it.
[[nodiscard]] IndexedApp record(const QString& path, const std::optional<Bundle>& bundle);

} // namespace CatalogWalk

} // namespace Tavik
