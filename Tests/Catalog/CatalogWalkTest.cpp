// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/CatalogWalk.h>

#include <QTest>

#include <Support/FakeFileManager.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

Bundle entry(const QString& name, const QString& identifier, bool isHidden = false)
{
    Bundle bundle;
    bundle.kind = Bundle::Kind::desktopEntry;
    bundle.name = name;
    bundle.identifier = identifier;
    bundle.isHidden = isHidden;
    return bundle;
}

QStringList paths(const QList<IndexedApp>& apps)
{
    QStringList paths;
    for (const IndexedApp& app : apps) {
        paths.append(app.path());
    }
    return paths;
}

} // namespace

class CatalogWalkTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyTheUsersOwnLinksAreDropped_data();
    void onlyTheUsersOwnLinksAreDropped();
    void onlyExactEndingsCount();
    void theSamePathCountsOnceAndCopiesCountTwice();
    void theFirstEntryHidesTheOnesBelow();
    void aBundleNeverHidesAnother();
    void theNameIsTheFirstThatIsThere_data();
    void theNameIsTheFirstThatIsThere();
    void recordsCarryWhatTheBundleSays();
    void missingFoldersAreSkippedAndNamesSortedWithoutCase();
};

void CatalogWalkTest::onlyTheUsersOwnLinksAreDropped_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isLink");
    QTest::addColumn<int>("owner"); // -1: could not be queried.
    QTest::addColumn<unsigned>("user");
    QTest::addColumn<bool>("isListed");

    QTest::newRow("own link") << u"/A/X.app"_s << true << 1000 << 1000U << false;
    QTest::newRow("root's link") << u"/A/X.app"_s << true << 0 << 1000U << true;
    QTest::newRow("another user's link") << u"/A/X.app"_s << true << 1001 << 1000U << true;
    QTest::newRow("own link as root") << u"/A/X.app"_s << true << 0 << 0U << true;
    QTest::newRow("unknown owner") << u"/A/X.app"_s << true << -1 << 1000U << true;
    QTest::newRow("own folder") << u"/A/X.app"_s << false << 1000 << 1000U << true;
    QTest::newRow("own link to an entry") << u"/A/X.desktop"_s << true << 1000 << 1000U << true;
}

void CatalogWalkTest::onlyTheUsersOwnLinksAreDropped()
{
    QFETCH(QString, path);
    QFETCH(bool, isLink);
    QFETCH(int, owner);
    QFETCH(unsigned, user);
    FakeFileManager files;
    files.user = user;
    DirectoryItem item{.path = path, .isSymbolicLink = isLink, .ownerId = {}};
    if (owner >= 0) {
        item.ownerId = static_cast<unsigned>(owner);
    }
    files.items[u"/A"_s] = {item};
    files.bundles[path] = entry(u"X"_s, u"x"_s);

    QTEST(!CatalogWalk::loadApplications(files, {u"/A"_s}).isEmpty(), "isListed");
}

void CatalogWalkTest::onlyExactEndingsCount()
{
    FakeFileManager files;
    const QStringList names{u"Good.app"_s,
                            u"Loud.APP"_s,
                            u"plain"_s,
                            u"x.appx"_s,
                            u"xapp"_s,
                            u"good.desktop"_s,
                            u"x.Desktop"_s,
                            u"x.desktop~"_s,
                            u"mimeinfo.cache"_s,
                            u"a.app.bak"_s};
    for (const QString& name : names) {
        const QString path = u"/A/"_s + name;
        files.items[u"/A"_s].append({.path = path, .isSymbolicLink = false, .ownerId = 0});
        files.bundles[path] = entry(name, name);
    }
    const QStringList expected{u"/A/Good.app"_s, u"/A/good.desktop"_s};
    QCOMPARE(paths(CatalogWalk::loadApplications(files, {u"/A"_s})), expected);
}

void CatalogWalkTest::theSamePathCountsOnceAndCopiesCountTwice()
{
    FakeFileManager files;
    const DirectoryItem system{.path = u"/A/X.app"_s, .isSymbolicLink = false, .ownerId = 0};
    const DirectoryItem user{.path = u"/B/X.app"_s, .isSymbolicLink = false, .ownerId = 1000};
    files.items[u"/A"_s] = {system};
    files.items[u"/B"_s] = {user, system};
    Bundle bundle;
    bundle.identifier = u"org.example.x"_s;
    files.bundles[system.path] = bundle;
    files.bundles[user.path] = bundle;

    const auto apps = CatalogWalk::loadApplications(files, {u"/A"_s, u"/B"_s, u"/A"_s});
    QCOMPARE(paths(apps), QStringList({u"/A/X.app"_s, u"/B/X.app"_s}));
}

void CatalogWalkTest::theFirstEntryHidesTheOnesBelow()
{
    FakeFileManager files;
    const auto add = [&files](const QString& folder, const QString& file, const Bundle& bundle) {
        const QString path = folder + u'/' + file;
        files.items[folder].append({.path = path, .isSymbolicLink = false, .ownerId = 0});
        files.bundles[path] = bundle;
    };
    add(u"/user"_s, u"edited.desktop"_s, entry(u"Edited here"_s, u"edited"_s));
    add(u"/user"_s, u"unwanted.desktop"_s, entry(u"Unwanted"_s, u"unwanted"_s, true));
    add(u"/system"_s, u"edited.desktop"_s, entry(u"Edited"_s, u"edited"_s));
    add(u"/system"_s, u"unwanted.desktop"_s, entry(u"Unwanted"_s, u"unwanted"_s));
    add(u"/system"_s, u"other.desktop"_s, entry(u"Other"_s, u"other"_s));
    add(u"/system"_s, u"setup.desktop"_s, entry(u"Setup"_s, u"setup"_s, true));

    const QStringList expected{u"/user/edited.desktop"_s, u"/system/other.desktop"_s};
    QCOMPARE(paths(CatalogWalk::loadApplications(files, {u"/user"_s, u"/system"_s})), expected);
}

void CatalogWalkTest::aBundleNeverHidesAnother()
{
    FakeFileManager files;
    Bundle folder;
    folder.identifier = u"viewer"_s;
    files.items[u"/A"_s] = {{.path = u"/A/Viewer.app"_s, .isSymbolicLink = false, .ownerId = 0}};
    files.bundles[u"/A/Viewer.app"_s] = folder;
    files.items[u"/B"_s]
        = {{.path = u"/B/viewer.desktop"_s, .isSymbolicLink = false, .ownerId = 0}};
    files.bundles[u"/B/viewer.desktop"_s] = entry(u"Viewer"_s, u"viewer"_s);

    QCOMPARE(CatalogWalk::loadApplications(files, {u"/A"_s, u"/B"_s}).size(), 2);
}

void CatalogWalkTest::theNameIsTheFirstThatIsThere_data()
{
    QTest::addColumn<QString>("displayName"); // A null text is an absent value.
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");

    QTest::newRow("display name") << u"Display"_s << u"Name"_s << u"Display"_s;
    QTest::newRow("empty display name") << u""_s << u"Name"_s << u""_s;
    QTest::newRow("name") << QString() << u"Name"_s << u"Name"_s;
    QTest::newRow("neither") << QString() << QString() << u"Foo Bar 2.0"_s;
}

void CatalogWalkTest::theNameIsTheFirstThatIsThere()
{
    QFETCH(QString, displayName);
    QFETCH(QString, name);
    Bundle bundle;
    if (!displayName.isNull()) {
        bundle.displayName = displayName;
    }
    if (!name.isNull()) {
        bundle.name = name;
    }
    QTEST(CatalogWalk::displayName(u"/Applications/Foo Bar 2.0.app"_s, bundle), "shown");
}

void CatalogWalkTest::recordsCarryWhatTheBundleSays()
{
    FakeFileManager files;
    files.items[u"/A"_s] = {{.path = u"/A/Told.app"_s, .isSymbolicLink = false, .ownerId = 0},
                            {.path = u"/A/Untold.app"_s, .isSymbolicLink = false, .ownerId = 0}};
    Bundle bundle;
    bundle.name = u"Told"_s;
    bundle.identifier = u"org.example.told"_s;
    bundle.iconSource = u"/A/Told.app/icon.png"_s;
    files.bundles[u"/A/Told.app"_s] = bundle;

    const auto apps = CatalogWalk::loadApplications(files, {u"/A"_s});
    QCOMPARE(apps.size(), 2);
    QCOMPARE(apps.at(0).bundleIdentifier(), u"org.example.told"_s);
    QCOMPARE(apps.at(0).icon().source, u"/A/Told.app/icon.png"_s);
    QCOMPARE(apps.at(1), IndexedApp(u"Untold"_s, std::nullopt, u"/A/Untold.app"_s, {}));
    QCOMPARE(apps.at(1).icon().source, QString());
}

void CatalogWalkTest::missingFoldersAreSkippedAndNamesSortedWithoutCase()
{
    FakeFileManager files;
    for (const QString& name : {u"beta"_s, u"Gamma"_s, u"Alpha"_s}) {
        const QString path = u"/A/%1.app"_s.arg(name);
        files.items[u"/A"_s].append({.path = path, .isSymbolicLink = false, .ownerId = 0});
    }
    const QStringList expected{u"/A/Alpha.app"_s, u"/A/beta.app"_s, u"/A/Gamma.app"_s};
    QCOMPARE(paths(CatalogWalk::loadApplications(files, {u"/missing"_s, u"/A"_s})), expected);
}

QTEST_GUILESS_MAIN(CatalogWalkTest)
#include "CatalogWalkTest.moc"
