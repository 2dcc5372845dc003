// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Settings/ThemePreset.h>
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <QTest>

#include <Support/FakeLoginItem.h>
#include <Support/MemoryUserDefaults.h>
#include <Support/Table.h>
#include <cmath>
#include <limits>
#include <memory>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

QString keyOf(const QString& name)
{
    return u"LauncherSettings."_s + name;
}

QVariantList list(const QStringList& strings)
{
    return QVariantList(strings.begin(), strings.end());
}

/// A store over given values, with everything it does written down in order.
struct Fixture
{
    explicit Fixture(const QVariantMap& stored = {})
    {
        for (auto value = stored.begin(); value != stored.end(); ++value) {
            defaults.values.insert(keyOf(value.key()), value.value());
        }
        settings = std::make_unique<LauncherSettings>(defaults, loginItem, notifications);
        QObject::connect(settings.get(),
                         &LauncherSettings::propertyChanged,
                         settings.get(),
                         [this](const QString& name) { told.append(name); });
        for (const QStringView name : {LauncherSettings::previewRequestNotification,
                                       LauncherSettings::hotKeyChanged,
                                       LauncherSettings::updateSettingsChanged,
                                       LauncherSettings::showInDockChanged}) {
            tokens.push_back(notifications.addObserver(
                name, [this](const auto& notification) { told.append(notification.name); }));
        }
    }

    Test::MemoryUserDefaults defaults;
    Test::FakeLoginItem loginItem;
    NotificationCenter notifications;
    QStringList told; ///< Properties and notifications, in order.
    std::unique_ptr<LauncherSettings> settings;
    std::vector<ObserverToken> tokens;
};

SettingRow* rowNamed(const LauncherSettings& settings, const QString& name)
{
    const auto found = std::ranges::find(settings.rows(), name, &SettingRow::name);
    return found == settings.rows().end() ? nullptr : *found;
}

} // namespace

class LauncherSettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyDefaultsGiveTheTableAndWriteNothing()
    {
        const Fixture fixture;
        const LauncherSettings& settings = *fixture.settings;
        QVariantMap values;
        for (const SettingRow* row : settings.rows()) {
            values.insert(row->name(), row->stored());
            QCOMPARE(row->key(), keyOf(row->name()));
        }
        const QVariantMap expected{
            {u"ringDiameter"_s, 320.0},
            {u"ringThickness"_s, 80.0},
            {u"iconSize"_s, 50.0},
            {u"maxVisibleApps"_s, 15LL},
            {u"keepsCenterHintVisible"_s, false},
            {u"showsAppNames"_s, true},
            {u"showsLaunchHints"_s, true},
            {u"launchHintInterval"_s, 25LL},
            {u"searchesAllApps"_s, false},
            {u"fillsRingWithRecentApps"_s, true},
            {u"doubleTapModifiersPinsLauncher"_s, true},
            {u"hasCompletedOnboarding"_s, false},
            {u"showInDock"_s, false},
            {u"ringColorHex"_s, u"#000000"_s},
            {u"ringOpacity"_s, 0.82},
            {u"highlightColorHex"_s, u"#0A84FF"_s},
            {u"highlightOpacity"_s, 0.72},
            {u"pillOpacity"_s, 0.94},
            {u"runningDotColorHex"_s, u"#0A84FF"_s},
            {u"showsRunningDot"_s, true},
            {u"permanentAppPaths"_s, QVariantList()},
            {u"pinnedPermanentAppPaths"_s, QVariantList()},
            {u"autoUpdatesEnabled"_s, true},
            {u"updateCheckFrequency"_s, u"daily"_s},
            {u"hotKeyConfig"_s,
             u"{\"displayName\":\"⌃⌥ (hold)\",\"modifierFlagsRaw\":786432}"_s.toUtf8()},
        };
        QCOMPARE(values, expected);
        QCOMPARE(settings.pendingSettingsSectionID(), std::nullopt);
        QVERIFY(fixture.defaults.written.isEmpty());
    }

    void storedValuesAreRepaired_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QVariant>("loaded");
        const auto row = [](const QString& name, const QVariant& stored, const QVariant& loaded) {
            QTest::addRow(
                "%s from %s %s", qPrintable(name), stored.typeName(), qPrintable(stored.toString()))
                << name << stored << loaded;
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
        row(u"maxVisibleApps"_s, 0LL, 1LL);
        row(u"maxVisibleApps"_s, 99LL, 24LL);
        row(u"maxVisibleApps"_s, beyondInt, 24LL);
        row(u"maxVisibleApps"_s, -beyondInt, 1LL);
        row(u"maxVisibleApps"_s, 7.0, 15LL);
        row(u"launchHintInterval"_s, 30LL, 25LL);
        row(u"launchHintInterval"_s, beyondInt + 5, 25LL);
        row(u"showsAppNames"_s, 0LL, true);
        row(u"ringOpacity"_s, 0.0, 0.2);
        row(u"highlightOpacity"_s, 7.0, 1.0);
        row(u"pillOpacity"_s, std::nan(""), 0.94);
        row(u"ringColorHex"_s, u"no colour"_s, u"no colour"_s);
        row(u"ringColorHex"_s, QByteArray("#FFFFFF"), u"#000000"_s);
        row(u"updateCheckFrequency"_s, u"Weekly"_s, u"daily"_s);
        row(u"permanentAppPaths"_s, QVariantList{u"/a"_s, 1LL}, QVariantList());
        const HotKeyConfig fallback = HotKeyConfig::defaultConfig();
        const HotKeyConfig space = HotKeyConfig::make(0x100000, 49);
        row(u"hotKeyConfig"_s, space.toJson(), space.toJson());
        row(u"hotKeyConfig"_s, QByteArray("{}"), fallback.toJson());
        row(u"hotKeyConfig"_s, QString::fromUtf8(space.toJson()), fallback.toJson());
    }

    void storedValuesAreRepaired()
    {
        QFETCH(const QString, name);
        QFETCH(const QVariant, stored);
        QFETCH(const QVariant, loaded);
        const Fixture fixture({{name, stored}});
        QCOMPARE(rowNamed(*fixture.settings, name)->stored(), loaded);
        QVERIFY(fixture.defaults.written.isEmpty());
    }

    void everyAssignmentWritesThenTells()
    {
        const QString silent
            = u"keepsCenterHintVisible showsLaunchHints launchHintInterval searchesAllApps "
              "fillsRingWithRecentApps doubleTapModifiersPinsLauncher hasCompletedOnboarding"_s;
        QMap<QString, QString> notifications{
            {u"showInDock"_s, keyOf(u"showInDockChanged"_s)},
            {u"autoUpdatesEnabled"_s, keyOf(u"updateSettingsChanged"_s)},
            {u"updateCheckFrequency"_s, keyOf(u"updateSettingsChanged"_s)},
            {u"hotKeyConfig"_s, keyOf(u"hotKeyChanged"_s)},
        };
        for (const QString& name : silent.split(u' ')) {
            notifications[name] = QString();
        }
        Fixture fixture;
        const SettingRow* assigned = nullptr;
        bool wasWritten = false;
        connect(fixture.settings.get(), &LauncherSettings::propertyChanged, this, [&] {
            wasWritten = fixture.defaults.values.value(assigned->key()) == assigned->stored();
        });
        for (SettingRow* row : fixture.settings->rows()) {
            assigned = row;
            QStringList told{
                row->name(),
                notifications.value(row->name(), keyOf(u"previewRequestNotification"_s))};
            told.removeAll(QString());
            // Twice the same value, which is the default one at that.
            QVERIFY(row->restore(row->stored()));
            QVERIFY(row->restore(row->stored()));
            QVERIFY2(std::exchange(wasWritten, false), qPrintable(row->name()));
            QCOMPARE(std::exchange(fixture.defaults.written, {}),
                     (QStringList{row->key(), row->key()}));
            QCOMPARE(std::exchange(fixture.told, {}), told + told);
        }
    }

    void assignmentsAreNotClamped()
    {
        Fixture fixture;
        fixture.settings->ringDiameter.set(9999);
        fixture.settings->launchHintInterval.set(3);
        QCOMPARE(fixture.settings->ringDiameter(), 9999.0);
        QCOMPARE(fixture.defaults.values.value(keyOf(u"ringDiameter"_s)), QVariant(9999.0));
        QCOMPARE(fixture.defaults.values.value(keyOf(u"launchHintInterval"_s)), QVariant(3LL));
        fixture.settings->pendingSettingsSectionID.set(u"about"_s);
        QCOMPARE(fixture.settings->pendingSettingsSectionID(), u"about"_s);
        QCOMPARE(fixture.told.last(), u"pendingSettingsSectionID"_s);
        QCOMPARE(fixture.defaults.values.size(), 2);
    }

    void rowsCanBeWalkedAndRestored()
    {
        Fixture fixture;
        LauncherSettings& settings = *fixture.settings;
        QVERIFY(rowNamed(settings, u"iconSize"_s)->restore(1000.0));
        QCOMPARE(settings.iconSize(), 92.0);
        QVERIFY(rowNamed(settings, u"launchHintInterval"_s)->restore(7LL));
        QCOMPARE(settings.launchHintInterval(), 25);
        QVERIFY(rowNamed(settings, u"updateCheckFrequency"_s)->restore(u"weekly"_s));
        QCOMPARE(settings.updateCheckFrequency(), UpdateCheckFrequency::weekly);
        fixture.told.clear();
        for (SettingRow* row : settings.rows()) {
            const QVariant before = row->stored();
            QVERIFY2(!row->restore(QVariantMap()), qPrintable(row->name()));
            QVERIFY2(!row->restore(QVariant()), qPrintable(row->name()));
            QCOMPARE(row->stored(), before);
        }
        QVERIFY(fixture.told.isEmpty());
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
        const auto [permanent, listed, formerSlots, pinned, effective, written]
            = fetch<QStringList, QVariant, QVariantMap, QStringList, QStringList, bool>();
        QVariantMap stored{{u"permanentAppPaths"_s, list(permanent)}};
        if (listed.isValid()) {
            stored.insert(u"pinnedPermanentAppPaths"_s, listed);
        }
        if (!formerSlots.isEmpty()) {
            stored.insert(u"permanentAppSlots"_s, formerSlots);
        }
        const Fixture fixture(stored);
        QCOMPARE(fixture.settings->pinnedPermanentAppPaths(), pinned);
        QCOMPARE(fixture.settings->effectivePinnedAppPaths(), effective);
        const QString key = keyOf(u"pinnedPermanentAppPaths"_s);
        QCOMPARE(fixture.defaults.written, written ? QStringList{key} : QStringList());
        if (written) {
            QCOMPARE(fixture.defaults.stringArrayValue(key), pinned);
        }
    }

    void permanentAppsAreAddedAndRemoved()
    {
        const QString permanent = u"permanentAppPaths"_s;
        const QString pinned = u"pinnedPermanentAppPaths"_s;
        const QString preview = LauncherSettings::previewRequestNotification.toString();
        Fixture fixture({{pinned, list({u"X"_s})}});
        LauncherSettings& settings = *fixture.settings;

        settings.addPermanentApp(u"A"_s);
        QCOMPARE(settings.permanentAppPaths(), QStringList{u"A"_s});
        QCOMPARE(settings.pinnedPermanentAppPaths(), (QStringList{u"X"_s, u"A"_s}));
        QCOMPARE(std::exchange(fixture.told, {}),
                 (QStringList{permanent, preview, pinned, preview}));

        settings.addPermanentApp(u"X"_s);
        QCOMPARE(std::exchange(fixture.told, {}), (QStringList{permanent, preview}));
        QCOMPARE(settings.effectivePinnedAppPaths(), (QStringList{u"X"_s, u"A"_s}));

        settings.pinnedPermanentAppPaths.set({u"X"_s});
        fixture.told.clear();
        settings.addPermanentApp(u"A"_s);
        QVERIFY(fixture.told.isEmpty());
        QCOMPARE(settings.pinnedPermanentAppPaths(), QStringList{u"X"_s});

        settings.removePermanentApps({u"A"_s, u"unknown"_s});
        QCOMPARE(std::exchange(fixture.told, {}), (QStringList{permanent, preview}));
        QCOMPARE(settings.permanentAppPaths(), QStringList{u"X"_s});
        settings.removePermanentApps({u"unknown"_s});
        QVERIFY(fixture.told.isEmpty());
    }

    void layoutResetAndThemesAssignTheirRowsInOrder()
    {
        Fixture fixture;
        LauncherSettings& settings = *fixture.settings;
        settings.ringDiameter.set(500);
        settings.maxVisibleApps.set(3);
        settings.runningDotColorHex.set(u"#123456"_s);
        settings.applyTheme(ThemePreset::presets().last());
        QCOMPARE(settings.pillOpacity(), 0.90);
        fixture.told.clear();
        fixture.defaults.written.clear();

        settings.resetRingLayout();
        QCOMPARE(settings.ringDiameter(), 320.0);
        QCOMPARE(settings.maxVisibleApps(), 15);
        QCOMPARE(settings.ringColorHex(), u"#202124"_s);
        settings.applyTheme(ThemePreset::presets().first());
        const QStringList expected{u"ringDiameter"_s,
                                   u"ringThickness"_s,
                                   u"iconSize"_s,
                                   u"maxVisibleApps"_s,
                                   u"ringColorHex"_s,
                                   u"ringOpacity"_s,
                                   u"highlightColorHex"_s,
                                   u"highlightOpacity"_s,
                                   u"pillOpacity"_s};
        QStringList keys;
        for (const QString& name : expected) {
            keys.append(keyOf(name));
        }
        QCOMPARE(fixture.defaults.written, keys);
        QCOMPARE(fixture.told.count(LauncherSettings::previewRequestNotification.toString()), 9);
        QCOMPARE(settings.runningDotColorHex(), u"#123456"_s);
        for (const SettingRow* row : settings.rows()) {
            if (row->name() != u"runningDotColorHex"_s) {
                QCOMPARE(row->stored(), rowNamed(*Fixture().settings, row->name())->stored());
            }
        }
    }

    void launchHintsFollowTheSettings()
    {
        Fixture fixture;
        LauncherSettings& settings = *fixture.settings;
        settings.showsLaunchHints.set(false);
        QVERIFY(!settings.launchHintForThisSummon());
        settings.showsLaunchHints.set(true);
        settings.keepsCenterHintVisible.set(true);
        QVERIFY(!settings.launchHintForThisSummon());
        settings.keepsCenterHintVisible.set(false);
        settings.launchHintInterval.set(5);
        QVERIFY(settings.launchHintForThisSummon()->contains(u"every 5 launches"_s));
    }

    void launchAtLoginShowsTheRealStatus()
    {
        using enum LoginItem::Status;
        for (const auto status : {notRegistered, enabled, requiresApproval, notFound}) {
            const bool launches = status == enabled || status == requiresApproval;
            const std::optional<QString> message = status == requiresApproval
                ? std::optional(
                    u"Enable Tavik Launcher in System Settings > Login Items to finish setup."_s)
                : std::nullopt;
            Fixture fixture;
            fixture.loginItem.state = status;
            QVERIFY(!fixture.settings->launchesAtLogin());
            fixture.settings->refreshLaunchAtLoginStatus();
            QCOMPARE(fixture.settings->launchesAtLogin(), launches);
            QCOMPARE(fixture.settings->launchAtLoginMessage(), message);
            const LauncherSettings fresh(
                fixture.defaults, fixture.loginItem, fixture.notifications);
            QCOMPARE(fresh.launchesAtLogin(), launches);
            QCOMPARE(fresh.launchAtLoginMessage(), message);
            QVERIFY(fixture.defaults.written.isEmpty());
        }
    }

    void failedLoginItemIsReported()
    {
        Fixture fixture;
        LauncherSettings& settings = *fixture.settings;
        settings.setLaunchesAtLogin(true);
        QVERIFY(settings.launchesAtLogin());
        QCOMPARE(settings.launchAtLoginMessage(), std::nullopt);

        fixture.loginItem.succeeds = false;
        fixture.loginItem.state = LoginItem::Status::requiresApproval;
        settings.setLaunchesAtLogin(false);
        QVERIFY(settings.launchesAtLogin());
        QCOMPARE(settings.launchAtLoginMessage(),
                 u"Launch at login could not be changed from this build."_s);
        QCOMPARE(fixture.loginItem.calls, (QStringList{u"register"_s, u"unregister"_s}));
        QCOMPARE(fixture.told.last(), u"launchAtLoginMessage"_s);
    }
};

QTEST_APPLESS_MAIN(LauncherSettingsTest)

#include "LauncherSettingsTest.moc"
