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
    QString chosen;
    StatusItem item{{tray, notices, mainQueue},
                    {.showSettings = [this] { chosen += u's'; },
                     .checkForUpdates =
                         [this] {
                             chosen += u'c';
                         }}};

    [[nodiscard]] QColor wheelColor() const
    {
        // The lowest dot, which no badge covers.
        return item.icon().pixmap(100, 100).toImage().pixelColor(50, 86);
    }
    /// The titles of the notices.
    [[nodiscard]] QStringList noticed() const
    {
        QStringList titles;
        for (const auto& [subject, notice] : notices.shown) {
            titles << notice.title;
        }
        return titles;
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

    void whatNoTrayTellsANoticeTells()
    {
        StatusItemFixture fixture;
        const QStringList reminder{u"Update to 2_1& Available…"_s};
        fixture.item.showUpdateReminder(u"2_1&"_s);
        QCOMPARE(fixture.noticed(), reminder);
        fixture.item.clearUpdateReminder();
        QCOMPARE(fixture.noticed(), QStringList());
        fixture.item.showUpdateReminder(u"2_1&"_s);
        fixture.item.tell(u"lost"_s, u"why"_s);
        QCOMPARE(fixture.noticed(), reminder + QStringList{u"lost"_s});
        for (const auto& [subject, notice] : fixture.notices.shown) {
            notice.chosen();
        }
        QCOMPARE(fixture.chosen, u"cs"_s);

        fixture.tray.become(Host::notifier);
        QCOMPARE(fixture.noticed(), QStringList{u"lost"_s}); // It is told once only.
        fixture.notices.shown.clear();
        fixture.item.showUpdateReminder(u"2_1&"_s);
        fixture.item.tell(u"lost"_s, u"why"_s);
        QCOMPARE(fixture.noticed(), QStringList());
        fixture.tray.become(Host::none); // The panel is started anew.
        fixture.mainQueue.advance(5);
        QCOMPARE(fixture.noticed(), QStringList());
        fixture.tray.become(Host::notifier);
        fixture.mainQueue.advance(60);
        QCOMPARE(fixture.noticed(), QStringList());
        fixture.tray.become(Host::none);
        fixture.mainQueue.advance(11);
        QCOMPARE(fixture.noticed(), reminder);
        fixture.tray.become(Host::notifier);
        QCOMPARE(fixture.noticed(), QStringList());
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
