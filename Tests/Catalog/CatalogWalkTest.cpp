// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/CatalogWalk.h>

#include <QTest>

#include <Support/FakeFileManager.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class CatalogWalkTest final : public QObject
{
    Q_OBJECT

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
        for (const IndexedApp& app : CatalogWalk::loadApplications(*m_files, folders)) {
            paths.append(app.path());
        }
        return paths;
    }

    std::unique_ptr<FakeFileManager> m_files;

private Q_SLOTS:
    void init() { m_files = std::make_unique<FakeFileManager>(); }

    void onlyTheUsersOwnLinksAreDropped_data()
    {
        using Owner = std::optional<unsigned>;
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("isLink");
        QTest::addColumn<Owner>("owner"); // Absent: could not be queried.
        QTest::addColumn<unsigned>("user");
        QTest::addColumn<bool>("isListed");
        QTest::newRow("own link") << u"/A/X.app"_s << true << Owner(1000) << 1000U << false;
        QTest::newRow("root's link") << u"/A/X.app"_s << true << Owner(0) << 1000U << true;
        QTest::newRow("own link as root") << u"/A/X.app"_s << true << Owner(0) << 0U << true;
        QTest::newRow("unknown owner") << u"/A/X.app"_s << true << Owner() << 1000U << true;
        QTest::newRow("own folder") << u"/A/X.app"_s << false << Owner(1000) << 1000U << true;
        QTest::newRow("own entry") << u"/A/X.desktop"_s << true << Owner(1000) << 1000U << true;
    }

    void onlyTheUsersOwnLinksAreDropped()
    {
        QFETCH(QString, path);
        QFETCH(bool, isLink);
        QFETCH(std::optional<unsigned>, owner);
        QFETCH(unsigned, user);
        addEntry(path, u"x"_s);
        m_files->user = user;
        m_files->items[u"/A"_s] = {{.path = path, .isSymbolicLink = isLink, .ownerId = owner}};
        QTEST(!walk({u"/A"_s}).isEmpty(), "isListed");
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
        QStringList listed = walk({u"/user"_s, u"/system"_s});
        listed.sort();
        QCOMPARE(
            listed,
            QStringList(
                {u"/system/viewer.desktop"_s, u"/user/edited.desktop"_s, u"/user/viewer.app"_s}));
    }

    void theNameIsTheFirstThatIsThere()
    {
        const auto shown
            = [](const std::optional<QString>& display, const std::optional<QString>& name) {
                  Bundle bundle;
                  bundle.displayName = display;
                  bundle.name = name;
                  return CatalogWalk::displayName(u"/Applications/Foo Bar 2.0.app"_s, bundle);
              };
        QCOMPARE(shown(u"Display"_s, u"Name"_s), u"Display"_s);
        QCOMPARE(shown(u""_s, u"Name"_s), u""_s);
        QCOMPARE(shown({}, u"Name"_s), u"Name"_s);
        QCOMPARE(shown({}, {}), u"Foo Bar 2.0"_s);
    }

    void recordsCarryWhatTheBundleSaysAndAreSortedWithoutCase()
    {
        Bundle bundle;
        bundle.name = u"beta"_s;
        bundle.identifier = u"org.example.told"_s;
        bundle.iconSource = u"/A/Told.app/icon.png"_s;
        add(u"/A/Told.app"_s, bundle);
        add(u"/A/Gamma.app"_s, {});
        add(u"/A/Alpha.app"_s, {});
        const auto apps = CatalogWalk::loadApplications(*m_files, {u"/missing"_s, u"/A"_s});
        const QList<IndexedApp> expected{
            {u"Alpha"_s, std::nullopt, u"/A/Alpha.app"_s, {}},
            {u"beta"_s, u"org.example.told"_s, u"/A/Told.app"_s, {}},
            {u"Gamma"_s, std::nullopt, u"/A/Gamma.app"_s, {}},
        };
        QCOMPARE(apps, expected);
        QCOMPARE(apps.at(1).icon().source, u"/A/Told.app/icon.png"_s);
        QCOMPARE(apps.at(2).icon().source, QString());
    }
};

QTEST_GUILESS_MAIN(CatalogWalkTest)
#include "CatalogWalkTest.moc"
