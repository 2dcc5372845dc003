// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QString>

#include <optional>

namespace Tavik {

/// The file that `path` stands for once every symbolic link has been followed, whether it exists or
/// not. A ring of links ends at one of them.
[[nodiscard]] QString fileBehindLinks(const QString& path);

/// Replaces the file at `path`, or the one its links lead to, by one with `contents`: as a whole
/// and on disk, or not at all. Makes the folder where it is missing; never replaces anything but a
/// regular file. The error's description, or nothing when it was done.
[[nodiscard]] std::optional<QString>
replaceFile(const QString& path, const QByteArray& contents, QFileDevice::Permissions permissions);

/// After this a loss of power leaves the folder with what has been renamed in it.
void syncFolder(const QString& path);

} // namespace Tavik
