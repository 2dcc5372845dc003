// SPDX-License-Identifier: MIT
#include "FakeUpdaterApplication.h"
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Shell/SoftwareUpdates.h>
#include <TavikLauncher/Shell/UpdaterApplication.h>
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QTest>

#include <Support/FakeDesktop.h>
#include <Support/FakeFileManager.h>
#include <Support/FakeLoginItem.h>
#include <Support/FakeUpdater.h>
#include <Support/FakeWindowServer.h>
#include <Support/MemoryUserDefaults.h>
#include <Support/VirtualMainQueue.h>
#include <memory>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(Tavik::UpdateCheckFrequency)

namespace {

UpdateItem item()
{
    UpdateItem item;
    item.versionString = u"210"_s;
    item.displayVersionString = u"2.1"_s;
    return item;
}

struct SoftwareUpdatesFixture
{
    SoftwareUpdatesFixture() { start(); }
    void start()
    {
        updates = std::make_unique<SoftwareUpdates>(
            SoftwareUpdates::Dependencies{.updater = updater,
                                          .settings = settings,
                                          .mainQueue = mainQueue,
                                          .windowServer = windowServer,
                                          .appearance = appearance,
                                          .fileManager = fileManager,
                                          .application = application,
                                          .version = u"2.0"_s},
            SoftwareUpdates::Actions{
                .showUpdateReminder
                = [this](const QString& version) { reminders << u"remind of "_s + version; },
                .clearUpdateReminder = [this] { reminders << u"clear"_s; },
                .windowMade = [](AuxiliaryWindow&) {},
                .isInImmediateFocus =
                    [this] {
                        return isFocused;
                    }});
    }
    void find(bool userInitiated)
    {
        updater.driver->showUpdateFound(item(), {userInitiated}, [this](UpdateChoice) {
            ++replies;
            updater.driver->dismissUpdateInstallation();
        });
    }
    [[nodiscard]] static QWidget* window()
    {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible() && qobject_cast<UpdateWindow*>(widget)) {
                return widget;
            }
        }
        return nullptr;
    }

    VirtualMainQueue mainQueue;
    FakeWindowServer windowServer;
    FakeAppearance appearance;
    FakeFileManager fileManager;
    FakeUpdater updater;
    FakeUpdaterApplication application;
    MemoryUserDefaults defaults;
    FakeLoginItem loginItem;
    NotificationCenter notifications;
    LauncherSettings settings{defaults, loginItem, notifications};
    QStringList reminders;
    bool isFocused = false;
    int replies = 0;
    std::unique_ptr<SoftwareUpdates> updates;
};

} // namespace

class SoftwareUpdatesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theUpdaterFollowsTheSettings_data()
    {
        QTest::addColumn<bool>("automatic");
        QTest::addColumn<UpdateCheckFrequency>("frequency");
        QTest::addColumn<QStringList>("calls");
        using enum UpdateCheckFrequency;
        QTest::newRow("daily") << true << daily
                               << QStringList{u"check by itself"_s, u"every 86400 s"_s};
        QTest::newRow("weekly") << true << weekly
                                << QStringList{u"check by itself"_s, u"every 604800 s"_s};
        QTest::newRow("monthly, by hand")
            << false << monthly << QStringList{u"check when asked"_s, u"every 2592000 s"_s};
    }
    void theUpdaterFollowsTheSettings()
    {
        QFETCH(bool, automatic);
        QFETCH(UpdateCheckFrequency, frequency);
        SoftwareUpdatesFixture fixture;
        QCOMPARE(fixture.updater.calls, QStringList{u"start updater"_s});
        fixture.settings.autoUpdatesEnabled.set(automatic);
        fixture.settings.updateCheckFrequency.set(frequency);
        fixture.updater.calls.clear();
        fixture.updates->applyUpdateSettings();
        QTEST(fixture.updater.calls, "calls");
    }

    void checksAreForwardedAndTheEndStopsTheUpdater()
    {
        SoftwareUpdatesFixture fixture;
        fixture.updates->checkForUpdates();
        fixture.updates.reset();
        QCOMPARE(fixture.updater.calls,
                 (QStringList{u"start updater"_s, u"check"_s, u"stop updater"_s}));
    }

    void aScheduledUpdateInTheBackgroundIsOnlyAReminder()
    {
        SoftwareUpdatesFixture fixture;
        fixture.find(false);
        QCOMPARE(fixture.reminders, QStringList{u"remind of 2.1"_s});
        QVERIFY(!fixture.window());
        QCOMPARE(fixture.application.activations, 0);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);

        // The menu item that tells of it is chosen.
        fixture.updater.driver->showUpdateInFocus();
        QCOMPARE(fixture.reminders, (QStringList{u"remind of 2.1"_s, u"clear"_s}));
        QVERIFY(fixture.window());
        QCOMPARE(fixture.application.activations, 1);
    }

    void aScheduledUpdateIsShownWhereTheUserIsAnyway()
    {
        SoftwareUpdatesFixture fixture;
        fixture.isFocused = true;
        fixture.find(false);
        QVERIFY(fixture.window());
        QVERIFY(!fixture.reminders.contains(u"remind of 2.1"_s));
        QCOMPARE(fixture.application.activations, 0);
    }

    void theEndOfASessionClearsTheReminder()
    {
        SoftwareUpdatesFixture fixture;
        fixture.find(false);
        fixture.updater.driver->dismissUpdateInstallation();
        QCOMPARE(fixture.reminders, (QStringList{u"remind of 2.1"_s, u"clear"_s}));
    }

    void whatTheUserAskedForIsBroughtToTheFront()
    {
        SoftwareUpdatesFixture fixture;
        fixture.find(true);
        QVERIFY(fixture.window());
        fixture.application.windows = {FakeUpdaterApplication::window(3, {0, 0, 100, 70})};
        fixture.mainQueue.advance(0.1);
        QCOMPARE(fixture.application.calls.value(0), u"move 3 to 1150,250"_s);

        fixture.application.calls.clear();
        fixture.application.active = true;
        fixture.updater.driver->showUpdaterError(u"No answer."_s, nullptr);
        QCOMPARE(fixture.application.calls, QStringList{u"key front"_s});
    }

    void aBuildThatIsNotUpdatedSaysSo()
    {
        for (const bool isUpdated : {false, true}) {
            SoftwareUpdatesFixture fixture;
            fixture.updates.reset();
            if (!isUpdated) {
                fixture.updater.whyNot = u"It has no feed."_s;
            }
            fixture.start();
            fixture.updater.driver->showUpdateNotFound(u"It has no feed."_s, nullptr);
            const QLabel* title = fixture.window()->findChildren<QLabel*>().constFirst();
            QCOMPARE(title->text() == u"This build is not updated by itself."_s, !isUpdated);
        }
    }

    void theApplicationListsItsUpdateWindows()
    {
        SoftwareUpdatesFixture fixture;
        UpdaterApplication application({.windowServer = fixture.windowServer, .activeScreen = {}});
        QCOMPARE(application.updaterWindows().size(), 0);
        QWidget other;
        other.show();
        fixture.updater.driver->showUpdateNotFound(u"Nothing."_s, nullptr);
        const QList<UpdateActivation::Window> windows = application.updaterWindows();
        QCOMPARE(windows.size(), 1);
        const UpdateActivation::Window& window = windows.constFirst();
        QCOMPARE(window.className, u"Tavik::UpdateWindow"_s);
        QCOMPARE(window.controllerDescription, std::nullopt);
        QVERIFY(window.isVisible && window.canBecomeKey);

        // The lower left corner, from the screen's lower edge.
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        application.setFrameOrigin(window.id, {30, 40});
        const QRect frame = fixture.window()->frameGeometry();
        QCOMPARE(frame.x(), 30);
        QCOMPARE(screen.bottom() - frame.bottom(), 40);
        QCOMPARE(application.updaterWindows().constFirst().frame.topLeft(), QPointF(30, 40));
        fixture.window()->hide();
        QVERIFY(!application.updaterWindows().constFirst().isVisible);
    }
};

QTEST_MAIN(SoftwareUpdatesTest)
#include "SoftwareUpdatesTest.moc"
