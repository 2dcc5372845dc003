// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Settings/SettingsBackup.h>
#include <TavikLauncherPlatform/Linux/Disk/PropertyListBounds.h>
#include <TavikLauncherPlatform/Linux/Disk/PropertyListDefaults.h>
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <QLoggingCategory>
#include <QSet>
#include <QTest>

#include <Fuzz/Mutator.h>
#include <Support/FakeFileManager.h>
#include <Support/FakeLoginItem.h>
#include <Support/FileTree.h>
#include <Support/MemoryUserDefaults.h>
#include <Support/StepWorkQueue.h>
#include <Support/VirtualMainQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// User defaults that have been read, without the file.
class ReadDefaults final : public UserDefaults
{
public:
    explicit ReadDefaults(PropertyList list)
        : values(std::move(list))
    { }
    [[nodiscard]] QVariant object(const QString& key) const override { return values.value(key); }
    void setObject(const QString& key, const QVariant& value) override
    {
        values.setValue(key, value);
    }

    PropertyList values;
};

/// Every setting there is, as the program writes it.
QByteArray wellFormedDefaults()
{
    FakeLoginItem loginItem;
    NotificationCenter notifications;
    ReadDefaults defaults{PropertyList()};
    LauncherSettings settings(defaults, loginItem, notifications);
    for (SettingRow* row : settings.rows()) {
        row->restore(row->stored());
    }
    settings.addPermanentApp(u"/Applications/A & B.app"_s);
    defaults.setObject(u"LauncherSettings.permanentAppSlots"_s,
                       QVariantMap{{u"/Applications/A & B.app"_s, 1LL}});
    (void)settings.launchHintForThisSummon();
    return defaults.values.toXml();
}

void verifyInRange(const LauncherSettings& settings)
{
    QVERIFY(settings.ringDiameter() >= 250 && settings.ringDiameter() <= 550);
    QVERIFY(settings.ringOpacity() >= 0.2 && settings.ringOpacity() <= 1);
    QVERIFY(settings.maxVisibleApps() >= 1 && settings.maxVisibleApps() <= 24);
}

} // namespace

class SettingsFuzzTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damagedDefaultsStillGiveSettingsInRange()
    {
        FakeLoginItem loginItem;
        NotificationCenter notifications;
        tryDamaged(1, wellFormedDefaults(), 600, [&](const QByteArray& damaged, int& understood) {
            auto list = PropertyList::fromBytes(damaged);
            if (!list) {
                return;
            }
            ++understood;
            ReadDefaults defaults(*std::move(list));
            LauncherSettings settings(defaults, loginItem, notifications);
            verifyInRange(settings);
            const QStringList& permanent = settings.permanentAppPaths();
            QCOMPARE(settings.effectivePinnedAppPaths().size(),
                     QSet<QString>(permanent.begin(), permanent.end()).size());
            (void)settings.launchHintForThisSummon();
            // What the program has read and written it can read again; it does not write more.
            const QByteArray written = defaults.values.toXml();
            QVERIFY2(!PropertyListBounds::areKept(written) || PropertyList::fromBytes(written),
                     written.constData());
        });
    }

    void damagedFilesAreUnderstoodOrKept()
    {
        QLoggingCategory::setFilterRules(u"tavik.storage.warning=false"_s);
        VirtualMainQueue queue;
        StepWorkQueue work;
        tryDamaged(3, wellFormedDefaults(), 600, [&](const QByteArray& damaged, int& understood) {
            const FileTree tree;
            const QString path = tree.write(u"Defaults.plist"_s, damaged);
            (void)PropertyListDefaults(path, queue, work);
            const QStringList files = QDir(tree.path()).entryList(QDir::Files);
            QCOMPARE(files.size(), 1);
            QFile kept(tree.path(files.first()));
            QVERIFY(kept.open(QIODevice::ReadOnly));
            QCOMPARE(kept.readAll(), damaged);
            understood += files.first() == u"Defaults.plist"_s ? 1 : 0;
        });
    }

    void damagedBackupsLeaveValidSettingsOrChangeNothing()
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
        tryDamaged(11, settings.exportBackup(), 1200, [&](const QByteArray& damaged, int& taken) {
            defaults.written.clear();
            if (!settings.applyBackup(damaged, files)) {
                QVERIFY(defaults.written.isEmpty());
                return;
            }
            ++taken;
            verifyInRange(settings);
            for (const QString& path :
                 settings.permanentAppPaths() + settings.pinnedPermanentAppPaths()) {
                QVERIFY(files.existing.contains(path));
            }
            // Whatever has been taken over can be written and read again.
            QVERIFY(settings.applyBackup(settings.exportBackup(), files));
        });
    }

    void damagedShortcutsNeitherCrashNorBreakTheRules()
    {
        const QByteArray wellFormed = HotKeyConfig::make(0x140000, 40, u"k"_s).toJson();
        tryDamaged(2, wellFormed, 600, [](const QByteArray& damaged, int& understood) {
            if (const auto config = HotKeyConfig::fromJson(damaged)) {
                ++understood;
                QCOMPARE(config->modifierFlagsRaw & 0xFFFF, quint64{0});
                QCOMPARE(HotKeyConfig::fromJson(config->toJson()), config);
            }
        });
    }
};

QTEST_APPLESS_MAIN(SettingsFuzzTest)

#include "SettingsFuzzTest.moc"
