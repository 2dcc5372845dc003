// SPDX-License-Identifier: MIT
#include "UpdatesFixture.h"

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class StandardUserDriverTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theDelegateIsAskedWhoShowsWhatTheScheduleFinds()
    {
        for (const bool isShown : {false, true}) {
            UpdatesFixture fixture;
            fixture.delegate.wantsShown = isShown;
            fixture.isFocused = isShown;
            fixture.find(UpdatesFixture::item(), false);
            QCOMPARE(
                fixture.delegate.calls,
                (QStringList{isShown ? u"should 2.1 focused"_s : u"should 2.1 elsewhere"_s,
                             u"will %1 2.1 by schedule"_s.arg(isShown ? u"show"_s : u"leave"_s)}));
            QCOMPARE(fixture.window() != nullptr, isShown);
        }
    }

    void attentionIsReportedOnce()
    {
        UpdatesFixture fixture;
        fixture.find(UpdatesFixture::item(), true);
        QVERIFY(QTest::qWaitForWindowActive(fixture.window()));
        fixture.driver.showUpdateInFocus();
        fixture.click(u"Remind Me Later"_s);
        fixture.driver.dismissUpdateInstallation();
        QCOMPARE(fixture.delegate.calls,
                 (QStringList{u"will show 2.1 by user"_s,
                              u"attention 2.1"_s,
                              u"will show 2.1 by user"_s,
                              u"finish"_s}));
    }

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
            QVERIFY(fixture.delegate.calls.endsWith(u"alert"_s));
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

        UpdateItem item = UpdatesFixture::item();
        item.isInformationOnly = true;
        fixture.find(item, true);
        fixture.click(u"Learn More"_s);
        fixture.driver.showUpdaterError(u"No browser."_s, nullptr);
        QCOMPARE(fixture.texts().constFirst(), u"The page could not be opened."_s);
        fixture.driver.dismissUpdateInstallation();

        fixture.find(UpdatesFixture::item(), true);
        fixture.click(u"Install"_s);
        fixture.driver.showDownloadInitiated(nullptr);
        fixture.driver.showUpdaterError(u"Wrong signature."_s, nullptr);
        QCOMPARE(fixture.texts(),
                 (QStringList{u"The update was not installed."_s, u"Wrong signature."_s}));
        fixture.driver.showUpdateHandedOver(nullptr);
        QVERIFY(fixture.texts().constLast().contains(u"2.1"_s));
        QCOMPARE(fixture.delegate.calls.count(u"alert"_s), 4);
    }

    void whatAFeedCallsAVersionFitsOnALine()
    {
        UpdatesFixture fixture;
        UpdateItem item = UpdatesFixture::item();
        item.displayVersionString = u"2.1\n"_s + QString(300, u'9');
        fixture.find(item, false);
        const QString& said = fixture.delegate.calls.constLast();
        QVERIFY2(said.startsWith(u"will leave 2.1 99"_s) && said.size() < 80
                     && !said.contains(u'\n'),
                 qPrintable(said));
    }

    void theNextWindowOpensWhereTheLastWasMovedTo()
    {
        UpdatesFixture fixture;
        fixture.find(UpdatesFixture::item(), true);
        fixture.window()->centerIn(QRect(300, 300, 1, 1));
        const QPoint middle = fixture.window()->frameGeometry().center();
        fixture.click(u"Install"_s);
        fixture.driver.showDownloadInitiated(nullptr);
        const QPoint distance = fixture.window()->frameGeometry().center() - middle;
        QVERIFY2(distance.manhattanLength() <= 2, qPrintable(QDebug::toString(distance)));
    }
};

QTEST_MAIN(StandardUserDriverTest)
#include "StandardUserDriverTest.moc"
