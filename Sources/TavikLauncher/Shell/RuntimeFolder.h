// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace Tavik::RuntimeFolder {

/// The user's own folder for the time of a login ($XDG_RUNTIME_DIR), which nobody else can reach.

/// The path of `file` in it; absent where that folder is not the user's own.
[[nodiscard]] std::optional<QString> path(const QString& file);

/// True the first time that it is asked for `name` since the user logged in; without such a folder
/// every time.
[[nodiscard]] bool isFirstOfLogin(const QString& name);

} // namespace Tavik::RuntimeFolder
