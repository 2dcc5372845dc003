// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/CatalogCache.h>
#include <TavikLauncherPlatform/Linux/Applications/ApplicationFolder.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntry.h>
#include <TavikLauncherPlatform/Linux/Applications/IconThemeIndex.h>

#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTest>

#include <Fuzz/Mutator.h>
#include <Support/BinaryPropertyList.h>
#include <Support/FakeFileManager.h>
#include <Support/StepWorkQueue.h>
#include <algorithm>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray wellFormedList
    = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<!DOCTYPE plist SYSTEM \"plist.dtd\">\n"
      "<plist version=\"1.0\"><dict>\n"
      "<key>CFBundleName</key><string>Viewer &amp; more</string>\n"
      "<key>CFBundleIdentifier</key><string>org.example.viewer</string>\n"
      "<key>CFBundleIconFile</key><string>Icon</string>\n"
      "<key>Version</key><real>1.5</real><key>Count</key><integer>7</integer>\n"
      "<key>Data</key><data>AAEC</data><key>Date</key><date>2020-01-01T00:00:00Z</date>\n"
      "<key>Types</key><array><dict><key>Role</key><string>\xC3\xA9</string></dict><true/></"
      "array>\n"
      "</dict></plist>\n";

} // namespace

/// Our own cache, and what other programs install: entries, themes, bundles' lists.
class FilesFuzzTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damagedCachesYieldExistingApplicationsOrNothing()
    {
        QLoggingCategory::setFilterRules(u"tavik.catalog.warning=false"_s);
        const QTemporaryDir folder;
        FakeFileManager files;
        StepWorkQueue queue;
        files.support = {.path = folder.path(), .error = {}};
        QList<IndexedApp> apps;
        for (int number = 0; number < 40; ++number) {
            const QString path = u"/Applications/App %1.app"_s.arg(number);
            files.existing.insert(path);
            apps.append(IndexedApp(u"Näme \"%1\""_s.arg(number), u"org.example.x"_s, path, {}));
        }
        CatalogCache::saveCachedApplications(files, queue, apps);
        queue.runAll();
        QByteArray& file = files.contents[*CatalogCache::cacheURL(files)];
        const QByteArray wellFormed = file;

        tryDamaged(7, wellFormed, 1500, [&](const QByteArray& damaged, int& understood) {
            file = damaged;
            const QList<IndexedApp> loaded = CatalogCache::loadCachedApplications(files);
            understood += loaded.isEmpty() ? 0 : 1;
            for (const IndexedApp& app : loaded) {
                QVERIFY(files.existing.contains(app.path()));
            }
        });
    }

    void damagedEntriesAreSafeToShow()
    {
        const QByteArray wellFormed
            = "[Desktop Entry]\nType=Application\nVersion=1.5\n"
              "Name=Viewer\nName[de]=Betrachter\nComment=Sh\xC3\xB6w\\n it\n"
              "Exec=sh -c \"echo %U\" $HOME\nTryExec=sh\nIcon=org.example.x\n"
              "OnlyShowIn=A;B;\nCategories=Utility;\nActions=new;\n\n"
              "[Desktop Action new]\nName=New\nExec=sh\n";
        tryDamaged(13, wellFormed, 1000, [](const QByteArray& damaged, int& named) {
            if (damaged.size() > DesktopEntryFile::maxSize) {
                return; // Is refused before it is read.
            }
            const Bundle bundle
                = DesktopEntryFile::bundle(DesktopEntryFile::parse(damaged, {}, u"x"_s));
            QCOMPARE(bundle.identifier, u"x"_s);
            QVERIFY(bundle.isHidden || bundle.name);
            const QString& icon = bundle.iconSource;
            QVERIFY(icon.startsWith(u'/') || !icon.contains(u'/'));
            if (bundle.name) {
                ++named;
                QVERIFY(!bundle.name->isEmpty() && bundle.name->size() <= 512);
                QVERIFY(std::ranges::none_of(*bundle.name, [](QChar character) {
                    return character.category() == QChar::Other_Control;
                }));
            }
        });
    }

    void damagedThemesStayInTheirFolder()
    {
        const QByteArray wellFormed
            = "[Icon Theme]\nName=T\nInherits=a,hicolor\nDirectories=16/apps,scalable/apps\n"
              "ScaledDirectories=16@2/apps\n[16/apps]\nSize=16\nType=Fixed\nContext=Applications\n"
              "[16@2/apps]\nSize=16\nScale=2\n[scalable/apps]\nSize=64\nMinSize=8\nMaxSize=512\n"
              "Type=Scalable\n";
        tryDamaged(17, wellFormed, 600, [](const QByteArray& damaged, int& understood) {
            const auto index = IconThemeIndex::parse(damaged);
            understood += index ? 1 : 0;
            for (const auto& directory : index.value_or(IconThemeIndex()).directories) {
                QVERIFY(!directory.path.split(u'/').contains(u".."_s));
                QVERIFY(!directory.path.startsWith(u'/'));
                QVERIFY(directory.size >= 1 && directory.size <= 4096 && directory.scale >= 1);
            }
        });
    }

    void damagedListsAreReadOrRefused()
    {
        for (const QByteArray& list : {wellFormedList, binaryPropertyList(wellFormedList)}) {
            QVERIFY(ApplicationFolder::parse(list));
            tryDamaged(11, list, 800, [](const QByteArray& damaged, int& understood) {
                if (damaged.size() <= ApplicationFolder::maxInfoSize) { // Else refused unread.
                    understood += ApplicationFolder::parse(damaged) ? 1 : 0;
                }
            });
        }
    }
};

QTEST_APPLESS_MAIN(FilesFuzzTest)
#include "FilesFuzzTest.moc"
