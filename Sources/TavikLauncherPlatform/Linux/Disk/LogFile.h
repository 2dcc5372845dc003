// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tavik::LogFile {

/// Appends to the regular file at `path` that belongs to this user and has no other name, and
/// otherwise renames a new file there. No link is followed. The error's description, or nothing
/// when it was done.
[[nodiscard]] std::optional<QString> append(const QString& path, const QByteArray& contents);

} // namespace Tavik::LogFile
