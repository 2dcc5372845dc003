// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/CatalogIndex.h>
#include <TavikLauncher/Catalog/CatalogRecord.h>
#include <TavikLauncherCore/AppSearch.h>
#include <TavikLauncherPlatform/FileManager.h>

#include <algorithm>
#include <utility>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

/// True for a link that the user made: the system's links are installed applications, the user's
/// are shortcuts to ones that are listed already.
bool isUsersOwnLink(const DirectoryItem& item, unsigned userId)
{
    return item.isSymbolicLink && userId != 0 && item.ownerId == userId;
}

bool isSameInAll(const IndexedApp& left, const IndexedApp& right)
{
    return left == right && left.icon().source == right.icon().source
        && left.otherNames() == right.otherNames();
}

} // namespace

CatalogIndex::CatalogIndex(CachedApplications known)
    : m_apps(std::move(known.apps))
    , m_isSorted(known.areSorted)
{
    notePositions();
}

CatalogIndex CatalogIndex::loadApplications(const FileManager& fileManager,
                                            const QStringList& searchPaths,
                                            const QList<IndexedApp>& sorted)
{
    CatalogIndex index;
    index.m_order = WalkOrder(searchPaths);
    for (qsizetype each = 0; each < searchPaths.size(); ++each) {
        const QString& folder = searchPaths.at(each);
        if (!fileManager.fileExists(folder)) {
            continue;
        }
        fileManager.enumerate(folder, [&](const DirectoryItem& found) {
            if (index.m_order.folderOf(found.path) != each) {
                return; // Met before, in a folder that holds this one.
            }
            if (std::optional<Item> item = CatalogIndex::item(fileManager, found)) {
                index.m_items.append(*std::move(item));
            }
        });
    }
    index.m_items.squeeze();
    Difference difference;
    index.decideWhatIsShown(difference);
    for (const Item& item : std::as_const(index.m_items)) {
        if (item.isShown) {
            index.m_apps.append(item.app);
        }
    }
    index.m_apps = AppSearch::sortedByName(index.m_apps, sorted);
    index.notePositions();
    return index;
}

const IndexedApp* CatalogIndex::withPath(const QString& path) const
{
    const std::optional<qsizetype> position = m_positions.first(
        path, [&](qsizetype candidate) { return m_apps.at(candidate).path() == path; });
    return position ? &m_apps.at(*position) : nullptr;
}

bool CatalogIndex::update(const FileManager& fileManager, const QStringList& paths)
{
    Difference difference;
    QStringList installed;
    for (const Item& item : std::as_const(m_items)) {
        if (item.lacksProgram) {
            const std::optional<Bundle> today = fileManager.bundle(item.app.path());
            if (!today || !today->lacksProgram) {
                installed.append(item.app.path());
            }
        }
    }
    for (const QString& path : paths + installed) {
        if (m_order.folderOf(path)) {
            lookAt(fileManager, path, difference);
        }
    }
    decideWhatIsShown(difference);
    return apply(difference);
}

std::optional<CatalogIndex::Item> CatalogIndex::item(const FileManager& fileManager,
                                                     const DirectoryItem& found)
{
    if (found.path.endsWith(".app"_L1)) {
        if (isUsersOwnLink(found, fileManager.userId())) {
            return std::nullopt;
        }
        return Item{.app = CatalogRecord::record(found.path, fileManager.bundle(found.path)),
                    .image = {}};
    }
    if (found.isImage && isUsersOwnLink(found, fileManager.userId())) {
        return std::nullopt;
    }
    if (found.isImage || found.path.endsWith(".desktop"_L1)) {
        if (const std::optional<Bundle> entry = fileManager.bundle(found.path)) {
            return Item{.app = CatalogRecord::record(found.path, entry),
                        .image = entry->executable.value_or(QString()),
                        .isEntry = !found.isImage,
                        .isHidden = entry->isHidden,
                        .lacksProgram = entry->lacksProgram};
        }
    }
    return std::nullopt;
}

QString CatalogIndex::identifierOf(const Item& item)
{
    return item.isEntry ? item.app.bundleIdentifier().value_or(QString()) : QString();
}

void CatalogIndex::lookAt(const FileManager& fileManager,
                          const QString& path,
                          Difference& difference)
{
    for (const Item& item : m_order.takeBelow(m_items, path, pathOf)) {
        if (item.isShown) {
            difference.gone.insert(item.app.path(), item.app);
        }
    }
    fileManager.enumerateFrom(path, [&](const DirectoryItem& found) {
        if (const std::optional<Item> item = CatalogIndex::item(fileManager, found)) {
            m_order.insert(m_items, *item, pathOf);
        }
    });
}

void CatalogIndex::decideWhatIsShown(Difference& difference)
{
    TextIndex entries; // By identifier.
    entries.reserve(m_items.size());
    QSet<QString> images; // What the desktop has given an entry of its own.
    for (qsizetype position = 0; position < m_items.size(); ++position) {
        const Item& item = m_items.at(position);
        entries.add(identifierOf(item), position);
        if (!item.image.isEmpty() && item.image != item.app.path() && !item.isHidden) {
            images.insert(item.image);
        }
    }
    entries.sort();
    for (qsizetype position = 0; position < m_items.size(); ++position) {
        Item& item = m_items[position];
        const QString identifier = identifierOf(item);
        const auto first = entries.first(identifier, [&](qsizetype other) {
            return identifierOf(m_items.at(other)) == identifier;
        });
        const bool isMasked = first.value_or(position) != position
            || (item.image == item.app.path() && images.contains(item.image));
        const bool isShown = !isMasked && !item.isHidden;
        if (std::exchange(item.isShown, isShown) != isShown) {
            auto& side = isShown ? difference.come : difference.gone;
            side.insert(item.app.path(), item.app);
        }
    }
}

bool CatalogIndex::apply(Difference& difference)
{
    difference.come.removeIf([&difference](auto app) {
        const auto old = difference.gone.constFind(app.key());
        const bool isSame = old != difference.gone.cend() && isSameInAll(*old, *app);
        if (isSame) {
            difference.gone.erase(old);
        }
        return isSame;
    });
    if (difference.gone.isEmpty() && difference.come.isEmpty()) {
        return false;
    }
    m_apps.removeIf(
        [&difference](const IndexedApp& app) { return difference.gone.contains(app.path()); });
    const auto isBefore = [this](const IndexedApp& left, const IndexedApp& right) {
        return AppSearch::localizedCaseInsensitiveLess(left.name(), right.name())
            || (!AppSearch::localizedCaseInsensitiveLess(right.name(), left.name())
                && m_order.isBefore(left.path(), right.path()));
    };
    for (const IndexedApp& app : std::as_const(difference.come)) {
        m_apps.insert(std::upper_bound(m_apps.begin(), m_apps.end(), app, isBefore), app);
    }
    notePositions();
    return true;
}

void CatalogIndex::notePositions()
{
    m_positions = TextIndex();
    m_positions.reserve(m_apps.size());
    for (qsizetype position = 0; position < m_apps.size(); ++position) {
        m_positions.add(m_apps.at(position).path(), position);
    }
    m_positions.sort();
}

} // namespace Tavik
