// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/FileManager.h>

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tavik::DesktopEntryFile {

/// A larger entry counts as damaged.
inline constexpr qint64 maxSize = 1024 * 1024;

/// Reads the entry at `path`; `identifier` is its desktop-file ID without the ending. Whatever is
/// there hides entries of the same identifier elsewhere, so what cannot be read yields a hidden
/// bundle. Any thread: GIO parses without global state.
[[nodiscard]] Bundle read(const QString& path, const QString& identifier);

/// The same for an entry's content.
[[nodiscard]] Bundle parse(const QByteArray& content, const QString& identifier);

} // namespace Tavik::DesktopEntryFile
