// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/AppDelegate.h>

#include <QAbstractButton>
#include <QApplication>
#include <QPointer>
#include <QTest>

#include <Support/RecordingPlatform.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 chord = ModifierFlags::control | ModifierFlags::option;
const QString permissionTitle = u"Allow Accessibility Access"_s;
const QString tourTitle = u"Welcome to Tavik Launcher"_s;
const QString settingsTitle = u"Tavik Launcher Settings"_s;
const QString reindexTitle = u"Reindex Apps"_s;
const QString ringTitle = u"Tavik Launcher"_s;

/// The window of ours that is shown under that title, or null.
QWidget* shown(const QString& title)
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowTitle() == title) {
            return window;
        }
    }
    return nullptr;
}

/// Lets windows that were forgotten go.
void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

struct Application : RecordingPlatform
{
    Application()
    {
        QGuiApplication::setWindowIcon({});
        store(u"hasCompletedOnboarding"_s, true);
        store(u"showsLaunchHints"_s, false);
    }
    ~Application() { settle(); }

    void store(const QString& name, const QVariant& value)
    {
        userDefaults.values.insert(u"LauncherSettings."_s + name, value);
    }
    [[nodiscard]] QVariant stored(const QString& name) const
    {
        return userDefaults.values.value(u"LauncherSettings."_s + name);
    }
    void useKey()
    {
        store(u"hotKeyConfig"_s,
              QByteArray(R"({"modifierFlagsRaw":786432,"keyCode":49,"displayName":"⌃⌥Space"})"));
    }
    void launch()
    {
        delegate.emplace(platform, notifications);
        record.events.clear();
        delegate->applicationDidFinishLaunching();
    }
    void start()
    {
        launch();
        mainQueue.advance(0.01);
    }
    void perform(AppAction action) { delegate->perform({.action = action}); }
    void press(quint64 flags, double time)
    {
        keyEvents.tap({.modifierFlags = flags, .time = time});
        mainQueue.advance(0.02);
    }
    void tapChord(double time)
    {
        press(chord, time);
        press(0, time + 0.1);
    }

    std::optional<AppDelegate> delegate;
};

} // namespace

class AppDelegateTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startUpFollowsItsOrder_data()
    {
        QTest::addColumn<bool>("hasKey");
        QTest::addColumn<QString>("shortcut");
        QTest::newRow("key") << true << u"take the key"_s;
        QTest::newRow("chord without permission") << false << u"ask for the permission"_s;
    }
    void startUpFollowsItsOrder()
    {
        QFETCH(bool, hasKey);
        QFETCH(QString, shortcut);
        Application application;
        application.store(u"hasCompletedOnboarding"_s, false);
        application.permission.trusted = hasKey;
        if (hasKey) {
            application.useKey();
        }
        application.launch();
        const QStringList expected{u"observe showInDockChanged"_s,
                                   u"icon"_s,
                                   u"start updater"_s,
                                   u"check by itself"_s,
                                   u"every 86400 s"_s,
                                   u"watch folders"_s,
                                   u"work"_s,
                                   u"ask for a tray"_s,
                                   u"observe previewRequestNotification"_s,
                                   u"observe hotKeyChanged"_s,
                                   u"observe updateSettingsChanged"_s,
                                   u"observe checkForUpdatesNow"_s,
                                   u"observe willSleep"_s,
                                   u"observe didActivateApplication"_s,
                                   shortcut,
                                   u"bring a window to the front"_s};
        QCOMPARE(application.record.events, expected);
    }

    void theFirstRunShowsOneWindow_data()
    {
        QTest::addColumn<bool>("hasKey");
        QTest::addColumn<bool>("isTrusted");
        QTest::addColumn<bool>("hasCompleted");
        QTest::addColumn<QString>("expected");
        QTest::newRow("chord, new user") << false << true << false << tourTitle;
        QTest::newRow("chord, known user") << false << true << true << QString();
        QTest::newRow("chord without permission") << false << false << true << permissionTitle;
        QTest::newRow("chord without permission, new user")
            << false << false << false << permissionTitle;
        QTest::newRow("key without permission, new user") << true << false << false << tourTitle;
        QTest::newRow("key without permission") << true << false << true << QString();
    }
    void theFirstRunShowsOneWindow()
    {
        QFETCH(bool, hasKey);
        QFETCH(QString, expected);
        Application application;
        if (hasKey) {
            application.useKey();
        }
        QFETCH(bool, isTrusted);
        QFETCH(bool, hasCompleted);
        application.permission.trusted = isTrusted;
        application.store(u"hasCompletedOnboarding"_s, hasCompleted);
        application.start();
        for (const QString& title : {permissionTitle, tourTitle, settingsTitle, reindexTitle}) {
            QCOMPARE(shown(title) != nullptr, title == expected);
        }
        QCOMPARE(application.stored(u"hasCompletedOnboarding"_s).toBool(), hasCompleted);
    }

    void thePermissionBringsTheShortcutAndThenTheTour()
    {
        Application application;
        application.store(u"hasCompletedOnboarding"_s, false);
        application.permission.trusted = false;
        application.keyEvents.hasTap = false;
        application.start();
        QVERIFY(!application.keyEvents.tap);
        application.permission.trusted = true;
        application.keyEvents.hasTap = true;
        application.mainQueue.advance(1.1);
        QVERIFY(application.keyEvents.tap);
        QVERIFY(shown(permissionTitle)); // Says that it works; the user closes it.
        QVERIFY(shown(tourTitle));

        shown(tourTitle)->close();
        application.mainQueue.advance(5);
        QVERIFY2(!shown(tourTitle), "the tour follows once");
        shown(permissionTitle)->close();
        settle();
        QVERIFY(!shown(permissionTitle));
    }

    void theTourCountsAsTakenHoweverItIsClosed()
    {
        Application application;
        application.store(u"hasCompletedOnboarding"_s, false);
        application.start();
        QVERIFY(!application.stored(u"hasCompletedOnboarding"_s).toBool());
        shown(tourTitle)->close();
        QVERIFY(application.stored(u"hasCompletedOnboarding"_s).toBool());

        application.perform(AppAction::tour);
        QVERIFY2(!application.stored(u"hasCompletedOnboarding"_s).toBool(), "offered anew");
        for (auto* button : shown(tourTitle)->findChildren<QAbstractButton*>()) {
            if (button->text() == u"Start Using Tavik") {
                button->click();
                break;
            }
        }
        QVERIFY(application.stored(u"hasCompletedOnboarding"_s).toBool());
        QVERIFY(!shown(tourTitle));
    }

    void windowsAreReusedWhileTheyLiveAndOnlyTheSettingsOutliveTheirClosing_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<AppAction>("action");
        QTest::addColumn<bool>("isKept");
        QTest::newRow("settings") << settingsTitle << AppAction::settings << true;
        QTest::newRow("re-index") << reindexTitle << AppAction::reindex << false;
        QTest::newRow("tour") << tourTitle << AppAction::tour << false;
    }
    void windowsAreReusedWhileTheyLiveAndOnlyTheSettingsOutliveTheirClosing()
    {
        QFETCH(QString, title);
        QFETCH(AppAction, action);
        QFETCH(bool, isKept);
        Application application;
        application.start();
        application.perform(action);
        const QPointer<QWidget> first = shown(title);
        QVERIFY(first);
        application.perform(action);
        settle();
        QCOMPARE(shown(title), first.data());
        first->close();
        settle();
        QCOMPARE(!first.isNull(), isKept);
        application.perform(action);
        QVERIFY(shown(title));
        QCOMPARE(shown(title) == first.data(), isKept);
    }

    void theSettingsHideTheRingWhenTheyComeAndWhenTheyGo()
    {
        Application application;
        application.start();
        application.perform(AppAction::showLauncher);
        QVERIFY(shown(ringTitle));
        application.perform(AppAction::settings);
        QVERIFY(!shown(ringTitle));
        application.notifications.post(LauncherSettings::previewRequestNotification);
        QVERIFY(shown(ringTitle));
        shown(settingsTitle)->close();
        QVERIFY(!shown(ringTitle));
    }

    void aPreviewIsShownOnlyBesideTheSettings()
    {
        Application application;
        application.start();
        const auto requestPreview = [&application] {
            application.notifications.post(LauncherSettings::previewRequestNotification);
        };
        requestPreview();
        QVERIFY(!shown(ringTitle));
        application.perform(AppAction::settings);
        application.windowServer.calls.clear();
        requestPreview();
        QVERIFY(shown(ringTitle));
        QVERIFY2(!application.windowServer.calls.contains(u"take focus"_s), "it takes no keyboard");
        shown(settingsTitle)->close();
        requestPreview();
        QVERIFY2(!shown(ringTitle), "the settings are there, but hidden");
    }

    void theDockIsSwitchedWithTheSettingsStayingInFront()
    {
        Application application;
        application.start();
        application.perform(AppAction::settings);
        application.perform(AppAction::reindex);
        QAbstractButton* dock = nullptr;
        for (auto* button : shown(settingsTitle)->findChildren<QAbstractButton*>()) {
            dock = button->accessibleName() == u"Show in the Dock" ? button : dock;
        }
        QVERIFY(dock);
        application.windowServer.calls.clear();
        dock->click();
        QVERIFY(application.stored(u"showInDock"_s).toBool());
        QCOMPARE(application.windowServer.calls.count(u"in taskbar"_s), 2);
        QVERIFY(!application.windowServer.calls.contains(u"take focus"_s));
        application.mainQueue.drain();
        QCOMPARE(application.windowServer.calls.last(), u"take focus"_s);
        QTRY_VERIFY(shown(settingsTitle)->isActiveWindow());

        shown(settingsTitle)->close();
        application.windowServer.calls.clear();
        application.notifications.post(LauncherSettings::showInDockChanged);
        application.mainQueue.drain();
        QVERIFY2(!application.windowServer.calls.contains(u"take focus"_s), "nothing to bring up");
    }

    void onlyWhatUsersLaunchIsRecorded_data()
    {
        using Policy = RunningApplication::ActivationPolicy;
        QTest::addColumn<std::optional<RunningApplication>>("frontmost");
        QTest::addColumn<bool>("isRecorded");
        const auto row = [](const char* name,
                            const std::optional<RunningApplication>& frontmost,
                            bool isRecorded) {
            QTest::newRow(name) << frontmost << isRecorded;
        };
        const RunningApplication other{.bundleIdentifier = u"other"_s,
                                       .bundlePath = u"/apps/other.desktop"_s};
        RunningApplication changed = other;
        row("an application", other, true);
        row("nobody", std::nullopt, false);
        changed.activationPolicy = Policy::accessory;
        row("an agent", changed, false);
        changed = other;
        changed.bundleIdentifier = u"org.tavik.Launcher"_s;
        row("ourselves", changed, false);
        changed.bundleIdentifier.reset();
        row("one without an identifier", changed, true);
        changed = other;
        changed.bundlePath.reset();
        row("one without a path", changed, false);
    }
    void onlyWhatUsersLaunchIsRecorded()
    {
        QFETCH(const std::optional<RunningApplication>, frontmost);
        Application application;
        application.start();
        application.workspace.frontmost = frontmost;
        application.workspace.center.post(Workspace::didActivateApplication);
        const QStringList recents
            = application.userDefaults.values.value(u"RecentAppsPaths"_s).toStringList();
        QFETCH(bool, isRecorded);
        QCOMPARE(recents, isRecorded ? QStringList{u"/apps/other.desktop"_s} : QStringList());
    }

    void noTapBeforeSleepPairsWithOneAfterIt_data()
    {
        QTest::addColumn<bool>("sleeps");
        QTest::newRow("awake: the second tap pins") << false;
        QTest::newRow("asleep in between") << true;
    }
    void noTapBeforeSleepPairsWithOneAfterIt()
    {
        QFETCH(bool, sleeps);
        Application application;
        application.start();
        application.tapChord(10);
        QVERIFY(!shown(ringTitle));
        if (sleeps) {
            application.workspace.center.post(Workspace::willSleep);
        }
        application.tapChord(10.3);
        QCOMPARE(shown(ringTitle) != nullptr, !sleeps);
    }

    void aRequestIsCarriedOutInTheNameOfItsActivation()
    {
        Application application;
        application.start();
        application.windowServer.calls.clear();
        application.delegate->perform(
            {.action = AppAction::reindex, .activation = {.startupId = "id-7"}});
        QCOMPARE(application.windowServer.calls.first(), u"begin id-7"_s);
        QVERIFY(application.windowServer.calls.contains(u"take focus"_s));
        QCOMPARE(application.windowServer.calls.last(), u"end"_s);
    }

    void theSettingsOfferThemselvesWhereNothingElseShowsTheProgram_data()
    {
        QTest::addColumn<StatusTray::Host>("tray");
        QTest::addColumn<bool>("isFirst");
        QTest::addColumn<bool>("isNewUser");
        QTest::addColumn<bool>("asksForRing");
        QTest::addColumn<bool>("isOffered");
        using Host = StatusTray::Host;
        QTest::newRow("no tray") << Host::none << true << false << false << true;
        QTest::newRow("not again in this login") << Host::none << false << false << false << false;
        QTest::newRow("a tray") << Host::embedding << true << false << false << false;
        QTest::newRow("the tour is open") << Host::none << true << true << false << false;
        QTest::newRow("the user knows the way") << Host::none << true << false << true << false;
    }
    void theSettingsOfferThemselvesWhereNothingElseShowsTheProgram()
    {
        QFETCH(StatusTray::Host, tray);
        QFETCH(bool, isFirst);
        QFETCH(bool, isNewUser);
        QFETCH(bool, asksForRing);
        Application application;
        application.store(u"hasCompletedOnboarding"_s, !isNewUser);
        application.start();
        application.delegate->startedByUser({}, [isFirst] { return isFirst; });
        application.tray.present = tray; // Known a moment after the start.
        if (asksForRing) {
            application.perform(AppAction::toggleLauncher);
            application.perform(AppAction::toggleLauncher);
        }
        application.mainQueue.advance(2.9);
        QVERIFY(!shown(settingsTitle));
        application.mainQueue.advance(0.2);
        QFETCH(bool, isOffered);
        QCOMPARE(shown(settingsTitle) != nullptr, isOffered);
    }

    void commandCommaOpensTheSettingsFromEveryWindow_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<AppAction>("action");
        QTest::newRow("ring") << ringTitle << AppAction::showLauncher;
        QTest::newRow("re-index") << reindexTitle << AppAction::reindex;
        QTest::newRow("tour") << tourTitle << AppAction::tour;
        QTest::newRow("settings") << settingsTitle << AppAction::settings;
    }
    void commandCommaOpensTheSettingsFromEveryWindow()
    {
        QFETCH(QString, title);
        QFETCH(AppAction, action);
        Application application;
        application.start();
        application.perform(action);
        QWidget* window = shown(title);
        QVERIFY(QTest::qWaitForWindowActive(window));
        QTest::keyClick(window, Qt::Key_Comma, Qt::ControlModifier);
        QVERIFY(shown(settingsTitle));
    }
};

Q_DECLARE_METATYPE(Tavik::AppAction)
Q_DECLARE_METATYPE(Tavik::StatusTray::Host)
Q_DECLARE_METATYPE(std::optional<Tavik::RunningApplication>)

QTEST_MAIN(AppDelegateTest)
#include "AppDelegateTest.moc"
