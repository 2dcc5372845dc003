// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/IndexedApp.h>

#include <QString>

#include <optional>

namespace Tavik {

struct Bundle;

/// How an application that was found becomes a record of the catalog.
namespace CatalogRecord {

/// The name to show for the application at `path`; `bundle` is absent when it cannot be opened.
[[nodiscard]] QString displayName(const QString& path, const std::optional<Bundle>& bundle);

[[nodiscard]] IndexedApp record(const QString& path, const std::optional<Bundle>& bundle);

} // namespace CatalogRecord

} // namespace Tavik
