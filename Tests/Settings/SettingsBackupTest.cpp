// SPDX-License-Identifier: MIT
#include "SettingsStore.h"
#include <TavikLauncher/Settings/SettingsBackup.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <Support/FakeFileManager.h>

using namespace Tavik;
using namespace Tavik::Test;

namespace {

const QString appA = u"/Applications/A.app"_s;
const QString appB = u"/usr/share/applications/b.desktop"_s;
/// A file may be called by anything.
const QString oddlyNamed = u"/Applications/odd\u0001\n.app"_s;

struct Machine : SettingsStore
{
    Machine() { files.existing = {appA, appB, oddlyNamed, u"/usr/bin/tool"_s}; }

    std::optional<ImportSummary> import(const QByteArray& contents)
    {
        told.clear();
        defaults.written.clear();
        return settings.applyBackup(contents, files);
    }
    /// Gives every setting another value than its initial one.
    void changeEverything() const
    {
        const QHash<int, QVariant> others{
            {QMetaType::LongLong, 5LL},
            {QMetaType::QString, u"monthly"_s},
            {QMetaType::QVariantList, QVariantList{appB, oddlyNamed}},
            {QMetaType::QByteArray, HotKeyConfig::make(0x40000, 49).toJson()}};
        for (SettingRow* row : settings.rows()) {
            const QVariant value = row->stored();
            if (value.typeId() == QMetaType::Bool) {
                row->restore(!value.toBool());
            } else if (value.typeId() == QMetaType::Double) {
                row->restore(value.toDouble() <= 1 ? 0.55 : value.toDouble() + 0.5);
            } else {
                row->restore(others.value(value.typeId()));
            }
        }
    }

    FakeFileManager files;
};

} // namespace

class SettingsBackupTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anExportHoldsEveryMemberSortedAndIndented();
    void anExportRestoresEverySettingAndASnapshotTakesItBack();
    void membersAreAssignedInOrderAndRepairedAsAtLoad();
    void missingApplicationsAreDroppedAndCounted();
    void whatIsNoBackupChangesNothing_data();
    void whatIsNoBackupChangesNothing();
};

void SettingsBackupTest::anExportHoldsEveryMemberSortedAndIndented()
{
    const Machine machine;
    const QByteArray bytes = machine.settings.exportBackup();
    const QJsonObject object = QJsonDocument::fromJson(bytes).object();
    QStringList expected = machine.values().keys();
    expected.removeOne(u"hasCompletedOnboarding"_s);
    QCOMPARE(object.keys(), expected);
    QCOMPARE(object.size(), 24);
    const QJsonObject hotKey{{u"modifierFlagsRaw"_s, 0xC0000}, {u"displayName"_s, u"⌃⌥ (hold)"_s}};
    QCOMPARE(object.value("hotKeyConfig"_L1).toObject(), hotKey);
    QVERIFY(bytes.contains("\n    \"ringDiameter\": 320,\n"));
    QVERIFY(bytes.indexOf("\"autoUpdatesEnabled\"") < bytes.indexOf("\"updateCheckFrequency\""));
}

void SettingsBackupTest::anExportRestoresEverySettingAndASnapshotTakesItBack()
{
    Machine before;
    before.changeEverything();
    before.settings.hasCompletedOnboarding.set(false);
    Machine after;
    // What is not installed any more comes back all the same.
    after.settings.permanentAppPaths.set({u"/gone/D.app"_s});
    const SettingsSnapshot snapshot(after.settings);
    const QVariantMap initial = after.values();
    const ImportSummary all{.restored = 2, .missing = 0};
    QCOMPARE(after.import(before.settings.exportBackup()), all);
    QCOMPARE(after.values(), before.values());
    for (const QString& name : after.values().keys()) {
        QCOMPARE(after.values().value(name) == initial.value(name),
                 name == u"hasCompletedOnboarding");
    }
    QCOMPARE(after.defaults.written.size(), 24);
    snapshot.restore(after.settings);
    QCOMPARE(after.values(), initial);
    after.told.clear();
    snapshot.restore(after.settings);
    QVERIFY(after.told.isEmpty());
}

void SettingsBackupTest::membersAreAssignedInOrderAndRepairedAsAtLoad()
{
    Machine machine;
    const QByteArray contents = R"({"autoUpdatesEnabled": true, "showInDock": true,
        "future": {"a:b\"": [1, {"c": null}]}, "hasCompletedOnboarding": true, "iconSize": null,
        "hotKeyConfig": {"displayName": "x", "modifierFlagsRaw": 262144}, "launchHintInterval": 7,
        "maxVisibleApps": 12.0,
        "pinnedPermanentAppPaths": [], "ringColorHex": "#111111", "ringDiameter": 9999})";
    QVERIFY(machine.import(contents));
    QString told = machine.told.join(u' ');
    told.replace(LauncherSettings::previewRequestNotification.toString(), u"*"_s);
    told.replace(LauncherSettings::hotKeyChanged.toString(), u"!"_s);
    QCOMPARE(told,
             u"ringDiameter * maxVisibleApps * launchHintInterval ringColorHex * "
             "pinnedPermanentAppPaths * hotKeyConfig ! showInDock autoUpdatesEnabled"_s);
    QCOMPARE(machine.settings.ringDiameter(), 550.0);
    QCOMPARE(machine.settings.maxVisibleApps(), 12);
    QCOMPARE(machine.settings.launchHintInterval(), 25);
    QVERIFY(machine.import("{}"));
    QVERIFY(machine.told.isEmpty() && machine.defaults.written.isEmpty());
}

void SettingsBackupTest::missingApplicationsAreDroppedAndCounted()
{
    Machine machine;
    const QByteArray contents = R"({
        "permanentAppPaths":
            ["/Applications/A.app", "/gone/D.app", "/usr/share/applications/b.desktop"],
        "pinnedPermanentAppPaths":
            ["/usr/share/applications/b.desktop", "/gone/D.app", "/usr/bin/tool", "A.app",
             "/Applications/A.app"]})";
    const ImportSummary summary{.restored = 2, .missing = 3};
    QCOMPARE(machine.import(contents), summary);
    QCOMPARE(machine.settings.permanentAppPaths(), QStringList({appA, appB}));
    QCOMPARE(machine.settings.pinnedPermanentAppPaths(), QStringList({appB, appA}));
    QCOMPARE(machine.import(R"({"permanentAppPaths": ["/gone/D.app"]})"), ImportSummary());
    QVERIFY(machine.settings.permanentAppPaths().isEmpty());
}

void SettingsBackupTest::whatIsNoBackupChangesNothing_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("array") << QByteArray("[]");
    QTest::newRow("binary") << QByteArray("bplist00\0\1\2", 11);
    QTest::newRow("truncated") << Machine().settings.exportBackup().chopped(3);
    QTest::newRow("more behind") << QByteArray("{} {}");
    QTest::newRow("too large") << QByteArray("{}").leftJustified(9 * 1024 * 1024, ' ');
    QTest::newRow("deep") << QByteArray("{\"x\":") + QByteArray(100000, '[');
    QTest::newRow("deep and closed")
        << QByteArray("{\"x\":") + QByteArray(5000, '[') + QByteArray(5000, ']') + "}";
    const QList<QByteArray> members{
        R"("ringDiameter": "400")",
        R"("ringDiameter": 1e999)",
        R"("ringDiameter": NaN)",
        R"("maxVisibleApps": 5.5)",
        R"("maxVisibleApps": 1e30)",
        R"("showsAppNames": 1)",
        R"("ringColorHex": 0)",
        R"("ringColorHex": "\ud800")",
        "\"ringColorHex\": \"\xff\xfe\"",
        R"("permanentAppPaths": "/Applications/A.app")",
        R"("permanentAppPaths": ["/Applications/A.app", 1])",
        R"("pinnedPermanentAppPaths": ["/Applications/\u0000A.app"])",
        R"("hotKeyConfig": "⌃⌥")",
        R"("hotKeyConfig": {"modifierFlagsRaw": 786432})",
        R"("hotKeyConfig": {"displayName": "x", "displayName": "y", "modifierFlagsRaw": 1})",
        R"("updateCheckFrequency": 1)",
        R"("ringThickness": 100, "ringThickness": 120)",
        R"("ringThickness": 100, "ringThickn\u0065ss": 120)",
    };
    for (const QByteArray& member : members) {
        QTest::newRow(member.constData()) << "{\"ringOpacity\": 0.5, " + member + "}";
    }
}

void SettingsBackupTest::whatIsNoBackupChangesNothing()
{
    QFETCH(const QByteArray, contents);
    Machine machine;
    QCOMPARE(machine.import(contents), std::nullopt);
    QVERIFY(machine.told.isEmpty() && machine.defaults.written.isEmpty());
}

QTEST_GUILESS_MAIN(SettingsBackupTest)
#include "SettingsBackupTest.moc"
