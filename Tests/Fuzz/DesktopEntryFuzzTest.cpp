// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Files/DesktopEntryFile.h>
#include <TavikLauncherPlatform/Linux/Files/IconThemeIndex.h>

#include <QElapsedTimer>
#include <QTest>

#include <Fuzz/Mutator.h>
#include <algorithm>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class DesktopEntryFuzzTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damagedEntriesAreSafeToShow();
    void damagedThemesStayInTheirFolder();
};

void DesktopEntryFuzzTest::damagedEntriesAreSafeToShow()
{
    const QByteArray wellFormed = "[Desktop Entry]\nType=Application\nVersion=1.5\n"
                                  "Name=Viewer\nName[de]=Betrachter\nComment=Sh\xC3\xB6w\\n it\n"
                                  "Exec=sh -c \"echo %U\" $HOME\nTryExec=sh\nIcon=org.example.x\n"
                                  "OnlyShowIn=A;B;\nCategories=Utility;\nActions=new;\n\n"
                                  "[Desktop Action new]\nName=New\nExec=sh\n";
    Mutator mutator(13);
    QElapsedTimer time;
    time.start();
    int named = 0;
    int runs = 0;
    for (; time.elapsed() < 1000; ++runs) {
        const QByteArray damaged = mutator.mutate(wellFormed);
        if (damaged.size() > DesktopEntryFile::maxSize) {
            continue; // Is refused before it is read.
        }
        const Bundle bundle = DesktopEntryFile::parse(damaged, u"x"_s);
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
    }
    qInfo() << runs << "entries," << named << "of them named";
    QVERIFY(named > 0 && named < runs);
}

void DesktopEntryFuzzTest::damagedThemesStayInTheirFolder()
{
    const QByteArray wellFormed
        = "[Icon Theme]\nName=T\nInherits=a,hicolor\nDirectories=16/apps,scalable/apps\n"
          "ScaledDirectories=16@2/apps\n[16/apps]\nSize=16\nType=Fixed\nContext=Applications\n"
          "[16@2/apps]\nSize=16\nScale=2\n[scalable/apps]\nSize=64\nMinSize=8\nMaxSize=512\n"
          "Type=Scalable\n";
    Mutator mutator(17);
    QElapsedTimer time;
    time.start();
    int understood = 0;
    int runs = 0;
    for (; time.elapsed() < 600; ++runs) {
        const auto index = IconThemeIndex::parse(mutator.mutate(wellFormed));
        if (!index) {
            continue;
        }
        ++understood;
        for (const IconThemeIndex::Directory& directory : index->directories) {
            QVERIFY(!directory.path.split(u'/').contains(u".."_s));
            QVERIFY(!directory.path.startsWith(u'/'));
            QVERIFY(directory.size >= 1 && directory.size <= 4096 && directory.scale >= 1);
        }
    }
    qInfo() << runs << "themes," << understood << "of them understood";
    QVERIFY(understood > 0 && understood < runs);
}

QTEST_APPLESS_MAIN(DesktopEntryFuzzTest)
#include "DesktopEntryFuzzTest.moc"
