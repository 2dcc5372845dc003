// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppLauncher.h>
#include <TavikLauncher/Catalog/RecentAppsStore.h>
#include <TavikLauncherCore/IndexedApp.h>

#include <QRegularExpression>
#include <QTest>

#include <Support/FakeWorkspace.h>
#include <Support/MemoryUserDefaults.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class AppLauncherTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }
    void theSystemsCopyIsOpenedAndRecorded_data();
    void theSystemsCopyIsOpenedAndRecorded();
    void aFailureIsRecordedAndLogged();
};

void AppLauncherTest::theSystemsCopyIsOpenedAndRecorded_data()
{
    QTest::addColumn<std::optional<QString>>("identifier");
    QTest::addColumn<QString>("opened");
    using Identifier = std::optional<QString>;
    QTest::newRow("known") << Identifier(u"org.example.known"_s) << u"/sys/50% #1?.app"_s;
    QTest::newRow("unknown") << Identifier(u"org.example.unknown"_s) << u"/own/X.app"_s;
    QTest::newRow("none") << Identifier() << u"/own/X.app"_s;
}

void AppLauncherTest::theSystemsCopyIsOpenedAndRecorded()
{
    QFETCH(std::optional<QString>, identifier);
    QFETCH(QString, opened);
    FakeWorkspace workspace;
    workspace.paths[u"org.example.known"_s] = u"/sys/50% #1?.app"_s;
    MemoryUserDefaults defaults;
    RecentAppsStore recents(defaults);
    AppLauncher(workspace, recents).launch({u"X"_s, identifier, u"/own/X.app"_s, {}});
    QCOMPARE(workspace.opened, {opened});
    QCOMPARE(recents.recentPaths(), {opened});
}

void AppLauncherTest::aFailureIsRecordedAndLogged()
{
    FakeWorkspace workspace;
    workspace.openError = u"No such file"_s;
    MemoryUserDefaults defaults;
    RecentAppsStore recents(defaults);
    QTest::ignoreMessage(QtWarningMsg, "Tavik Launcher failed to open /own/X.app: No such file");
    AppLauncher(workspace, recents).launch({u"X"_s, std::nullopt, u"/own/X.app"_s, {}});
    QCOMPARE(recents.recentPaths(), {u"/own/X.app"_s});
}

QTEST_GUILESS_MAIN(AppLauncherTest)
#include "AppLauncherTest.moc"
