// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QList>
#include <QStringList>

#include <utility>

namespace Tavik {

/// Where some folders are, and what has to be watched to notice that something in them changes or
/// that other folders take their places. Each look reads the disk, on any thread.
struct FolderSurvey
{
    using Identity = std::pair<quint64, quint64>; ///< Device and inode; zeros for no folder.
    struct Watched
    {
        Identity identity;
        bool isInside = false; ///< One of the folders or below, not on the way to them.
    };
    struct Places
    {
        QList<Identity> folders;
        QStringList turningPoints; ///< Where a change can make them other folders.

        bool operator==(const Places&) const = default;
    };

    /// `folders` are absolute paths; they need not exist.
    [[nodiscard]] static FolderSurvey of(const QStringList& folders);
    [[nodiscard]] static Places placesOf(const QStringList& folders);

    /// Where else a walk meets what is at `path`, which is in a folder that is watched.
    [[nodiscard]] QStringList otherPathsOf(const QString& path) const;

    Places places;
    QHash<QString, Watched> watches; ///< By path, each folder once.
    QList<std::pair<QString, QString>> doubles; ///< A folder that is watched, and its other path.
};

} // namespace Tavik
