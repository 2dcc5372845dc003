// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/DirectoryNames.h>
#include <TavikLauncherPlatform/Linux/Applications/FolderSurvey.h>

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;
using Identity = FolderSurvey::Identity;

constexpr qsizetype maxWatches = 256;

QString childOf(const QString& folder, const QString& name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

Identity identityOf(const QString& folder)
{
    struct stat status = {};
    const bool isFolder
        = ::stat(QFile::encodeName(folder).constData(), &status) == 0 && S_ISDIR(status.st_mode);
    return isFolder ? Identity(status.st_dev, status.st_ino) : Identity();
}

/// Adds where a change can put another folder in the place of `folder`: what holds the links on the
/// way to it, and what holds the folder itself, or the part of the way that does not exist yet.
void addTurningPoints(const QString& folder, QStringList& points)
{
    constexpr int mostLinks = 40; // What the kernel follows.
    int links = 0;
    QString holder;
    QString reached = u"/"_s;
    QStringList ahead = folder.split(u'/', Qt::SkipEmptyParts);
    while (!ahead.isEmpty()) {
        holder = reached;
        const QFileInfo next(childOf(reached, ahead.takeFirst()));
        if (next.isSymLink() && ++links <= mostLinks) {
            points.append(holder);
            ahead = next.symLinkTarget().split(u'/', Qt::SkipEmptyParts) + ahead;
            reached = u"/"_s;
        } else if (next.isDir()) {
            reached = next.filePath();
        } else {
            break;
        }
    }
    points.append(holder);
}

/// The folders below that a walk would visit.
QStringList foldersBelow(const QString& folder)
{
    QStringList below;
    for (const QString& name : DirectoryNames::folders(folder)) {
        if (!name.endsWith(".app"_L1)) {
            below.append(childOf(folder, name));
        }
    }
    return below;
}

} // namespace

FolderSurvey::Places FolderSurvey::placesOf(const QStringList& folders)
{
    Places places;
    for (const QString& folder : folders) {
        places.folders.append(identityOf(folder));
        addTurningPoints(folder, places.turningPoints);
    }
    return places;
}

FolderSurvey FolderSurvey::of(const QStringList& folders)
{
    FolderSurvey survey{.places = placesOf(folders), .watches = {}};
    auto& watches = survey.watches;
    QHash<Identity, QString> known;
    const auto add = [&survey, &watches, &known](const QString& path, bool isInside) {
        const Identity identity = identityOf(path);
        if (identity == Identity()) {
            return false;
        }
        if (known.contains(identity)) {
            // Under two paths the kernel would still report a folder's changes under one only.
            if (isInside && known.value(identity) != path) {
                survey.doubles.append({known.value(identity), path});
            }
            return false;
        }
        known.insert(identity, path);
        watches.insert(path, {.identity = identity, .isInside = isInside});
        return true;
    };
    for (QStringList level = folders; !level.isEmpty();) {
        QStringList below;
        for (const QString& folder : std::as_const(level)) {
            if (watches.size() < maxWatches && add(folder, true)) {
                below.append(foldersBelow(folder));
            }
        }
        level = std::move(below);
    }
    for (const QString& folder : std::as_const(survey.places.turningPoints)) {
        add(folder, false);
    }
    return survey;
}

QStringList FolderSurvey::otherPathsOf(const QString& path) const
{
    QStringList others;
    for (const auto& [watched, other] : doubles) {
        if (path.startsWith(watched + u'/')) {
            others.append(other + path.sliced(watched.size()));
        }
    }
    return others;
}

} // namespace Tavik
