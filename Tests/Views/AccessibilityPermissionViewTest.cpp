// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/AccessibilityPermissionView.h>

#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QTest>

#include <Support/FakeKeyEvents.h>
#include <Support/VirtualMainQueue.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using Phase = AccessibilityPermissionSession::Phase;

namespace {

struct Asked
{
    Asked() { permission.trusted = false; }

    void show()
    {
        view.setFixedSize(440, 520);
        view.show();
    }
    /// Presses the visible button with that text.
    bool press(const QString& text)
    {
        for (auto* button : view.findChildren<QPushButton*>()) {
            if (button->isVisible() && button->text() == text) {
                button->click();
                return true;
            }
        }
        return false;
    }
    [[nodiscard]] bool says(const QString& text) const
    {
        const auto labels = view.findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [&text](const QLabel* label) {
            return label->isVisible() && label->text() == text;
        });
    }

    FakeAccessibilityPermission permission;
    VirtualMainQueue queue;
    int granted = 0;
    int dismissed = 0;
    AccessibilityPermissionView view{permission,
                                     queue,
                                     {.onDismiss = [this] { ++dismissed; },
                                      .onGranted =
                                          [this] {
                                              ++granted;
                                          }}};
};

const QString enable = u"Enable Accessibility Access"_s;
const QString done = u"Done — I've Enabled It"_s;
const QString hint
    = u"Not enabled yet — flip the toggle next to Tavik Launcher in Accessibility settings."_s;

} // namespace

class AccessibilityPermissionViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theWayLeadsFromThePromptOverTheSettingsToGranted()
    {
        Asked asked;
        asked.show();
        QVERIFY(asked.says(u"Allow Accessibility Access"_s));
        QVERIFY(!asked.press(done));
        QVERIFY(asked.press(enable));
        QCOMPARE(asked.view.session().phase(), Phase::waitingForUser);
        QVERIFY(!asked.press(enable));
        QVERIFY(asked.press(u"Open Accessibility Settings"_s));
        QCOMPARE(asked.permission.calls, QStringList({u"prompt"_s, u"settings"_s}));
        QVERIFY(!asked.says(hint));
        QVERIFY(asked.press(done));
        QVERIFY(asked.says(hint));
        QCOMPARE(asked.view.session().phase(), Phase::waitingForUser);
        asked.queue.advance(3);
        QVERIFY(asked.says(hint));
        asked.permission.trusted = true;
        QVERIFY(asked.press(done));
        QCOMPARE(asked.granted, 1);
        QVERIFY(asked.says(u"Hotkey Is Active"_s));
        QVERIFY(!asked.press(done) && !asked.says(hint));
        QCOMPARE(asked.dismissed, 0);
    }

    void permissionGivenElsewhereIsNoticedWithinASecond_data()
    {
        QTest::addColumn<bool>("hasPressed");
        QTest::newRow("from the prompt") << false;
        QTest::newRow("while waiting") << true;
    }

    void permissionGivenElsewhereIsNoticedWithinASecond()
    {
        QFETCH(const bool, hasPressed);
        Asked asked;
        asked.show();
        if (hasPressed) {
            asked.press(enable);
        }
        asked.queue.advance(1.5);
        QCOMPARE(asked.granted, 0);
        asked.permission.trusted = true;
        asked.queue.advance(0.6);
        QCOMPARE(asked.granted, 1);
        QCOMPARE(asked.view.session().phase(), Phase::granted);
        asked.queue.advance(5);
        QCOMPARE(asked.granted, 1);
        QCOMPARE(asked.queue.pendingTasks(), 0);
    }

    void permissionThatIsThereAlreadyIsToldWhenTheWindowOpens()
    {
        Asked asked;
        asked.permission.trusted = true;
        asked.show();
        QCOMPARE(asked.granted, 1);
        QCOMPARE(asked.view.session().phase(), Phase::prompt);
    }

    void closedWindowLooksOnceMoreAndThenNoLonger()
    {
        Asked asked;
        asked.show();
        asked.permission.trusted = true;
        asked.view.close();
        QCOMPARE(asked.granted, 1);
        QCOMPARE(asked.queue.pendingTasks(), 0);
        asked.queue.advance(5);
        QCOMPARE(asked.granted, 1);
    }

    void skippingOnlyCloses()
    {
        Asked asked;
        asked.show();
        asked.press(enable);
        QVERIFY(asked.press(u"Skip for Now"_s));
        QCOMPARE(asked.dismissed, 1);
        QCOMPARE(asked.granted, 0);
    }

    void everyPhaseFitsIntoTheWindow()
    {
        Asked asked;
        asked.show();
        const auto neededHeight = [&asked] {
            return asked.view.layout()->totalHeightForWidth(asked.view.width());
        };
        QVERIFY(neededHeight() <= 520);
        asked.press(enable);
        asked.press(done);
        QVERIFY(neededHeight() <= 520);
        asked.permission.trusted = true;
        asked.queue.advance(1);
        QVERIFY(neededHeight() <= 520);
    }

    void keysLeaveTheWindow()
    {
        Asked asked;
        asked.show();
        QVERIFY(QTest::qWaitForWindowExposed(&asked.view));
        QTest::keyClick(asked.view.focusWidget(), Qt::Key_Escape);
        QCOMPARE(asked.dismissed, 1);
        asked.permission.trusted = true;
        asked.queue.advance(1.1);
        QCOMPARE(asked.view.session().phase(), Phase::granted);
        QCOMPARE(asked.view.focusWidget(), &asked.view);
        QTest::keyClick(&asked.view, Qt::Key_Return);
        QCOMPARE(asked.dismissed, 2);
    }
};

QTEST_MAIN(AccessibilityPermissionViewTest)
#include "AccessibilityPermissionViewTest.moc"
