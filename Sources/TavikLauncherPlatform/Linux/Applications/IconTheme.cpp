// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/IconTheme.h>
#include <TavikLauncherPlatform/Linux/Disk/BoundedFile.h>
#include <TavikLauncherPlatform/Linux/Disk/KeyFile.h>

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

constexpr qint64 maxIndexSize = 1024 * 1024;
constexpr qsizetype maxThemes = 16;
constexpr auto fallbackTheme = "hicolor"_L1;
/// The vector file first: it is the crisper one at any size between.
constexpr std::array imageEndings{"svg"_L1, "png"_L1, "xpm"_L1};

/// The first readable index wins, as the standard has it.
std::optional<IconThemeIndex> loadIndex(const QString& theme, const QStringList& themeFolders)
{
    for (const QString& folder : themeFolders) {
        const auto bytes
            = BoundedFile::read(folder + u'/' + theme + "/index.theme"_L1, maxIndexSize);
        if (auto index = bytes ? IconThemeIndex::parse(*bytes) : std::nullopt) {
            return index;
        }
    }
    return std::nullopt;
}

bool offerPlain(const QString& stem, const std::function<bool(const QString&)>& accept)
{
    return std::ranges::any_of(imageEndings, [&stem, &accept](QLatin1StringView ending) {
        const QString path = stem + u'.' + ending;
        return QFileInfo::exists(path) && accept(path);
    });
}

} // namespace

QString usableIconSource(const QString& source)
{
    if (source.startsWith(u'/')) {
        return source;
    }
    QString name = source;
    for (const QLatin1StringView ending : imageEndings) {
        if (name.endsWith(u'.' + QString(ending))) {
            name.chop(ending.size() + 1);
            break;
        }
    }
    return isIconPathComponent(name) ? name : QString();
}

IconFolders IconFolders::ofSession()
{
    IconFolders folders;
    folders.themes.append(QDir::homePath() + "/.icons"_L1);
    for (const QString& data :
         QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        folders.themes.append(data + "/icons"_L1);
        folders.pixmaps.append(data + "/pixmaps"_L1);
    }
    return folders;
}

IconTheme IconTheme::load(const QString& name, const IconFolders& folders)
{
    IconTheme theme;
    theme.m_plainFolders = folders.themes + folders.pixmaps;
    QStringList waiting{name};
    QStringList seen{fallbackTheme};
    while (!waiting.isEmpty() && seen.size() < maxThemes) {
        const QString next = waiting.takeFirst();
        if (seen.contains(next) || !isIconPathComponent(next)) {
            continue;
        }
        seen.append(next);
        if (const auto index = loadIndex(next, folders.themes)) {
            theme.m_themes.append(existing(index->directories, next, folders.themes));
            waiting = index->inherits + waiting;
        }
    }
    const IconThemeIndex last
        = loadIndex(fallbackTheme, folders.themes).value_or(IconThemeIndex::ofFallbackTheme());
    theme.m_themes.append(existing(last.directories, fallbackTheme, folders.themes));
    return theme;
}

/// A theme may be spread over all theme folders, whichever of them holds the index.
IconTheme::Directories IconTheme::existing(const Directories& described,
                                           const QString& theme,
                                           const QStringList& themeFolders)
{
    Directories found;
    for (const QString& folder : themeFolders) {
        for (IconThemeIndex::Directory directory : described) {
            directory.path = folder + u'/' + theme + u'/' + directory.path;
            if (QFileInfo(directory.path).isDir()) {
                found.append(directory);
            }
        }
    }
    return found;
}

double IconTheme::cost(const IconThemeIndex::Directory& directory, bool isVector, Size size)
{
    // In device pixels. An exact picture is best, then one made smaller, then a vector drawn at the
    // size: themes draw their sizes with care, and the toolkit knows only plain vector pictures.
    constexpr double notExact = 1;
    constexpr double enlarged = 10'000; // Any sharp picture is better.
    const double points = size.side / size.scale;
    const double distance = static_cast<double>(directory.size) * directory.scale - size.side;
    const bool isForScale = directory.scale == static_cast<int>(std::lround(size.scale));
    const bool isInRange = points >= directory.minSize && points <= directory.maxSize;
    const double otherScale = isForScale ? 0 : 0.5;
    if (std::abs(distance) < 0.5) {
        return otherScale;
    }
    if (isVector && directory.isScalable && isInRange) {
        return notExact + std::min<double>(std::abs(distance), size.side) + otherScale;
    }
    if (distance > 0) {
        return notExact + distance + otherScale;
    }
    return notExact + otherScale + (isVector ? size.side - distance : enlarged - distance);
}

QList<IconTheme::Candidate> IconTheme::candidates(const Directories& directories, Size size)
{
    QList<Candidate> candidates;
    candidates.reserve(directories.size() * static_cast<qsizetype>(imageEndings.size()));
    for (qsizetype index = 0; index < directories.size(); ++index) {
        // An application's icon in another context is a picture of the same name for something
        // else.
        const double otherContext = directories.at(index).holdsApplications ? 0 : 0.25;
        for (const QLatin1StringView ending : imageEndings) {
            const bool isVector = ending == imageEndings.front();
            candidates.append({.cost = cost(directories.at(index), isVector, size) + otherContext,
                               .directory = index,
                               .ending = ending});
        }
    }
    std::ranges::stable_sort(candidates, {}, &Candidate::cost);
    return candidates;
}

bool IconTheme::find(const QString& name,
                     Size size,
                     const std::function<bool(const QString& path)>& accept) const
{
    if (!isIconPathComponent(name)) {
        return false;
    }
    for (const Directories& directories : m_themes) {
        for (const Candidate& candidate : candidates(directories, size)) {
            const QString path
                = directories.at(candidate.directory).path + u'/' + name + u'.' + candidate.ending;
            if (QFileInfo::exists(path) && accept(path)) {
                return true;
            }
        }
    }
    return std::ranges::any_of(m_plainFolders, [&name, &accept](const QString& folder) {
        return offerPlain(folder + u'/' + name, accept);
    });
}

} // namespace Tavik
