// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Tray/StatusItem.h>

#include <QApplication>
#include <QTest>

#include <Support/FakeNotices.h>
#include <Support/FakeStatusTray.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>
#include <Support/Warnings.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using Host = StatusTray::Host;

namespace {

struct StatusItemFixture
{
    VirtualMainQueue mainQueue;
    FakeStatusTray tray;
    FakeNotices notices;
    int checks = 0;
    StatusItem item{{tray, notices, mainQueue}, {.checkForUpdates = [this] {
                        ++checks;
                    }}};

    [[nodiscard]] QColor wheelColor() const
    {
        // The lowest dot, which no badge covers.
        return item.icon().pixmap(100, 100).toImage().pixelColor(50, 86);
    }
};

} // namespace

class StatusItemTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theReminderComesAndGoes()
    {
        StatusItemFixture fixture;
        const StatusItem& item = fixture.item;
        const QAction* updates = fixture.item.menu().actions().at(3);
        // Of neither mark of a mnemonic, the menu's own and the bus's.
        for (const auto& [version, title] : {std::pair(u"2.1"_s, u"Update to 2.1 Available…"_s),
                                             {u"2.1_rc1"_s, u"Update to 2.1&_rc1 Available…"_s},
                                             {u"2&1"_s, u"Update to 2&&1 Available…"_s}}) {
            fixture.item.showUpdateReminder(version);
            QCOMPARE(updates->text(), title);
            QCOMPARE(item.accessibilityDescription(), u"Tavik Launcher — update available"_s);
            QVERIFY(!item.icon().isMask());
            fixture.item.clearUpdateReminder();
            QCOMPARE(updates->text(), u"Check for Updates…"_s);
            QCOMPARE(item.accessibilityDescription(), u"Tavik Launcher"_s);
            QVERIFY(item.icon().isMask());
        }
    }

    void withoutATrayANoticeTellsOfAnUpdate()
    {
        StatusItemFixture fixture;
        fixture.item.showUpdateReminder(u"2_1&"_s);
        QCOMPARE(fixture.notices.text, u"Update to 2_1& Available…"_s);
        fixture.notices.chosen();
        QCOMPARE(fixture.checks, 1);
        fixture.item.clearUpdateReminder();
        QCOMPARE(fixture.notices.text, QString());
        fixture.item.showUpdateReminder(u"2.1"_s);
        QCOMPARE(fixture.notices.text, u"Update to 2.1 Available…"_s);
        fixture.tray.become(Host::notifier);
        QCOMPARE(fixture.notices.text, QString());
        fixture.item.showUpdateReminder(u"2.1"_s);
        QCOMPARE(fixture.notices.text, QString());
    }

    void theIconAppearsWithTheTray_data()
    {
        using enum Host;
        const Table<QList<Host>, int> row; // What is there, second by second; -1 for never.
        row("no tray", {none}, -1);
        row("notifier", {notifier}, 0);
        row("embedding only", {embedding}, 2);
        row("embedding, then the notifier of the same panel", {embedding, notifier}, 1);
        row("embedding that goes at once", {embedding, none, none, none, none}, -1);
        row("the grace begins anew", {embedding, none, embedding}, 4);
    }
    void theIconAppearsWithTheTray()
    {
        const auto [hosts, expected] = fetch<QList<Host>, int>();
        StatusItemFixture fixture;
        if (!hosts.contains(Host::notifier) && !hosts.contains(Host::embedding)) {
            expectWarning(u"no tray"_s);
        }
        int installedAfter = -1;
        for (int second = 0; second < 20; ++second) {
            if (second < hosts.size()) {
                fixture.tray.become(hosts.at(second));
            }
            if (fixture.item.isInstalled() && installedAfter < 0) {
                installedAfter = second;
            }
            fixture.mainQueue.advance(1);
        }
        QCOMPARE(installedAfter, expected);
    }

    void aMissingTrayIsSaidOnce()
    {
        StatusItemFixture fixture;
        fixture.mainQueue.advance(9.9);
        QTest::ignoreMessage(QtWarningMsg,
                             "Tavik Launcher: this desktop has no tray; the menu is not shown");
        fixture.mainQueue.advance(1);
        QTest::failOnWarning(QRegularExpression(u"tray"_s));
        fixture.mainQueue.advance(3600);
        QCOMPARE(fixture.mainQueue.pendingTasks(), 0);
    }

    void theIconFollowsThePanel()
    {
        StatusItemFixture fixture;
        const QPalette before = QGuiApplication::palette();
        fixture.tray.become(Host::notifier);
        for (const QColor& text : {QColor(240, 240, 240), QColor(20, 20, 20)}) {
            QPalette palette;
            palette.setColor(QPalette::WindowText, text);
            QApplication::setPalette(palette);
            QCoreApplication::processEvents();
            QCOMPARE(fixture.wheelColor(), text);
        }
        fixture.tray.color = QColor(200, 10, 10);
        fixture.tray.tell();
        QCOMPARE(fixture.wheelColor(), QColor(200, 10, 10));
        QApplication::setPalette(before);
    }
};

QTEST_MAIN(StatusItemTest)
#include "StatusItemTest.moc"
