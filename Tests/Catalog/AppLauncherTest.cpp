// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppLauncher.h>
#include <TavikLauncher/Catalog/RecentAppsStore.h>
#include <TavikLauncherCore/IndexedApp.h>

#include <QRegularExpression>
#include <QTest>

#include <Support/FakeWorkspace.h>
#include <Support/MemoryUserDefaults.h>
#include <Support/Table.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

const QString recentsKey = u"RecentAppsPaths"_s;

/// "/0" to "/<count - 1>".
QStringList numbered(int count)
{
    QStringList paths;
    for (int number = 0; number < count; ++number) {
        paths.append(u"/%1"_s.arg(number));
    }
    return paths;
}

} // namespace

/// Launching, and the list of what was launched.
class AppLauncherTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

    void theSystemsCopyIsOpenedAndRecorded()
    {
        const QString known = u"/sys/50% #1?.app"_s;
        const QString own = u"/own/X.app"_s;
        const auto launch = [&known, &own](const std::optional<QString>& identifier) {
            FakeWorkspace workspace;
            workspace.paths[u"org.example.known"_s] = known;
            MemoryUserDefaults defaults;
            RecentAppsStore recents(defaults);
            AppLauncher(workspace, recents).launch({u"X"_s, identifier, own, {}});
            return workspace.opened + recents.recentPaths();
        };
        QCOMPARE(launch(u"org.example.known"_s), QStringList({known, known}));
        QCOMPARE(launch(u"org.example.unknown"_s), QStringList({own, own}));
        QCOMPARE(launch({}), QStringList({own, own}));
    }

    void aFailureIsRecordedAndLogged()
    {
        FakeWorkspace workspace;
        workspace.openError = u"No such file"_s;
        MemoryUserDefaults defaults;
        RecentAppsStore recents(defaults);
        QTest::ignoreMessage(QtWarningMsg,
                             "Tavik Launcher failed to open /own/X.app: No such file");
        AppLauncher(workspace, recents).launch({u"X"_s, std::nullopt, u"/own/X.app"_s, {}});
        QCOMPARE(recents.recentPaths(), {u"/own/X.app"_s});
    }

    void theLatestLaunchComesFirst_data()
    {
        const Table<QStringList, QString, QStringList> row;
        row("again", {u"/a"_s, u"/b"_s}, u"/a"_s, {u"/a"_s, u"/b"_s});
        row("fifth", numbered(6), u"/4"_s, {u"/4"_s, u"/0"_s, u"/1"_s, u"/2"_s, u"/3"_s, u"/5"_s});
        row("too many stored", numbered(20), u"/19"_s, QStringList{u"/19"_s} + numbered(11));
        row("case matters", {u"/A"_s}, u"/a"_s, {u"/a"_s, u"/A"_s});
    }

    void theLatestLaunchComesFirst()
    {
        const auto [stored, launched, expected] = fetch<QStringList, QString, QStringList>();
        MemoryUserDefaults defaults;
        defaults.values[recentsKey] = QVariantList(stored.cbegin(), stored.cend());
        RecentAppsStore store(defaults);
        QCOMPARE(store.recentPaths(), stored);
        store.recordLaunch(launched);
        QCOMPARE(store.recentPaths(), expected);
        QCOMPARE(defaults.written, stored == expected ? QStringList() : QStringList{recentsKey});
    }

    void valuesOfAnotherTypeReadAsNothingAndAreReplaced()
    {
        for (const QVariant& stored : {QVariant(),
                                       QVariant(3LL),
                                       QVariant(QVariantMap{{u"a"_s, u"/a"_s}}),
                                       QVariant(QVariantList{u"/a"_s, 1LL})}) {
            MemoryUserDefaults defaults;
            defaults.values[recentsKey] = stored;
            RecentAppsStore store(defaults);
            QCOMPARE(store.recentPaths(), {});
            store.recordLaunch(u"/new"_s);
            QCOMPARE(defaults.values[recentsKey], QVariant(QVariantList{u"/new"_s}));
        }
    }
};

QTEST_GUILESS_MAIN(AppLauncherTest)
#include "AppLauncherTest.moc"
