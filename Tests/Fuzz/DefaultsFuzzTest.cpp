// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncherPlatform/Linux/Storage/PropertyListDefaults.h>
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLoggingCategory>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <Fuzz/Mutator.h>
#include <Support/FakeLoginItem.h>
#include <Support/StepWorkQueue.h>
#include <Support/VirtualMainQueue.h>

using namespace Tavik;
using namespace Qt::StringLiterals;

namespace {

/// Each test runs through its inputs in order until this much time is gone.
constexpr qint64 millisecondsPerTest = 600;

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
    Test::FakeLoginItem loginItem;
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

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class DefaultsFuzzTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damagedDefaultsStillGiveSettingsInRange();
    void damagedFilesAreUnderstoodOrKept();
    void damagedShortcutsNeitherCrashNorBreakTheRules();
};

void DefaultsFuzzTest::damagedDefaultsStillGiveSettingsInRange()
{
    const QByteArray wellFormed = wellFormedDefaults();
    Test::Mutator mutator(1);
    Test::FakeLoginItem loginItem;
    NotificationCenter notifications;
    QElapsedTimer time;
    time.start();
    int understood = 0;
    int runs = 0;
    for (; time.elapsed() < millisecondsPerTest; ++runs) {
        auto list = PropertyList::fromXml(mutator.mutate(wellFormed));
        if (!list) {
            continue;
        }
        ++understood;
        ReadDefaults defaults(*std::move(list));
        LauncherSettings settings(defaults, loginItem, notifications);
        QVERIFY(settings.ringDiameter() >= 250 && settings.ringDiameter() <= 550);
        QVERIFY(settings.ringOpacity() >= 0.2 && settings.ringOpacity() <= 1);
        QVERIFY(settings.maxVisibleApps() >= 1 && settings.maxVisibleApps() <= 24);
        const QStringList& permanent = settings.permanentAppPaths();
        QCOMPARE(settings.effectivePinnedAppPaths().size(),
                 QSet<QString>(permanent.begin(), permanent.end()).size());
        (void)settings.launchHintForThisSummon();
        // What the program has read and written it can read again; it does not write more.
        const QByteArray written = defaults.values.toXml();
        QVERIFY2(written.size() > PropertyList::mostBytes || PropertyList::fromXml(written),
                 written.constData());
    }
    qInfo() << runs << "texts," << understood << "of them understood";
    QVERIFY(understood > 0 && understood < runs);
}

void DefaultsFuzzTest::damagedFilesAreUnderstoodOrKept()
{
    QLoggingCategory::setFilterRules(u"tavik.storage.warning=false"_s);
    const QByteArray wellFormed = wellFormedDefaults();
    Test::Mutator mutator(3);
    Test::VirtualMainQueue queue;
    Test::StepWorkQueue work;
    QElapsedTimer time;
    time.start();
    int understood = 0;
    int runs = 0;
    for (; time.elapsed() < millisecondsPerTest; ++runs) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"Defaults.plist"_s);
        const QByteArray damaged = mutator.mutate(wellFormed);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(damaged), damaged.size());
        file.close();
        (void)PropertyListDefaults(path, queue, work);
        const QStringList files = QDir(folder.path()).entryList(QDir::Files);
        QCOMPARE(files.size(), 1);
        QCOMPARE(contentsOf(folder.filePath(files.first())), damaged);
        understood += files.first() == u"Defaults.plist"_s ? 1 : 0;
    }
    qInfo() << runs << "files," << understood << "of them understood";
    QVERIFY(understood > 0 && understood < runs);
}

void DefaultsFuzzTest::damagedShortcutsNeitherCrashNorBreakTheRules()
{
    const QByteArray wellFormed = HotKeyConfig::make(0x140000, 40, u"k"_s).toJson();
    Test::Mutator mutator(2);
    QElapsedTimer time;
    time.start();
    int understood = 0;
    int runs = 0;
    for (; time.elapsed() < millisecondsPerTest; ++runs) {
        const auto config = HotKeyConfig::fromJson(mutator.mutate(wellFormed));
        if (config) {
            ++understood;
            QCOMPARE(config->modifierFlagsRaw & 0xFFFF, quint64{0});
            QCOMPARE(HotKeyConfig::fromJson(config->toJson()), config);
        }
    }
    qInfo() << runs << "records," << understood << "of them understood";
    QVERIFY(understood > 0 && understood < runs);
}

QTEST_APPLESS_MAIN(DefaultsFuzzTest)

#include "DefaultsFuzzTest.moc"
