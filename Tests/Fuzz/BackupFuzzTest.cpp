// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Settings/SettingsBackup.h>
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <QElapsedTimer>
#include <QTest>

#include <Fuzz/Mutator.h>
#include <Support/FakeFileManager.h>
#include <Support/FakeLoginItem.h>
#include <Support/MemoryUserDefaults.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class BackupFuzzTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damagedBackupsLeaveValidSettingsOrChangeNothing();
};

void BackupFuzzTest::damagedBackupsLeaveValidSettingsOrChangeNothing()
{
    MemoryUserDefaults defaults;
    FakeLoginItem loginItem;
    NotificationCenter notifications;
    FakeFileManager files;
    LauncherSettings settings(defaults, loginItem, notifications);
    for (int number = 0; number < 6; ++number) {
        const QString path = u"/Applications/Äpp %1.app"_s.arg(number);
        files.existing.insert(path);
        settings.addPermanentApp(path);
    }
    const QByteArray wellFormed = settings.exportBackup();

    Mutator mutator(11);
    QElapsedTimer time;
    time.start();
    int understood = 0;
    int runs = 0;
    for (; time.elapsed() < 2000; ++runs) {
        defaults.written.clear();
        if (!settings.applyBackup(mutator.mutate(wellFormed), files)) {
            QVERIFY(defaults.written.isEmpty());
            continue;
        }
        ++understood;
        QVERIFY(settings.ringDiameter() >= 250 && settings.ringDiameter() <= 550);
        QVERIFY(settings.ringOpacity() >= 0.2 && settings.ringOpacity() <= 1);
        QVERIFY(settings.maxVisibleApps() >= 1 && settings.maxVisibleApps() <= 24);
        for (const QString& path :
             settings.permanentAppPaths() + settings.pinnedPermanentAppPaths()) {
            QVERIFY(files.existing.contains(path));
        }
        // Whatever has been taken over can be written and read again.
        QVERIFY(settings.applyBackup(settings.exportBackup(), files));
    }
    qInfo() << runs << "files," << understood << "of them understood";
    QVERIFY(understood > 0 && understood < runs);
}

QTEST_GUILESS_MAIN(BackupFuzzTest)
#include "BackupFuzzTest.moc"
