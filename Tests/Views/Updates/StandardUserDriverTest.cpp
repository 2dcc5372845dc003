// SPDX-License-Identifier: MIT
#include "UpdatesFixture.h"

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
            fixture.find(UpdatesFixture::item(), true);
            fixture.leave(way == u"button"_s ? u"Remind Me Later"_s : way);
            QCOMPARE(fixture.replies, QList{UpdateChoice::remindLater});
            fixture.driver.showDownloadInitiated([&] { ++answers; });
            QVERIFY(leaves(u"Cancel"_s));
            fixture.driver.showUpdateNotFound(u"2.0 is the newest."_s, [&] { ++answers; });
            QCOMPARE(fixture.texts(), (QStringList{u"Nothing."_s, u"2.0 is the newest."_s}));
            QVERIFY(fixture.delegate.alerts == 1);
            QVERIFY(leaves(u"OK"_s));
        }
    }

    void verifyingCannotBeCancelledAndComesBackWhenItsWindowIsClosed()
    {
        UpdatesFixture fixture;
        fixture.find(UpdatesFixture::item(), true);
        fixture.click(u"Install"_s);
        fixture.driver.showVerifyingUpdate();
        fixture.press(Qt::Key_Escape);
        QVERIFY(!fixture.buttons().constFirst()->isEnabled());
        fixture.window()->close();
        QVERIFY(!fixture.window());
        fixture.driver.showUpdateInFocus();
        QVERIFY(fixture.window());
        fixture.window()->close();
        QList<UpdateChoice> ready;
        fixture.driver.showReadyToInstallAndRelaunch([&](UpdateChoice choice) { ready << choice; });
        QVERIFY(fixture.texts().constLast().endsWith(u"as version 2.1."_s));
        fixture.press(Qt::Key_Return);
        fixture.press(Qt::Key_Return);
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
        QCOMPARE(fixture.texts(),
                 (QStringList{u"Looking for updates did not work."_s, u"No answer."_s}));
        fixture.driver.dismissUpdateInstallation();

        fixture.find(UpdatesFixture::item(), true);
        fixture.click(u"Install"_s);
        fixture.driver.showDownloadInitiated(nullptr);
        fixture.driver.showUpdaterError(u"Wrong signature."_s, nullptr);
        QCOMPARE(fixture.texts(),
                 (QStringList{u"The update was not installed."_s, u"Wrong signature."_s}));
        fixture.driver.showUpdateHandedOver(nullptr);
        QVERIFY(fixture.texts().constLast().contains(u"2.1"_s));
        QCOMPARE(fixture.delegate.alerts, 3);
    }
};

QTEST_MAIN(StandardUserDriverTest)
#include "StandardUserDriverTest.moc"
