// SPDX-License-Identifier: MIT
#include "UpdatesFixture.h"

#include <QAccessible>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class StandardUserDriverTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyWayOutIsOneAnswer()
    {
        for (const QString& way : {u"close"_s, u"Escape"_s, u"button"_s}) {
            UpdatesFixture fixture;
            int answers = 0;
            const auto leaves = [&](const QString& button) {
                const int before = answers;
                fixture.leave(way == u"button"_s ? button : way);
                return answers == before + 1 && fixture.windowCount() == 0
                    && fixture.mainQueue.pendingTasks() == 0;
            };
            fixture.driver.showUserInitiatedUpdateCheck([&] { ++answers; });
            QVERIFY(leaves(u"Cancel"_s));
            fixture.find();
            const QAccessibleInterface* window
                = QAccessible::queryAccessibleInterface(fixture.window());
            QCOMPARE(window->role(), QAccessible::Dialog); // It is read out.
            fixture.leave(way == u"button"_s ? u"Remind Me Later"_s : way);
            QCOMPARE(fixture.replies, QList{UpdateChoice::remindLater});
            fixture.driver.showDownloadInitiated([&] { ++answers; });
            QVERIFY(leaves(u"Cancel"_s));
            fixture.driver.showUpdateNotFound(u"2.0 is the newest."_s, [&] { ++answers; });
            QCOMPARE(fixture.texts().join(u'|'), u"Nothing.|2.0 is the newest."_s);
            QCOMPARE(fixture.delegate.alerts, 1);
            QVERIFY(leaves(u"OK"_s));
        }
    }

    void verifyingCannotBeCancelledAndComesBackWhenItsWindowIsClosed()
    {
        UpdatesFixture fixture;
        fixture.find();
        fixture.click(u"Install"_s);
        fixture.driver.showVerifyingUpdate();
        fixture.press(Qt::Key_Escape);
        QVERIFY(!fixture.buttons().constFirst()->isEnabled());
        fixture.window()->close();
        QVERIFY(!fixture.window());
        fixture.driver.showUpdateInFocus();
        fixture.window()->close();
        QList<UpdateChoice> ready;
        fixture.driver.showReadyToInstallAndRelaunch([&](UpdateChoice choice) { ready << choice; });
        QVERIFY(fixture.texts().constLast().endsWith(u"as version 2.1."_s));
        fixture.click(u"Install and Relaunch"_s);
        fixture.click(u"Install and Relaunch"_s);
        QCOMPARE(ready, QList{UpdateChoice::install});
        fixture.driver.showReadyToInstallAndRelaunch([&](UpdateChoice choice) { ready << choice; });
        fixture.press(Qt::Key_Escape);
        QCOMPARE(ready.constLast(), UpdateChoice::remindLater);
        fixture.driver.showInstallingUpdate();
        fixture.driver.dismissUpdateInstallation();
        QCOMPARE(fixture.windowCount(), 0);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
    }

    void failuresSayWhatFailed()
    {
        UpdatesFixture fixture;
        fixture.driver.showUpdaterError(u"No answer."_s, nullptr);
        QCOMPARE(fixture.texts().join(u'|'), u"Looking for updates did not work.|No answer."_s);
        fixture.driver.dismissUpdateInstallation();

        fixture.find();
        fixture.click(u"Install"_s);
        fixture.driver.showUpdaterError(u"Wrong signature."_s, nullptr);
        QCOMPARE(fixture.texts().join(u'|'), u"The update was not installed.|Wrong signature."_s);
        fixture.driver.showUpdateHandedOver(nullptr);
        QVERIFY(fixture.texts().constLast().contains(u"2.1"_s));
        QCOMPARE(fixture.delegate.alerts, 0);
    }

    void whatNobodyWaitsForTakesNoKeyAndNoKeyboard_data()
    {
        using Moment = std::function<void(UpdatesFixture&)>;
        const Table<bool, Moment> row; // Whether it was chosen, and is being downloaded.
        row("found by schedule", false, [](UpdatesFixture& fixture) {
            fixture.delegate.wantsShown = true;
            fixture.find(UpdatesFixture::item(), false);
        });
        row("ready", true, [](UpdatesFixture& fixture) {
            fixture.driver.showReadyToInstallAndRelaunch(
                [&fixture](UpdateChoice) { ++fixture.answers; });
        });
        row("failed", true, [](UpdatesFixture& fixture) {
            fixture.driver.showUpdaterError(u"No."_s, [&fixture] { ++fixture.answers; });
        });
        row("handed over", true, [](UpdatesFixture& fixture) {
            fixture.driver.showUpdateHandedOver([&fixture] { ++fixture.answers; });
        });
    }
    void whatNobodyWaitsForTakesNoKeyAndNoKeyboard()
    {
        const auto [isChosen, moment] = fetch<bool, std::function<void(UpdatesFixture&)>>();
        for (const bool isFocused : {false, true}) {
            UpdatesFixture fixture;
            fixture.isFocused = isFocused;
            if (isChosen) {
                fixture.find();
                fixture.click(u"Install"_s);
                fixture.driver.showDownloadInitiated([&fixture] { ++fixture.answers; });
                fixture.buttons().constFirst()->setFocus(); // It goes, and hands the focus on.
            }
            fixture.replies.clear();
            fixture.windowServer.calls.clear();
            moment(fixture);
            QCOMPARE(fixture.windowServer.calls.contains(u"take focus"_s), isFocused);
            QCOMPARE(fixture.delegate.wasInFocus.value_or(isFocused), isFocused);
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
                fixture.press(key);
            }
            QCOMPARE(fixture.answers + fixture.replies.size(), 0);
            // Who turns to a button means it.
            fixture.press(Qt::Key_Tab);
            fixture.press(Qt::Key_Space);
            QCOMPARE(fixture.answers + fixture.replies.size(), 1);
        }
    }

    void whoWentOnFromTheCheckInstallsNothingWithReturn()
    {
        for (const bool isLeft : {false, true}) {
            UpdatesFixture fixture;
            fixture.driver.showUserInitiatedUpdateCheck(nullptr);
            QEvent left(isLeft ? QEvent::WindowDeactivate : QEvent::WindowActivate);
            QCoreApplication::sendEvent(fixture.window(), &left);
            fixture.find();
            QCOMPARE(fixture.windowServer.calls.constLast(), u"take focus"_s);
            fixture.press(Qt::Key_Return);
            QCOMPARE(fixture.replies.size(), isLeft ? 0 : 1);
        }
    }
};

QTEST_MAIN(StandardUserDriverTest)
#include "StandardUserDriverTest.moc"
