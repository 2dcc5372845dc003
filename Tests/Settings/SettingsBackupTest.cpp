// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Settings/SettingsBackup.h>
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <Support/FakeFileManager.h>
#include <Support/FakeLoginItem.h>
#include <Support/MemoryUserDefaults.h>
#include <algorithm>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

struct Machine
{
    Machine()
    {
        files.existing = {u"/Applications/A.app"_s,
                          u"/Applications/B.app"_s,
                          u"/usr/share/applications/c.desktop"_s,
                          u"/usr/bin/tool"_s};
        QObject::connect(&settings,
                         &LauncherSettings::propertyChanged,
                         &settings,
                         [this](const QString& name) { changed.append(name); });
    }

    std::optional<ImportSummary> import(const QByteArray& contents)
    {
        changed.clear();
        defaults.written.clear();
        return settings.applyBackup(contents, files);
    }
    [[nodiscard]] QVariantMap values() const
    {
        QVariantMap all;
        for (const SettingRow* row : settings.rows()) {
            all.insert(row->name(), row->stored());
        }
        return all;
    }
    /// Gives every setting another value than its initial one.
    void changeEverything()
    {
        settings.ringDiameter.set(400.5);
        settings.ringThickness.set(100);
        settings.iconSize.set(60);
        settings.maxVisibleApps.set(9);
        for (Setting<bool>* row : {&settings.keepsCenterHintVisible,
                                   &settings.showsAppNames,
                                   &settings.showsLaunchHints,
                                   &settings.searchesAllApps,
                                   &settings.fillsRingWithRecentApps,
                                   &settings.doubleTapModifiersPinsLauncher,
                                   &settings.showInDock,
                                   &settings.showsRunningDot,
                                   &settings.autoUpdatesEnabled}) {
            row->set(!(*row)());
        }
        settings.launchHintInterval.set(200);
        settings.ringColorHex.set(u"not a colour"_s);
        settings.ringOpacity.set(0.2);
        settings.highlightColorHex.set(u"#123456"_s);
        settings.highlightOpacity.set(1);
        settings.pillOpacity.set(0.55);
        settings.runningDotColorHex.set(u"#FF00FF"_s);
        settings.permanentAppPaths.set({u"/Applications/A.app"_s, u"/Applications/B.app"_s});
        settings.pinnedPermanentAppPaths.set({u"/Applications/B.app"_s, u"/Applications/A.app"_s});
        settings.hotKeyConfig.set(HotKeyConfig::make(0x40000, 49));
        settings.updateCheckFrequency.set(UpdateCheckFrequency::monthly);
    }

    MemoryUserDefaults defaults;
    FakeLoginItem loginItem;
    NotificationCenter notifications;
    FakeFileManager files;
    LauncherSettings settings{defaults, loginItem, notifications};
    QStringList changed;
};

} // namespace

class SettingsBackupTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anExportHoldsEveryMemberSortedAndIndented();
    void anExportRestoresEverySetting();
    void membersAreAssignedInOrderAndOnlyWhenPresent();
    void valuesAreRepairedAsAtLoad_data();
    void valuesAreRepairedAsAtLoad();
    void missingApplicationsAreDroppedAndCounted();
    void whatIsNoBackupChangesNothing_data();
    void whatIsNoBackupChangesNothing();
    void unknownAndEmptyMembersAreIgnored();
    void aSnapshotTakesAnImportBack();
    void outcomesAreTold();
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
    QCOMPARE(object.value("updateCheckFrequency"_L1).toString(), u"daily"_s);
    QVERIFY(bytes.contains("\n    \"ringDiameter\": 320,\n"));
    QVERIFY(bytes.indexOf("\"autoUpdatesEnabled\"") < bytes.indexOf("\"updateCheckFrequency\""));
}

void SettingsBackupTest::anExportRestoresEverySetting()
{
    Machine before;
    before.changeEverything();
    Machine after;
    const QVariantMap initial = after.values();
    const ImportSummary all{.restored = 2, .missing = 0};
    QCOMPARE(after.import(before.settings.exportBackup()), all);
    QCOMPARE(after.values(), before.values());
    for (const QString& name : after.changed) {
        QVERIFY2(after.values().value(name) != initial.value(name), qPrintable(name));
        QCOMPARE(after.defaults.values.value(u"LauncherSettings."_s + name),
                 after.values().value(name));
    }
    QCOMPARE(after.changed.size(), 24);
}

void SettingsBackupTest::membersAreAssignedInOrderAndOnlyWhenPresent()
{
    Machine machine;
    QStringList posted;
    const ObserverToken token = machine.notifications.addObserver(
        LauncherSettings::hotKeyChanged, [&](const auto&) { posted.append(machine.changed); });
    const QByteArray contents = R"({"autoUpdatesEnabled": true, "showInDock": true,
        "hotKeyConfig": {"displayName": "x", "modifierFlagsRaw": 262144},
        "pinnedPermanentAppPaths": [], "ringColorHex": "#111111", "ringDiameter": 9999})";
    QVERIFY(machine.import(contents));
    const QStringList expected{u"ringDiameter"_s,
                               u"ringColorHex"_s,
                               u"pinnedPermanentAppPaths"_s,
                               u"hotKeyConfig"_s,
                               u"showInDock"_s,
                               u"autoUpdatesEnabled"_s};
    QCOMPARE(machine.changed, expected);
    QCOMPARE(posted, expected.first(4));
    QCOMPARE(machine.settings.ringDiameter(), 550.0);
    QVERIFY(machine.import("{}"));
    QVERIFY(machine.changed.isEmpty() && machine.defaults.written.isEmpty());
}

void SettingsBackupTest::valuesAreRepairedAsAtLoad_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const QString& name, const QByteArray& json, const QVariant& value) {
        QTest::addRow("%s %s", qPrintable(name), json.constData()) << name << json << value;
    };
    row(u"ringDiameter"_s, "9999", 550.0);
    row(u"ringDiameter"_s, "-1e300", 250.0);
    row(u"ringDiameter"_s, "333", 333.0);
    row(u"ringThickness"_s, "221", 220.0);
    row(u"iconSize"_s, "35.9", 36.0);
    row(u"maxVisibleApps"_s, "0", 1LL);
    row(u"maxVisibleApps"_s, "12.0", 12LL);
    row(u"maxVisibleApps"_s, "9007199254740993", 24LL);
    row(u"launchHintInterval"_s, "7", 25LL);
    row(u"launchHintInterval"_s, "100", 100LL);
    row(u"ringOpacity"_s, "0.1", 0.2);
    row(u"highlightOpacity"_s, "1.5", 1.0);
    row(u"pillOpacity"_s, "1", 1.0);
    row(u"ringColorHex"_s, "\"junk\"", u"junk"_s);
    row(u"updateCheckFrequency"_s, "\"weekly\"", u"weekly"_s);
    row(u"updateCheckFrequency"_s, "\"hourly\"", u"daily"_s);
}

void SettingsBackupTest::valuesAreRepairedAsAtLoad()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, json);
    Machine machine;
    QVERIFY(machine.import("{\"" + name.toUtf8() + "\": " + json + "}"));
    QTEST(machine.values().value(name), "value");
    QCOMPARE(machine.changed, QStringList{name});
}

void SettingsBackupTest::missingApplicationsAreDroppedAndCounted()
{
    Machine machine;
    const QByteArray contents = R"({
        "permanentAppPaths":
            ["/Applications/A.app", "/gone/D.app", "/usr/share/applications/c.desktop"],
        "pinnedPermanentAppPaths":
            ["/usr/share/applications/c.desktop", "/gone/D.app", "/usr/bin/tool", "A.app",
             "/Applications/A.app"]})";
    const ImportSummary summary{.restored = 2, .missing = 3};
    QCOMPARE(machine.import(contents), summary);
    QCOMPARE(machine.settings.permanentAppPaths(),
             QStringList({u"/Applications/A.app"_s, u"/usr/share/applications/c.desktop"_s}));
    QCOMPARE(machine.settings.pinnedPermanentAppPaths(),
             QStringList({u"/usr/share/applications/c.desktop"_s, u"/Applications/A.app"_s}));
    const QByteArray allGone = R"({"permanentAppPaths": ["/gone/D.app"]})";
    QCOMPARE(machine.import(allGone), ImportSummary());
    QVERIFY(machine.settings.permanentAppPaths().isEmpty());
}

void SettingsBackupTest::whatIsNoBackupChangesNothing_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("ringDiameter=400");
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
        R"("ringDiameter": true)",
        R"("ringDiameter": 1e999)",
        R"("ringDiameter": NaN)",
        R"("maxVisibleApps": 5.5)",
        R"("maxVisibleApps": 1e30)",
        R"("launchHintInterval": "25")",
        R"("showsAppNames": 1)",
        R"("ringColorHex": 0)",
        R"("ringColorHex": "\ud800")",
        "\"ringColorHex\": \"\xff\xfe\"",
        R"("permanentAppPaths": "/Applications/A.app")",
        R"("permanentAppPaths": ["/Applications/A.app", 1])",
        R"("permanentAppPaths": ["/Applications/A.app\n"])",
        R"("pinnedPermanentAppPaths": ["/Applications/\u0000A.app"])",
        R"("pinnedPermanentAppPaths": {"a": "/Applications/A.app"})",
        R"("hotKeyConfig": "⌃⌥")",
        R"("hotKeyConfig": {"modifierFlagsRaw": 786432})",
        R"("hotKeyConfig": {"displayName": "x", "modifierFlagsRaw": 1, "keyCode": 70000})",
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
    machine.changeEverything();
    const QVariantMap before = machine.values();
    QCOMPARE(machine.import(contents), std::nullopt);
    QCOMPARE(machine.values(), before);
    QVERIFY(machine.changed.isEmpty() && machine.defaults.written.isEmpty());
}

void SettingsBackupTest::unknownAndEmptyMembersAreIgnored()
{
    Machine machine;
    const QByteArray contents = R"({"future": {"a:b\"": [1, {"c": null}]},
        "hasCompletedOnboarding": true, "ringDiameter": null, "showsAppNames": false})";
    QVERIFY(machine.import(contents));
    QCOMPARE(machine.changed, QStringList{u"showsAppNames"_s});
}

void SettingsBackupTest::aSnapshotTakesAnImportBack()
{
    Machine machine;
    machine.changeEverything();
    machine.settings.permanentAppPaths.set({u"/gone/D.app"_s});
    const QVariantMap before = machine.values();
    const SettingsSnapshot snapshot(machine.settings);
    const QByteArray contents = R"({"ringDiameter": 300, "permanentAppPaths": []})";
    QVERIFY(machine.import(contents));
    machine.changed.clear();
    snapshot.restore(machine.settings);
    QCOMPARE(machine.values(), before);
    QCOMPARE(machine.changed, QStringList({u"ringDiameter"_s, u"permanentAppPaths"_s}));
}

void SettingsBackupTest::outcomesAreTold()
{
    using namespace SettingsBackup;
    const QString file = u"%1.json"_s;
    QCOMPARE(importedMessage(file, {.restored = 3}), u"Settings imported from %1.json."_s);
    QCOMPARE(importedMessage(file, {.restored = 1, .missing = 2}),
             u"Imported %1.json — 1 pinned app restored, 2 not installed on this Mac."_s);
    QCOMPARE(importedMessage(file, {.restored = 0, .missing = 1}),
             u"Imported %1.json — 0 pinned apps restored, 1 not installed on this Mac."_s);
    QCOMPARE(importFailedMessage(file),
             u"Couldn't import %1.json — is it a valid Tavik settings file?"_s);
    QCOMPARE(exportFailedMessage(u"No space left"_s), u"Couldn't export: No space left"_s);
}

QTEST_GUILESS_MAIN(SettingsBackupTest)
#include "SettingsBackupTest.moc"
