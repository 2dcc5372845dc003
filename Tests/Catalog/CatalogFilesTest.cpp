// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/CatalogCache.h>
#include <TavikLauncher/Catalog/CatalogIndex.h>

#include <QRegularExpression>
#include <QTest>

#include <Support/FakeFileManager.h>
#include <Support/FileTree.h>
#include <Support/StepWorkQueue.h>
#include <Support/Table.h>
#include <Support/Warnings.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

/// What the walk finds, and what the cache keeps of it.
class CatalogFilesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        m_tree = std::make_unique<FileTree>();
        m_files = std::make_unique<FakeFileManager>();
        m_files->support = {.path = m_tree->path(), .error = {}};
        m_files->existing = {m_safe.path(), m_plain.path()};
    }

    void onlyTheUsersOwnLinksAreDropped_data()
    {
        // Path, whether it is a link, its owner if that can be asked, the user, whether it is
        // listed.
        const Table<QString, bool, Owner, unsigned, bool> row;
        row("own link", u"/A/X.app"_s, true, 1000, 1000U, false);
        row("root's link", u"/A/X.app"_s, true, 0, 1000U, true);
        row("own link as root", u"/A/X.app"_s, true, 0, 0U, true);
        row("unknown owner", u"/A/X.app"_s, true, {}, 1000U, true);
        row("own folder", u"/A/X.app"_s, false, 1000, 1000U, true);
        row("own entry", u"/A/X.desktop"_s, true, 1000, 1000U, true);
    }

    void onlyTheUsersOwnLinksAreDropped()
    {
        const auto [path, isLink, owner, user, isListed]
            = fetch<QString, bool, Owner, unsigned, bool>();
        addEntry(path, u"x"_s);
        m_files->user = user;
        m_files->items[u"/A"_s] = {{.path = path, .isSymbolicLink = isLink, .ownerId = owner}};
        QCOMPARE(!walk({u"/A"_s}).isEmpty(), isListed);
    }

    void onlyExactEndingsCount()
    {
        const QString names
            = u"Good.app Loud.APP x.appx xapp good.desktop x.Desktop x.desktop~ a.app.bak"_s;
        for (const QString& name : names.split(u' ')) {
            addEntry(u"/A/"_s + name, name);
        }
        QCOMPARE(walk({u"/A"_s}), QStringList({u"/A/Good.app"_s, u"/A/good.desktop"_s}));
    }

    void theSamePathCountsOnceAndCopiesCountTwice()
    {
        Bundle bundle;
        bundle.identifier = u"org.example.x"_s;
        add(u"/A/X.app"_s, bundle);
        add(u"/B/X.app"_s, bundle);
        m_files->items[u"/B"_s] += m_files->items[u"/A"_s];
        QCOMPARE(walk({u"/A"_s, u"/B"_s, u"/A"_s}), QStringList({u"/A/X.app"_s, u"/B/X.app"_s}));
    }

    void theFirstEntryHidesTheOnesBelowButNoBundleDoes()
    {
        Bundle folder;
        folder.identifier = u"viewer"_s;
        add(u"/user/viewer.app"_s, folder);
        addEntry(u"/user/edited.desktop"_s, u"edited"_s);
        addEntry(u"/user/unwanted.desktop"_s, u"unwanted"_s, true);
        addEntry(u"/system/edited.desktop"_s, u"edited"_s);
        addEntry(u"/system/unwanted.desktop"_s, u"unwanted"_s);
        addEntry(u"/system/viewer.desktop"_s, u"viewer"_s);
        for (const QString& image : {u"/user/known"_s, u"/user/own"_s}) {
            addEntry(image, image);
            m_files->items[u"/user"_s].last().isImage = true;
            m_files->bundles[image].executable = image;
        }
        addEntry(u"/system/known.desktop"_s, u"known"_s);
        m_files->bundles[u"/system/known.desktop"_s].executable = u"/user/known"_s;
        QStringList listed = walk({u"/user"_s, u"/system"_s});
        listed.sort();
        QCOMPARE(listed.join(u' '),
                 u"/system/known.desktop /system/viewer.desktop /user/edited.desktop /user/own "
                 "/user/viewer.app"_s);
    }

    void whatIsFollowedIsWhatAWalkWouldFind()
    {
        const QStringList folders{u"/user"_s, u"/system"_s};
        addEntry(u"/system/a.desktop"_s, u"same"_s);
        addEntry(u"/system/b.desktop"_s, u"hidden"_s, true);
        addEntry(u"/system/c.desktop"_s, u"later"_s, true);
        m_files->bundles[u"/system/c.desktop"_s].lacksProgram = true;
        addEntry(u"/system/d.desktop"_s, u"d"_s);
        m_files->items[u"/user"_s] = {};
        CatalogIndex index = CatalogIndex::loadApplications(*m_files, folders);
        // What is changed, and whether that changes what is shown.
        const auto isFollowed = [&](const QString& path, bool isOther) {
            const int before = m_files->bundleReads;
            const bool said = index.update(*m_files, {path});
            const bool isCheap = m_files->bundleReads - before <= 3;
            const CatalogIndex walked = CatalogIndex::loadApplications(*m_files, folders);
            const IndexedApp* app = index.withPath(path);
            return said == isOther && isCheap && index.apps() == walked.apps()
                && (!app || app->path() == path) && !app == !walked.withPath(path);
        };
        addEntry(u"/user/a.desktop"_s, u"same"_s);
        QVERIFY(isFollowed(u"/user/a.desktop"_s, true));
        QVERIFY(isFollowed(u"/user/a.desktop"_s, false)); // Touched only.
        m_files->items[u"/user"_s].clear();
        QVERIFY(isFollowed(u"/user/a.desktop"_s, true));
        m_files->bundles[u"/system/b.desktop"_s].isHidden = false;
        QVERIFY(isFollowed(u"/system/b.desktop"_s, true));
        m_files->bundles[u"/system/b.desktop"_s].iconSource = u"other"_s;
        QVERIFY(isFollowed(u"/system/b.desktop"_s, true));
        // Before the other one of that name.
        m_files->bundles[u"/system/b.desktop"_s].name = u"d"_s;
        QVERIFY(isFollowed(u"/system/b.desktop"_s, true));
        m_files->bundles[u"/system/c.desktop"_s] = m_files->bundles[u"/system/b.desktop"_s];
        m_files->bundles[u"/system/c.desktop"_s].identifier = u"later"_s;
        QVERIFY(isFollowed(u"/system/mimeinfo.cache"_s, true)); // Its program has come.
        addEntry(u"/elsewhere/x.desktop"_s, u"x"_s);
        QVERIFY(isFollowed(u"/elsewhere/x.desktop"_s, false));
    }

    void recordsCarryWhatTheBundleSaysAndAreSortedWithoutCase()
    {
        Bundle bundle;
        bundle.displayName = u"beta"_s;
        bundle.name = u"zeta"_s;
        bundle.identifier = u"org.example.told"_s;
        bundle.iconSource = u"/A/Told.app/icon.png"_s;
        add(u"/A/Told.app"_s, bundle);
        add(u"/A/Gamma.app"_s, {});
        add(u"/A/Alpha.app"_s, {});
        const auto apps = CatalogIndex::loadApplications(*m_files, {u"/missing"_s, u"/A"_s}).apps();
        const QList<IndexedApp> expected{
            {u"Alpha"_s, std::nullopt, u"/A/Alpha.app"_s, {}},
            {u"beta"_s, u"org.example.told"_s, u"/A/Told.app"_s, {}},
            {u"Gamma"_s, std::nullopt, u"/A/Gamma.app"_s, {}},
        };
        QCOMPARE(apps, expected);
        QCOMPARE(apps.at(1).icon().source, u"/A/Told.app/icon.png"_s);
        QCOMPARE(apps.at(2).icon().source, QString());
    }

    void theLastSaveIsAPlainCompactArrayAndReadsBack()
    {
        CatalogCache::saveCachedApplications(*m_files, m_queue, {});
        save({m_safe, m_plain, m_plain});
        const QByteArray plain = "{\"name\":\"Plain \xC3\xBC\",\"path\":\"/A/Plain.app\"}";
        QCOMPARE(content(),
                 "[{\"bundleIdentifier\":\"org.example.safe\",\"name\":\"S\\\"afe\","
                 "\"path\":\"/A/Safe.app\",\"sortedFor\":\"en\"},"
                     + plain + ',' + plain + ']');
        CachedApplications loaded;
        CatalogCache::loadCachedApplicationsAsync(
            *m_files, m_queue, [&loaded](const auto& known) { loaded = known; });
        m_queue.runAll();
        QCOMPARE(loaded.apps, QList<IndexedApp>({m_safe, m_plain, m_plain}));
        QVERIFY(loaded.areSorted);
        write(content().replace("\"en\"", "\"sv\""));
        QVERIFY(!CatalogCache::loadCachedApplications(*m_files).areSorted);
    }

    void aFileOfTheRightSizeIsRead()
    {
        const auto isRead = [this](qsizetype size) {
            write(QByteArray(R"([{"name":"S","path":"/A/Safe.app"}])")
                      .leftJustified(size, ' ', true));
            return !CatalogCache::loadCachedApplications(*m_files).apps.isEmpty();
        };
        QVERIFY(!isRead(0));
        QVERIFY(isRead(5'242'880));
        QVERIFY(!isRead(5'242'881));
    }

    void unreadableContentIsLoggedOnce_data()
    {
        const Table<QByteArray> row;
        row("broken", "[{");
        row("nested beyond all measure", QByteArray(100'000, '['));
        row("no name", R"([{"path":"/A/Safe.app"}])");
        row("an element that is no object", R"([{"name":"A","path":"/A/Safe.app"},[]])");
    }

    void unreadableContentIsLoggedOnce()
    {
        const auto [content] = fetch<QByteArray>();
        write(content);
        expectWarning(u"^TavikLauncher: failed to load cache: \\S"_s);
        QCOMPARE(CatalogCache::loadCachedApplications(*m_files).apps, {});
    }

    void onlyApplicationsThatStillExistAreLoadedAndNoneIsOpened()
    {
        m_files->existing.insert(u"Safe.app"_s);
        write(R"([{"name":"Gone","path":"/A/Gone.app"},)"
              R"({"name":"Safe","path":"/A/Safe.app","future":[1,2]},)"
              R"({"name":"Here","path":"Safe.app"}])");
        const auto apps = CatalogCache::loadCachedApplications(*m_files).apps;
        QCOMPARE(apps, {IndexedApp(u"Safe"_s, std::nullopt, u"/A/Safe.app"_s, {})});
        QCOMPARE(apps.first().icon().source, u"/A/Safe.app"_s);
        QCOMPARE(m_files->bundleReads, 0);
    }

    void aFolderThatCannotBeHadIsLogged()
    {
        const char* line = "TavikLauncher: failed to resolve cache path: No home";
        m_files->support = {.path = {}, .error = u"No home"_s};
        QTest::ignoreMessage(QtWarningMsg, line);
        save({m_safe});
        QTest::ignoreMessage(QtWarningMsg, line);
        QCOMPARE(CatalogCache::loadCachedApplications(*m_files).apps, {});
    }

private:
    void add(const QString& path, const Bundle& bundle)
    {
        const QString folder = path.left(path.lastIndexOf(u'/'));
        m_files->items[folder].append({.path = path, .isSymbolicLink = false, .ownerId = 0});
        m_files->bundles[path] = bundle;
    }
    void addEntry(const QString& path, const QString& identifier, bool isHidden = false)
    {
        Bundle bundle;
        bundle.kind = Bundle::Kind::desktopEntry;
        bundle.name = identifier;
        bundle.identifier = identifier;
        bundle.isHidden = isHidden;
        add(path, bundle);
    }
    [[nodiscard]] QStringList walk(const QStringList& folders) const
    {
        QStringList paths;
        const CatalogIndex index = CatalogIndex::loadApplications(*m_files, folders);
        for (const IndexedApp& app : index.apps()) {
            paths.append(app.path());
        }
        return paths;
    }

    using Owner = std::optional<unsigned>;
    void write(const QByteArray& bytes) const { m_files->contents[m_tree->path(m_file)] = bytes; }
    void save(const QList<IndexedApp>& apps)
    {
        CatalogCache::saveCachedApplications(*m_files, m_queue, apps);
        m_queue.runAll();
    }
    [[nodiscard]] QByteArray content() const { return m_files->contents[m_tree->path(m_file)]; }

    std::unique_ptr<FileTree> m_tree;
    std::unique_ptr<FakeFileManager> m_files;
    StepWorkQueue m_queue;
    const QString m_file = u"TavikLauncher/app_index.json"_s;
    const IndexedApp m_safe{u"S\"afe"_s, u"org.example.safe"_s, u"/A/Safe.app"_s, {}};
    const IndexedApp m_plain{u"Plain ü"_s, std::nullopt, u"/A/Plain.app"_s, {}};
};

QTEST_GUILESS_MAIN(CatalogFilesTest)
#include "CatalogFilesTest.moc"
