// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tavik::BoundedFile {

/// The content of the regular file at `path` (links are followed); absent when there is none, when
/// it cannot be read or when it is larger than `maxBytes`. Never waits for a pipe's writer.
[[nodiscard]] std::optional<QByteArray> read(const QString& path, qint64 maxBytes);

} // namespace Tavik::BoundedFile
