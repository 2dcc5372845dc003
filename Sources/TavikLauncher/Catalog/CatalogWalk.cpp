// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/CatalogWalk.h>
#include <TavikLauncherCore/AppSearch.h>
#include <TavikLauncherPlatform/FileManager.h>

#include <QSet>

namespace Tavik::CatalogWalk {

namespace {

using namespace Qt::StringLiterals;

constexpr auto bundleSuffix = ".app"_L1;
constexpr auto entrySuffix = ".desktop"_L1;

/// True for a link that the user made: the system's links are installed applications, the user's
/// are shortcuts to ones that are listed already.
bool isUsersOwnLink(const DirectoryItem& item, unsigned userId)
{
    return item.isSymbolicLink && userId != 0 && item.ownerId == userId;
}

class Walk
{
public:
    explicit Walk(const FileManager& fileManager)
        : m_fileManager(fileManager)
        , m_userId(fileManager.userId())
    { }

    void visitFolder(const QString& folder)
    {
        if (!m_fileManager.fileExists(folder)) {
            return;
        }
        m_fileManager.enumerate(folder, [this](const DirectoryItem& item) {
            if (item.path.endsWith(bundleSuffix)) {
                visitBundle(item);
            } else if (item.path.endsWith(entrySuffix)) {
                visitEntry(item);
            }
        });
    }

    [[nodiscard]] const QList<IndexedApp>& apps() const { return m_apps; }

private:
    /// Adds `text` to `set`; false when it was there already.
    static bool isNew(QSet<QString>& set, const QString& text)
    {
        const qsizetype before = set.size();
        set.insert(text);
        return set.size() > before;
    }

    void visitBundle(const DirectoryItem& item)
    {
        if (!isUsersOwnLink(item, m_userId) && isNew(m_seen, item.path)) {
            m_apps.append(record(item.path, m_fileManager.bundle(item.path)));
        }
    }

    void visitEntry(const DirectoryItem& item)
    {
        if (!isNew(m_seen, item.path)) {
            return;
        }
        const std::optional<Bundle> entry = m_fileManager.bundle(item.path);
        if (!entry) {
            return;
        }
        const bool isMasked = entry->identifier && !isNew(m_entryIdentifiers, *entry->identifier);
        if (!isMasked && !entry->isHidden) {
            m_apps.append(record(item.path, entry));
        }
    }

    const FileManager& m_fileManager;
    const unsigned m_userId;
    QSet<QString> m_seen;
    QSet<QString> m_entryIdentifiers;
    QList<IndexedApp> m_apps;
};

} // namespace

QList<IndexedApp> loadApplications(const FileManager& fileManager, const QStringList& searchPaths)
{
    Walk walk(fileManager);
    for (const QString& folder : searchPaths) {
        walk.visitFolder(folder);
    }
    return AppSearch::sortedByName(walk.apps());
}

QString displayName(const QString& path, const std::optional<Bundle>& bundle)
{
    if (bundle && bundle->displayName) {
        return *bundle->displayName;
    }
    if (bundle && bundle->name) {
        return *bundle->name;
    }
    const QString fileName = path.mid(path.lastIndexOf(u'/') + 1);
    const qsizetype dot = fileName.lastIndexOf(u'.');
    return dot > 0 ? fileName.first(dot) : fileName;
}

IndexedApp record(const QString& path, const std::optional<Bundle>& bundle)
{
    return IndexedApp(displayName(path, bundle),
                      bundle ? bundle->identifier : std::nullopt,
                      path,
                      AppIcon{bundle ? bundle->iconSource : QString()})
        .withOtherNames(bundle ? bundle->otherNames : QStringList());
}

} // namespace Tavik::CatalogWalk
