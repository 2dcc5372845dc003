// SPDX-License-Identifier: MIT
#include "SettingsStore.h"

#include <QTest>

#include <Support/Table.h>
#include <cmath>
#include <limits>

using namespace Tavik;
using namespace Tavik::Test;

namespace {

QVariantList list(const QStringList& strings)
{
    return QVariantList(strings.begin(), strings.end());
}

const QString permanent = u"permanentAppPaths"_s;
const QString pinned = u"pinnedPermanentAppPaths"_s;
const QString preview = LauncherSettings::previewRequestNotification.toString();

} // namespace

class LauncherSettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void storedValuesAreRepaired_data()
    {
        const Table<QString, QVariant, QVariant> table; // The setting, what is stored and loaded.
        const auto row = [&](const QString& name, const QVariant& stored, const QVariant& loaded) {
            const QString type = QLatin1String(stored.typeName());
            const QString title = u"%1 from %2 %3"_s.arg(name, type, stored.toString());
            table(qPrintable(title), name, stored, loaded);
        };
        constexpr double infinity = std::numeric_limits<double>::infinity();
        constexpr auto beyondInt = qlonglong{1} << 40;
        row(u"ringDiameter"_s, 1000.0, 550.0);
        row(u"ringDiameter"_s, 10.0, 250.0);
        row(u"ringDiameter"_s, 400LL, 320.0);
        row(u"ringDiameter"_s, std::nan(""), 320.0);
        row(u"ringDiameter"_s, infinity, 550.0);
        row(u"ringThickness"_s, -infinity, 60.0);
        row(u"ringThickness"_s, 221.0, 220.0);
        row(u"iconSize"_s, 20.0, 36.0);
        row(u"iconSize"_s, 93.0, 92.0);
        row(u"maxVisibleApps"_s, -beyondInt, 1LL);
        row(u"maxVisibleApps"_s, beyondInt, 24LL);
        row(u"maxVisibleApps"_s, 7.0, 15LL);
        row(u"launchHintInterval"_s, 30LL, 25LL);
        row(u"launchHintInterval"_s, beyondInt + 5, 25LL);
        row(u"showsAppNames"_s, 0LL, true);
        row(u"hasCompletedOnboarding"_s, 1LL, false);
        row(u"runningDotColorHex"_s, 1LL, u"#0A84FF"_s);
        row(u"ringOpacity"_s, 0.0, 0.2);
        row(u"highlightOpacity"_s, 7.0, 1.0);
        row(u"pillOpacity"_s, std::nan(""), 0.94);
        row(u"ringColorHex"_s, u"no colour"_s, u"no colour"_s);
        row(u"ringColorHex"_s, QByteArray("#FFFFFF"), u"#000000"_s);
        row(u"updateCheckFrequency"_s, u"Weekly"_s, u"daily"_s);
        row(permanent, QVariantList{u"/a"_s, 1LL}, QVariantList());
        const HotKeyConfig fallback = HotKeyConfig::defaultConfig();
        const HotKeyConfig space = HotKeyConfig::make(0x100000, 49);
        row(u"hotKeyConfig"_s, space.toJson(), space.toJson());
        row(u"hotKeyConfig"_s, QByteArray("{}"), fallback.toJson());
        row(u"hotKeyConfig"_s, QString::fromUtf8(space.toJson()), fallback.toJson());
    }

    void storedValuesAreRepaired()
    {
        const auto [name, stored, loaded] = fetch<QString, QVariant, QVariant>();
        const SettingsStore store({{name, stored}});
        QCOMPARE(store.values().value(name), loaded);
        QVERIFY(store.defaults.written.isEmpty());
    }

    void assignmentsAreExactAndAlwaysTold()
    {
        SettingsStore store;
        for (int time = 1; time <= 2; ++time) {
            store.settings.ringDiameter.set(9999);
            store.settings.launchHintInterval.set(3);
        }
        store.settings.pendingSettingsSectionID.set(u"about"_s);
        QCOMPARE(store.defaults.values,
                 (QVariantMap{{keyOf(u"ringDiameter"_s), 9999.0},
                              {keyOf(u"launchHintInterval"_s), 3LL}}));
        const QStringList once{u"ringDiameter"_s, preview, u"launchHintInterval"_s};
        QCOMPARE(store.told, once + once + QStringList{u"pendingSettingsSectionID"_s});
    }

    void pinnedPathsAreCompleted_data()
    {
        // The permanent paths, the pinned ones and the slots of old, as far as they are stored;
        // what is pinned then, in which order the ring has it, and whether that is written.
        const Table<QStringList, QVariant, QVariantMap, QStringList, QStringList, bool> row;
        const QString a = u"A"_s;
        const QString b = u"B"_s;
        const QString x = u"X"_s;
        row("slots", {a, b}, {}, {{b, 2LL}, {a, 0LL}, {x, 1LL}}, {a, b}, {a, b}, false);
        row("slots in order", {a, b}, {}, {{b, -1LL}, {a, 10LL}}, {b, a}, {b, a}, false);
        row("slots of some", {a, b}, {}, {{b, 5LL}}, {b, a}, {b, a}, true);
        row("a text is no slot", {a, b}, {}, {{b, 1LL}, {a, u"2"_s}}, {a, b}, {a, b}, true);
        row("slots are moot", {a, b}, list({}), {{b, 0LL}, {a, 1LL}}, {a, b}, {a, b}, true);
        row("strangers", {b, a}, list({a, a, x}), {}, {a, x, b}, {a, b}, true);
        row("duplicates alone", {a, b}, list({b, a, b}), {}, {b, a}, {b, a}, false);
        row("a permanent path twice", {a, a}, {}, {}, {a}, {a}, true);
    }

    void pinnedPathsAreCompleted()
    {
        const auto [permanentPaths, listed, formerSlots, paths, effective, written]
            = fetch<QStringList, QVariant, QVariantMap, QStringList, QStringList, bool>();
        QVariantMap stored{{permanent, list(permanentPaths)}};
        if (listed.isValid()) {
            stored.insert(pinned, listed);
        }
        if (!formerSlots.isEmpty()) {
            stored.insert(u"permanentAppSlots"_s, formerSlots);
        }
        const SettingsStore store(stored);
        QCOMPARE(store.settings.pinnedPermanentAppPaths(), paths);
        QCOMPARE(store.settings.effectivePinnedAppPaths(), effective);
        QCOMPARE(store.defaults.written, written ? QStringList{keyOf(pinned)} : QStringList());
        if (written) {
            QCOMPARE(store.defaults.stringArrayValue(keyOf(pinned)), paths);
        }
    }

    void permanentAppsAreAddedAndRemoved()
    {
        SettingsStore store({{pinned, list({u"X"_s})}});
        LauncherSettings& settings = store.settings;
        settings.addPermanentApp(u"A"_s);
        QCOMPARE(settings.pinnedPermanentAppPaths(), (QStringList{u"X"_s, u"A"_s}));
        QCOMPARE(std::exchange(store.told, {}), (QStringList{permanent, preview, pinned, preview}));
        settings.addPermanentApp(u"X"_s);
        QCOMPARE(std::exchange(store.told, {}), (QStringList{permanent, preview}));
        QCOMPARE(settings.effectivePinnedAppPaths(), (QStringList{u"X"_s, u"A"_s}));

        settings.pinnedPermanentAppPaths.set({u"X"_s});
        store.told.clear();
        settings.addPermanentApp(u"A"_s);
        settings.removePermanentApps({u"unknown"_s});
        QVERIFY(store.told.isEmpty());
        settings.removePermanentApps({u"A"_s, u"unknown"_s});
        QCOMPARE(store.told, (QStringList{permanent, preview}));
        QCOMPARE(settings.permanentAppPaths(), QStringList{u"X"_s});
    }
};

QTEST_APPLESS_MAIN(LauncherSettingsTest)

#include "LauncherSettingsTest.moc"
