// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/StatusItem.h>

#include <QApplication>
#include <QTest>

#include <Support/FakeStatusTray.h>
#include <Support/VirtualMainQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using Host = StatusTray::Host;

namespace {

struct StatusItemFixture
{
    VirtualMainQueue mainQueue;
    FakeStatusTray tray;
    QStringList chosen;
    StatusItem item{{tray, mainQueue},
                    {.showAbout = [this] { chosen << u"about"_s; },
                     .showSettings = [this] { chosen << u"settings"_s; },
                     .checkForUpdates = [this] { chosen << u"updates"_s; },
                     .showLauncher = [this] { chosen << u"show"_s; },
                     .repeatTour = [this] { chosen << u"tour"_s; },
                     .showReindexWindow = [this] { chosen << u"reindex"_s; },
                     .openSupportPage = [this] { chosen << u"support"_s; },
                     .quit =
                         [this] {
                             chosen << u"quit"_s;
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
    void theMenuIsInOrder()
    {
        StatusItemFixture fixture;
        QStringList lines;
        for (QAction* action : fixture.item.menu().actions()) {
            lines << (action->isSeparator() ? u"-"_s
                                            : action->text() + u'|'
                              + action->shortcut().toString(QKeySequence::PortableText));
            action->trigger();
        }
        QCOMPARE(lines,
                 (QStringList{u"About Tavik Launcher|"_s,
                              u"-"_s,
                              u"Settings...|Ctrl+,"_s,
                              u"Check for Updates…|"_s,
                              u"-"_s,
                              u"Show Tavik Launcher|"_s,
                              u"Repeat Tour|"_s,
                              u"Reindex Apps…|"_s,
                              u"Support…|"_s,
                              u"-"_s,
                              u"Quit|Ctrl+Q"_s}));
        QCOMPARE(fixture.chosen.join(u' '),
                 u"about settings updates show tour reindex support quit"_s);
    }

    void theReminderComesAndGoes()
    {
        StatusItemFixture fixture;
        QAction* updates = fixture.item.menu().actions().at(3);
        QVERIFY(fixture.item.icon().isMask());
        fixture.item.showUpdateReminder(u"2.1"_s);
        QCOMPARE(updates->text(), u"Update to 2.1 Available…"_s);
        QVERIFY(!fixture.item.icon().isMask());
        QCOMPARE(fixture.item.accessibilityDescription(), u"Tavik Launcher — update available"_s);
        updates->trigger();
        QCOMPARE(fixture.chosen, QStringList{u"updates"_s});

        fixture.item.clearUpdateReminder();
        QCOMPARE(updates->text(), u"Check for Updates…"_s);
        QVERIFY(fixture.item.icon().isMask());
        QCOMPARE(fixture.item.accessibilityDescription(), u"Tavik Launcher"_s);
    }

    void theIconAppearsWithTheTray_data()
    {
        QTest::addColumn<QList<Host>>("hosts"); // One a second.
        QTest::addColumn<int>("installedAfter"); // Seconds; -1: never.
        using List = QList<Host>;
        QTest::newRow("no tray") << List{Host::none} << -1;
        QTest::newRow("notifier") << List{Host::notifier} << 0;
        QTest::newRow("notifier much later")
            << List{Host::none, Host::none, Host::none, Host::notifier} << 3;
        QTest::newRow("embedding only") << List{Host::embedding} << 2;
        QTest::newRow("embedding, then the notifier of the same panel")
            << List{Host::embedding, Host::notifier} << 1;
        QTest::newRow("embedding that goes at once")
            << List{Host::embedding, Host::none, Host::none, Host::none, Host::none} << -1;
        QTest::newRow("the grace begins anew")
            << List{Host::embedding, Host::none, Host::embedding} << 4;
    }
    void theIconAppearsWithTheTray()
    {
        QFETCH(QList<Host>, hosts);
        StatusItemFixture fixture;
        if (!hosts.contains(Host::notifier) && !hosts.contains(Host::embedding)) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"no tray"_s));
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
        QTEST(installedAfter, "installedAfter");
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

        StatusItemFixture other;
        other.tray.become(Host::notifier);
        other.mainQueue.advance(3600);
        QCOMPARE(other.mainQueue.pendingTasks(), 0);
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

    void keyEquivalentsWorkInEveryWindowOfOurs()
    {
        StatusItemFixture fixture;
        QWidget first;
        QWidget second;
        for (QWidget* window : {&first, &second}) {
            fixture.item.addKeyEquivalents(*window);
            window->show();
            window->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(window));
            QTest::keyClick(window, Qt::Key_Comma, Qt::ControlModifier);
        }
        QTest::keyClick(&second, Qt::Key_Q, Qt::ControlModifier);
        QCOMPARE(fixture.chosen, (QStringList{u"settings"_s, u"settings"_s, u"quit"_s}));
    }
};

QTEST_MAIN(StatusItemTest)
#include "StatusItemTest.moc"
