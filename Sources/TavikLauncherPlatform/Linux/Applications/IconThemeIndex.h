// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace Tavik {

/// What a theme's `index.theme` says.
struct IconThemeIndex
{
    /// One folder of icons of one size. Sizes are in points.
    struct Directory
    {
        QString path; ///< Inside the theme's own folder.
        int size = 1;
        int scale = 1; ///< Device pixels per point that the icons are drawn for.
        bool isScalable = false;
        int minSize = 1; ///< The sizes that a scalable icon may be drawn at.
        int maxSize = 1;
        bool holdsApplications = false;
    };

    QStringList inherits;
    QList<Directory> directories;

    /// Absent when `bytes` are no such file. Folders that lead out of the theme are left out,
    /// absurd sizes are clamped.
    [[nodiscard]] static std::optional<IconThemeIndex> parse(const QByteArray& bytes);
    /// The folders that the standard's fallback theme has where its index is not installed.
    [[nodiscard]] static IconThemeIndex ofFallbackTheme();
};

/// True for a text that can be part of a path: of sensible length, with no '/', nothing
/// unprintable and no leading dot.
[[nodiscard]] bool isIconPathComponent(const QString& text);

} // namespace Tavik
