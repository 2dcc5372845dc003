// SPDX-License-Identifier: MIT
#include "UpdatesFixture.h"

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class StandardUserDriverTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whoShowsAnUpdate_data()
    {
        // Asked for by the user, in focus, with reminders, wanted by the delegate.
        const Table<bool, bool, bool, bool, QStringList> row;
        row("asked for", true, false, true, false, {u"will show 2.1 by user"_s});
        row("left to the delegate",
            false,
            false,
            true,
            false,
            {u"should 2.1 elsewhere"_s, u"will leave 2.1 by schedule"_s});
        row("in focus, and wanted",
            false,
            true,
            true,
            true,
            {u"should 2.1 focused"_s, u"will show 2.1 by schedule"_s});
        row("without reminders", false, false, false, false, {u"will show 2.1 by schedule"_s});
    }
    void whoShowsAnUpdate()
    {
        const auto [userInitiated, isFocused, isGentle, wantsShown, calls]
            = fetch<bool, bool, bool, bool, QStringList>();
        UpdatesFixture fixture;
        fixture.isFocused = isFocused;
        fixture.delegate.isGentle = isGentle;
        fixture.delegate.wantsShown = wantsShown;
        fixture.find(UpdatesFixture::item(), userInitiated);
        QCOMPARE(fixture.delegate.calls, calls);
        QCOMPARE(fixture.window() != nullptr, calls.constLast().startsWith(u"will show"_s));
        QVERIFY(fixture.replies.isEmpty());
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

    void everyWayOutOfTheQuestionIsAnAnswer()
    {
        for (const auto& [way, choice] :
             {std::pair(u"Install"_s, UpdateChoice::install),
              std::pair(u"Remind Me Later"_s, UpdateChoice::remindLater),
              std::pair(u"Skip This Version"_s, UpdateChoice::skip),
              std::pair(u"close"_s, UpdateChoice::remindLater)}) {
            UpdatesFixture fixture;
            fixture.find(UpdatesFixture::item(), true);
            fixture.leave(way);
            QCOMPARE(fixture.replies, QList{choice});
            QCOMPARE(fixture.windowCount(), 0);
        }
    }

    void aSessionGoesThroughOneWindowAfterTheOther()
    {
        UpdatesFixture fixture;
        int cancelled = 0;
        fixture.driver.showUserInitiatedUpdateCheck(fixture.counted(cancelled));
        QCOMPARE(fixture.texts(), QStringList{u"Looking for a newer version…"_s});
        fixture.find(UpdatesFixture::item(), true);
        QCOMPARE(fixture.windowCount(), 1);
        fixture.click(u"Install"_s);
        fixture.driver.showDownloadInitiated(fixture.counted(cancelled));
        const UpdateWindow* status = fixture.window();
        QCOMPARE(fixture.texts().constFirst(), u"Downloading Tavik Launcher 2.1…"_s);
        fixture.driver.showVerifyingUpdate();
        QList<UpdateChoice> ready;
        fixture.driver.showReadyToInstallAndRelaunch([&](UpdateChoice choice) { ready << choice; });
        QVERIFY(fixture.texts().constLast().endsWith(u"as version 2.1."_s));
        fixture.press(Qt::Key_Return);
        fixture.press(Qt::Key_Return);
        QCOMPARE(ready, QList{UpdateChoice::install});
        fixture.driver.showInstallingUpdate();
        QCOMPARE(fixture.window(), status);
        fixture.driver.dismissUpdateInstallation();
        QCOMPARE(fixture.windowCount(), 0);
        QCOMPARE(cancelled, 0);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
    }

    void whatTakesLongCanBeCancelledOnce()
    {
        for (const QString& way : {u"Cancel"_s, u"Escape"_s, u"close"_s}) {
            for (const bool isDownload : {false, true}) {
                UpdatesFixture fixture;
                int cancelled = 0;
                if (isDownload) {
                    fixture.driver.showDownloadInitiated(fixture.counted(cancelled));
                } else {
                    fixture.driver.showUserInitiatedUpdateCheck(fixture.counted(cancelled));
                }
                fixture.leave(way);
                QCOMPARE(cancelled, 1);
                QCOMPARE(fixture.windowCount(), 0);
                QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
            }
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
        QVERIFY(fixture.window());
        fixture.press(Qt::Key_Escape);
        QCOMPARE(ready, QList{UpdateChoice::remindLater});
    }

    void alertsAreAnnouncedAndAcknowledgedOnce()
    {
        for (const QString& way : {u"OK"_s, u"Return"_s, u"Escape"_s, u"close"_s}) {
            UpdatesFixture fixture;
            int acknowledged = 0;
            fixture.driver.showUpdateNotFound(u"2.0 is the newest."_s,
                                              fixture.counted(acknowledged));
            QCOMPARE(fixture.delegate.calls, QStringList{u"alert"_s});
            QCOMPARE(fixture.texts(), (QStringList{u"Nothing."_s, u"2.0 is the newest."_s}));
            fixture.leave(way);
            QCOMPARE(acknowledged, 1);
            QCOMPARE(fixture.windowCount(), 0);
            // Nobody has to be told.
            fixture.driver.showUpdateNotFound(u"2.0 is the newest."_s, nullptr);
            fixture.leave(way);
            QCOMPARE(fixture.windowCount(), 0);
        }
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
