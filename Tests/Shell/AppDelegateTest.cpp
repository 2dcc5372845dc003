// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/SegmentedChoice.h>
#include <TavikLauncher/Shell/AppDelegate.h>
#include <TavikLauncher/Shell/TavikLauncherApp.h>

#include <QLabel>
#include <QLayout>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <Support/Hands.h>
#include <Support/RecordingPlatform.h>
#include <Support/Table.h>
#include <algorithm>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

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
        workQueue.runAll(); // The cache file; the first walk waits for it.
        record.events.clear();
        delegate->applicationDidFinishLaunching();
    }
    void start()
    {
        launch();
        mainQueue.advance(0.01);
    }
    void perform(AppAction action) { delegate->perform({.action = action}); }

    std::optional<AppDelegate> delegate;
};

struct Started : Application
{
    Started() { start(); }
};

} // namespace

class AppDelegateTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startUpFollowsItsOrder()
    {
        for (const QString& shortcut : {u"take the key"_s, u"ask for the permission"_s}) {
            Application application;
            application.store(u"hasCompletedOnboarding"_s, false);
            application.permission.trusted = shortcut == u"take the key";
            if (application.permission.trusted) {
                application.useKey();
            }
            application.launch();
            QCOMPARE(application.record.events.join(u", "),
                     u"observe showInDockChanged, icon, start updater, check by itself, "
                     u"every 86400 s, watch folders, work, ask for a tray, "
                     u"observe previewRequestNotification, observe hotKeyChanged, "
                     u"observe updateSettingsChanged, observe checkForUpdatesNow, "
                     u"observe willSleep, observe didActivateApplication, "_s
                         + shortcut + u", bring a window to the front"_s);
        }
    }

    void theFirstRunShowsOneWindow_data()
    {
        const Table<bool, bool, bool, QString> row;
        row("chord, new user", false, true, false, tourTitle);
        row("chord, known user", false, true, true, QString());
        row("chord without permission", false, false, true, permissionTitle);
        row("chord without permission, new user", false, false, false, permissionTitle);
        row("key without permission, new user", true, false, false, tourTitle);
        row("key without permission", true, false, true, QString());
    }
    void theFirstRunShowsOneWindow()
    {
        const auto [hasKey, isTrusted, hasCompleted, expected] = fetch<bool, bool, bool, QString>();
        Application application;
        if (hasKey) {
            application.useKey();
        }
        application.permission.trusted = isTrusted;
        application.store(u"hasCompletedOnboarding"_s, hasCompleted);
        application.start();
        for (const QString& title : {permissionTitle, tourTitle, settingsTitle, reindexTitle}) {
            QCOMPARE(shown(title) != nullptr, title == expected);
        }
        QCOMPARE(application.stored(u"hasCompletedOnboarding"_s).toBool(), hasCompleted);
    }

    void aDesktopThatMustBeAskedIsAskedForWhatItCanGive_data()
    {
        // Whether the shortcut has a key, whether chords are had, and what the button says.
        const Table<bool, bool, QString> row;
        row("a chord", false, true, u"Enable Accessibility Access"_s);
        row("a chord where there are none", false, false, u"Enable Accessibility Access"_s);
        row("a chord where there are none, from the settings", false, false, u"Set Up"_s);
        row("a key", true, false, u"Enable Accessibility Access"_s);
    }
    void aDesktopThatMustBeAskedIsAskedForWhatItCanGive()
    {
        const auto [hasKey, hearsChords, words] = fetch<bool, bool, QString>();
        Application application;
        application.keyEvents.listensForChords = application.keyEvents.hearsOfChords = hearsChords;
        application.permission.trusted = false;
        application.permission.forKeys = true;
        application.permission.told = {.limit = u"May I?"_s, .isLiftedByPrompt = true};
        if (hasKey) {
            application.useKey();
        }
        application.start();
        const QWidget* window = shown(permissionTitle);
        QVERIFY(window);
        application.perform(AppAction::checkDesktop);
        QVERIFY(click(*window, words) != click(*shown(settingsTitle), words));
        QCOMPARE(application.permission.calls, QStringList{u"prompt"_s});
        application.permission.trusted = true;
        application.mainQueue.advance(1.1);
        QVERIFY(shown(permissionTitle) && application.keyEvents.hotKeyPressed);
        const std::optional<quint16> key = application.keyEvents.requests.last().keyCode;
        QCOMPARE(key.value_or(0), !hasKey && hearsChords ? 0 : 49);
    }

    void aWalkThatIsAskedForIsCelebrated()
    {
        Started application;
        application.workQueue.runAll();
        application.perform(AppAction::reindex);
        QVERIFY(click(*shown(reindexTitle), u"Reindex Now"_s));
        application.workQueue.runAll();
        application.mainQueue.advance(0.2);
        QVERIFY(std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* window) {
            return window->objectName() == u"confetti"_s && window->isVisible();
        }));
        application.mainQueue.advance(10); // Until it is over.
    }

    void windowsAreReusedWhileTheyLiveAndOnlyTheSettingsOutliveTheirClosing_data()
    {
        const Table<QString, AppAction, bool> row;
        row("settings", settingsTitle, AppAction::settings, true);
        row("re-index", reindexTitle, AppAction::reindex, false);
        row("tour", tourTitle, AppAction::tour, false);
    }
    void windowsAreReusedWhileTheyLiveAndOnlyTheSettingsOutliveTheirClosing()
    {
        const auto [title, action, isKept] = fetch<QString, AppAction, bool>();
        Started application;
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

        QVERIFY(QTest::qWaitForWindowActive(shown(title)));
        QTest::keyClick(shown(title), Qt::Key_Comma, Qt::ControlModifier);
        QVERIFY(shown(settingsTitle));
    }

    void aKeyThatComesAfterTheWindowsEndDoesNoHarm()
    {
        Started application;
        for (const auto& [title, action, key] :
             {std::tuple(reindexTitle, AppAction::reindex, Qt::Key_Escape),
              std::tuple(tourTitle, AppAction::tour, Qt::Key_Return)}) {
            application.perform(action);
            const QPointer<QWidget> control = shown(title)->focusWidget();
            QTest::keyPress(control, key);
            QVERIFY(!shown(title));
            QVERIFY2(control, "both keys were on their way");
            QTest::keyPress(control, key);
            settle();
            QVERIFY(!control);
        }
    }

    void theTourLeadsToTheSettingsAndIsTakenOnceItIsLeft()
    {
        Started application;
        application.perform(AppAction::tour);
        const QWidget* tour = shown(tourTitle);
        QVERIFY(click(*tour, u"Open Settings"_s));
        QVERIFY(shown(settingsTitle));
        QCOMPARE(shown(tourTitle), tour);
        QCOMPARE(application.stored(u"hasCompletedOnboarding"_s), QVariant(false));
        QVERIFY(click(*tour, u"Start Using Tavik"_s));
        QVERIFY(!shown(tourTitle));
        QCOMPARE(application.stored(u"hasCompletedOnboarding"_s), QVariant(true));
    }

    void theUpdaterFollowsTheSettingsAndStopsAtTheEnd()
    {
        Started application;
        application.delegate->perform({.action = AppAction::settings, .argument = u"updates"_s});
        const auto* frequency
            = shown(settingsTitle)->findChild<SegmentedChoice*>(u"updateCheckFrequency"_s);
        frequency->segments().at(1)->click();
        frequency->segments().at(2)->click();
        shown(settingsTitle)->findChild<QAbstractButton*>(u"autoUpdatesEnabled"_s)->click();
        application.perform(AppAction::checkForUpdates);
        const QStringList& calls = application.updater.calls;
        QCOMPARE(calls.mid(1).join(u'|'),
                 u"check by itself|every 86400 s|check by itself|every 604800 s|"
                 "check by itself|every 2592000 s|check when asked|every 2592000 s|check"_s);
        application.delegate.reset();
        QCOMPARE(calls.constLast(), u"stop updater"_s);
    }

    void theTourGrowsWithTheNameOfTheShortcut()
    {
        Application application;
        const QString name = u"Quite a key "_s.repeated(20) + QString(100, u'W');
        application.store(
            u"hotKeyConfig"_s,
            u"{\"modifierFlagsRaw\":0,\"keyCode\":49,\"displayName\":\"%1\"}"_s.arg(name).toUtf8());
        application.start();
        application.perform(AppAction::tour);
        const QWidget* tour = shown(tourTitle);
        QCOMPARE(tour->width(), 560);
        QVERIFY(tour->height() > 420);
        QVERIFY(tour->height() >= tour->layout()->minimumSize().height());
        for (const QLabel* label : tour->findChildren<QLabel*>()) {
            QVERIFY2(label->minimumSizeHint().width() <= label->width(), "no word is cut off");
        }
    }

    void theSettingsHideTheRingAndShowItsPreviewBesideThem()
    {
        Started application;
        const auto requestPreview = [&application] {
            application.notifications.post(LauncherSettings::previewRequestNotification);
        };
        requestPreview();
        QVERIFY(!shown(ringTitle));
        application.perform(AppAction::showLauncher);
        QVERIFY(QTest::qWaitForWindowActive(shown(ringTitle)));
        QTest::keyClick(shown(ringTitle), Qt::Key_Comma, Qt::ControlModifier);
        QVERIFY(shown(settingsTitle));
        QVERIFY(!shown(ringTitle));
        application.windowServer.calls.clear();
        requestPreview();
        QVERIFY(shown(ringTitle));
        QVERIFY2(!application.windowServer.calls.contains(u"take focus"_s), "it takes no keyboard");
        shown(settingsTitle)->close();
        QVERIFY(!shown(ringTitle));
        requestPreview();
        QVERIFY2(!shown(ringTitle), "the settings are there, but hidden");
    }

    void aScreenThatIsNotTheUsersShowsNoRing()
    {
        for (const bool isLocked : {true, false}) { // Or somebody else has taken the input.
            Application application;
            application.useKey();
            application.start();
            application.perform(AppAction::showLauncher);
            application.sessionLock.inputTaken = !isLocked;
            if (isLocked) {
                application.sessionLock.lock();
            } else {
                application.perform(AppAction::toggleLauncher); // It can always be sent away.
            }
            QVERIFY(!shown(ringTitle));
            application.keyEvents.hotKeyPressed(1);
            QVERIFY(!shown(ringTitle));
            application.perform(AppAction::showLauncher);
            application.perform(AppAction::toggleLauncher);
            QVERIFY(!shown(ringTitle));

            application.sessionLock.locked = application.sessionLock.inputTaken = false;
            application.mainQueue.advance(0.1);
            QCOMPARE(shown(ringTitle) == nullptr, isLocked); // Else a choice waits for the end.
            application.perform(AppAction::hideLauncher);
            application.keyEvents.hotKeyPressed(2);
            QVERIFY(shown(ringTitle));
        }
    }

    void theSessionsEndClosesNoWindow()
    {
        Started application;
        application.perform(AppAction::tour);
        const auto endSession = [] {
            QEvent quit(QEvent::Quit);
            QCoreApplication::sendEvent(qApp, &quit);
        };
        QMetaObject::invokeMethod(qApp, endSession, Qt::QueuedConnection);
        QCOMPARE(TavikLauncherApp::exec(), 0);
        QVERIFY(shown(tourTitle));
        QCOMPARE(application.stored(u"hasCompletedOnboarding"_s), QVariant(false));
    }

    void onlyWhatUsersLaunchIsRecorded_data()
    {
        using Policy = RunningApplication::ActivationPolicy;
        const Table<std::optional<RunningApplication>, bool> row;
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
        changed = other;
        changed.isListed = false;
        row("one that no menu shows", changed, false);
    }
    void onlyWhatUsersLaunchIsRecorded()
    {
        const auto [frontmost, isRecorded] = fetch<std::optional<RunningApplication>, bool>();
        Started application;
        application.workspace.frontmost = frontmost;
        application.workspace.center.post(Workspace::didActivateApplication);
        QCOMPARE(application.userDefaults.values.value(u"RecentAppsPaths"_s).toStringList(),
                 isRecorded ? QStringList{u"/apps/other.desktop"_s} : QStringList());
    }

    void theSettingsOfferThemselvesWhereNothingElseShowsTheProgram_data()
    {
        using Host = StatusTray::Host;
        // The tray, whether it is the login's first start, a new user's, and followed by a summon.
        const Table<Host, bool, bool, bool, bool> row;
        row("no tray", Host::none, true, false, false, true);
        row("not again in this login", Host::none, false, false, false, false);
        row("a tray", Host::embedding, true, false, false, false);
        row("the tour is open", Host::none, true, true, false, false);
        row("the user knows the way", Host::none, true, false, true, false);
    }
    void theSettingsOfferThemselvesWhereNothingElseShowsTheProgram()
    {
        const auto [tray, isFirst, isNewUser, asksForRing, isOffered]
            = fetch<StatusTray::Host, bool, bool, bool, bool>();
        Application application;
        application.store(u"hasCompletedOnboarding"_s, !isNewUser);
        application.start();
        application.delegate->startedByUser({}, [first = isFirst] { return first; });
        application.tray.present = tray; // Known a moment after the start.
        if (asksForRing) {
            application.perform(AppAction::toggleLauncher);
            application.perform(AppAction::toggleLauncher);
        }
        application.mainQueue.advance(2.9);
        QVERIFY(!shown(settingsTitle));
        application.mainQueue.advance(0.2);
        QCOMPARE(shown(settingsTitle) != nullptr, isOffered);
    }
};

int main(int argc, char** argv)
{
    TavikLauncherApp application(argc, argv);
    AppDelegateTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "AppDelegateTest.moc"
