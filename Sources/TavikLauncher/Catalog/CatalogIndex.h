// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Catalog/CatalogCache.h>
#include <TavikLauncherCore/IndexedApp.h>
#include <TavikLauncherCore/TextIndex.h>
#include <TavikLauncherPlatform/WalkOrder.h>

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

namespace Tavik {

class FileManager;
struct DirectoryItem;

/// What a walk over the application folders has met, and the applications among it. A value, cheap
/// to copy. Its walk and its updates read the disk, so they run off the main thread.
class CatalogIndex
{
public:
    CatalogIndex() = default;
    /// Everything below `searchPaths`. Missing and unreadable folders are skipped silently. What
    /// `sorted` holds, applications sorted by name, keeps its order.
    [[nodiscard]] static CatalogIndex loadApplications(const FileManager& fileManager,
                                                       const QStringList& searchPaths,
                                                       const QList<IndexedApp>& sorted = {});
    /// Holds `known` as it is, and has met nothing.
    explicit CatalogIndex(CachedApplications known);

    /// The applications, sorted by name as the user's language orders names. A desktop entry hides
    /// those that come after it with the same identifier, even when it is not to be shown itself.
    [[nodiscard]] const QList<IndexedApp>& apps() const { return m_apps; }
    /// False for what was kept while the user had another language.
    [[nodiscard]] bool isSorted() const { return m_isSorted; }
    /// The first application with that path; null when there is none.
    [[nodiscard]] const IndexedApp* withPath(const QString& path) const;

    /// Looks anew at what is at `paths` and below, and at what may have been installed since. False
    /// when all is as it was.
    bool update(const FileManager& fileManager, const QStringList& paths);

private:
    /// Something that may be an application, whether it is shown or not.
    struct Item
    {
        IndexedApp app;
        QString image; ///< The AppImage that it is or starts.
        bool isEntry = false; ///< A desktop entry, which hides others of the same identifier.
        bool isHidden = false;
        bool lacksProgram = false;
        bool isShown = false;
    };
    [[nodiscard]] static const QString& pathOf(const Item& item) { return item.app.path(); }
    /// By which a desktop entry hides others; empty for all else.
    [[nodiscard]] static QString identifierOf(const Item& item);
    [[nodiscard]] static std::optional<Item> item(const FileManager& fileManager,
                                                  const DirectoryItem& found);
    /// Both sides of a change of what is shown.
    struct Difference
    {
        QHash<QString, IndexedApp> gone; ///< By path.
        QHash<QString, IndexedApp> come;
    };
    void lookAt(const FileManager& fileManager, const QString& path, Difference& difference);
    void decideWhatIsShown(Difference& difference);
    bool apply(Difference& difference);
    void notePositions();

    WalkOrder m_order;
    QList<Item> m_items; ///< In the order of the walk.
    QList<IndexedApp> m_apps;
    bool m_isSorted = true;
    TextIndex m_positions; ///< Among the applications, by path.
};

} // namespace Tavik
